#include "platform/desktop/icons/bytereader.h"

namespace platform {

QByteArray ByteReader::read(quint64 offset, quint64 count) const
{
    const auto size = static_cast<quint64>(m_device.size());
    if (count > mostBytes || offset > size || count > size - offset
        || !m_device.seek(static_cast<qint64>(offset)))
        return QByteArray();
    QByteArray bytes = m_device.read(static_cast<qint64>(count));
    return static_cast<quint64>(bytes.size()) == count ? bytes : QByteArray();
}

} // namespace platform
