#include "registry/valuedata.h"

#include <QtCore/QtEndian>

#include <algorithm>
#include <array>

QString registryText(const platform::RegistryBytes &data, int units)
{
    QString text(qBound(0, units, static_cast<int>(data.size() / sizeof(char16_t))), Qt::Uninitialized);
    for (int i = 0; i < text.size(); ++i)
        text[i] =
            QChar(qFromLittleEndian<quint16>(data.data() + static_cast<std::size_t>(i) * sizeof(char16_t)));
    return text;
}

qint32 registryNumber(const platform::RegistryBytes &data)
{
    std::array<std::uint8_t, sizeof(qint32)> bytes{};
    std::copy_n(data.cbegin(), std::min(data.size(), bytes.size()), bytes.begin());
    return qFromLittleEndian<qint32>(bytes.data());
}
