#pragma once

#include <QtCore/qglobal.h>

#if defined(KESTMAINPROVIDER_LIBRARY)
#define KESTMAINPROVIDER_EXPORT Q_DECL_EXPORT
#else
#define KESTMAINPROVIDER_EXPORT Q_DECL_IMPORT
#endif
