#pragma once

#include "platform/registry.h"

#include <QtCore/QString>

/// The first @p units 16-bit units of the data as text. A number below 0 counts as 0, and what the data lacks
/// is left out.
QString registryText(const platform::RegistryBytes &data, int units);

/// The first four bytes of the data as a signed number. What the data lacks counts as 0.
qint32 registryNumber(const platform::RegistryBytes &data);
