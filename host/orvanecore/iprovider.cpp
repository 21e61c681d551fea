#include "iprovider.h"

IProvider::~IProvider() = default;
