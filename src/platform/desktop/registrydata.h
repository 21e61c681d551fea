#pragma once

#include "platform/desktop/registrystore.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace platform {

/// A text as a value of type REG_SZ, its terminating null counted.
RegistryValue textValue(const QString &name, const QString &text);

/// A number as a value of type REG_DWORD.
RegistryValue numberValue(const QString &name, quint32 number);

/// The data as UTF-16 text, terminating null and all. An odd byte at its end is left out.
QString toUtf16(const QByteArray &data);

/// The number in a REG_DWORD; nothing if it is none or has not 4 bytes.
std::optional<quint32> numberIn(const RegistryValue &value);

} // namespace platform
