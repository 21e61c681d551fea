#include "iapplication.h"

namespace {
IApplication *currentApplication = nullptr;
}

IApplication *IApplication::instance()
{
    return currentApplication;
}

IApplication::IApplication()
{
    currentApplication = this;
}

IApplication::~IApplication()
{
    if (currentApplication == this)
        currentApplication = nullptr;
}
