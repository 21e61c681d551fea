#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QIODevice>
#include <QtCore/QtEndian>

namespace platform {

/// Reads parts of a file that may be damaged, and that others may change or shorten meanwhile.
class ByteReader
{
public:
    /// What is read at once. No picture that is taken needs more.
    static constexpr quint64 mostBytes = 0x800000;

    /// @p device is open, allows random access and outlives this.
    explicit ByteReader(QIODevice &device)
        : m_device(device)
    {
    }

    /// Exactly these bytes; empty if the file does not have them all, or they are more than mostBytes.
    QByteArray read(quint64 offset, quint64 count) const;

private:
    QIODevice &m_device;
};

/// The number at @p offset, which lies inside @p bytes; the lowest byte comes first.
template <typename Number>
Number numberAt(const QByteArray &bytes, int offset)
{
    Q_ASSERT(offset >= 0 && offset + static_cast<int>(sizeof(Number)) <= bytes.size());
    return qFromLittleEndian<Number>(bytes.constData() + offset);
}

} // namespace platform
