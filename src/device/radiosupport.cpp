#include "device/radiosupport.h"

// No function reads the radios yet, so there is nothing to load.

void RadioSupport::load() { }

void RadioSupport::release() { }
