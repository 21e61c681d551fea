#include "platform/desktop/registrydata.h"

#include <QtCore/QtEndian>

namespace platform {

RegistryValue textValue(const QString &name, const QString &text)
{
    const QString withNull = text + QChar(QChar::Null);
    QByteArray data(withNull.size() * 2, Qt::Uninitialized);
    qToLittleEndian<quint16>(withNull.utf16(), withNull.size(), data.data());
    return {name, RegistryType::string, data};
}

RegistryValue numberValue(const QString &name, quint32 number)
{
    QByteArray data(sizeof number, Qt::Uninitialized);
    qToLittleEndian(number, data.data());
    return {name, RegistryType::dword, data};
}

QString toUtf16(const QByteArray &data)
{
    QString text(data.size() / 2, Qt::Uninitialized);
    qFromLittleEndian<quint16>(data.constData(), text.size(), text.data());
    return text;
}

std::optional<quint32> numberIn(const RegistryValue &value)
{
    if (value.type != RegistryType::dword || value.data.size() != sizeof(quint32))
        return std::nullopt;
    return qFromLittleEndian<quint32>(value.data.constData());
}

} // namespace platform
