#pragma once

#include <QtCore/qglobal.h>

#if defined(ORVANECORE_LIBRARY)
#define ORVANECORE_EXPORT Q_DECL_EXPORT
#else
#define ORVANECORE_EXPORT Q_DECL_IMPORT
#endif
