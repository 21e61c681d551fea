#include "platform/desktop/regfiletext.h"

#include <QtCore/QTextCodec>
#include <QtCore/QtEndian>

#include <algorithm>

namespace platform {

namespace {

const QByteArray utf8Mark("\xEF\xBB\xBF");
const QByteArray littleEndianMark("\xFF\xFE");
const QByteArray bigEndianMark("\xFE\xFF");

bool isAscii(const QByteArray &bytes)
{
    return std::none_of(bytes.cbegin(), bytes.cend(), [](char byte) { return (byte & 0x80) != 0; });
}

bool decodeUtf8(const QByteArray &bytes, QString &text)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    text = QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

int firstLineNotInUtf8(const QByteArray &bytes)
{
    QString ignored;
    int line = 1;
    for (int start = 0; start < bytes.size(); ++line) {
        const int lineFeed = bytes.indexOf('\n', start);
        const int end = lineFeed < 0 ? bytes.size() : lineFeed + 1;
        const QByteArray content = QByteArray::fromRawData(bytes.constData() + start, end - start);
        if (!isAscii(content) && !decodeUtf8(content, ignored))
            break;
        start = end;
    }
    return line;
}

RegFileText fromUtf8(const QByteArray &bytes)
{
    RegFileText decoded;
    if (!decodeUtf8(bytes, decoded.text))
        return {QString(), firstLineNotInUtf8(bytes), QStringLiteral("this is not UTF-8 text")};
    return decoded;
}

RegFileText fromUtf16(const QByteArray &bytes, bool isBigEndian)
{
    RegFileText decoded;
    decoded.text = QString(bytes.size() / 2, Qt::Uninitialized);
    if (isBigEndian)
        qFromBigEndian<quint16>(bytes.constData(), decoded.text.size(), decoded.text.data());
    else
        qFromLittleEndian<quint16>(bytes.constData(), decoded.text.size(), decoded.text.data());
    if (bytes.size() % 2 != 0)
        return {QString(), decoded.text.count(QLatin1Char('\n')) + 1,
                QStringLiteral("the file ends in the middle of a character")};
    return decoded;
}

} // namespace

RegFileText decodeRegFile(const QByteArray &bytes)
{
    if (bytes.startsWith(littleEndianMark))
        return fromUtf16(bytes.mid(littleEndianMark.size()), false);
    if (bytes.startsWith(bigEndianMark))
        return fromUtf16(bytes.mid(bigEndianMark.size()), true);
    return fromUtf8(bytes.startsWith(utf8Mark) ? bytes.mid(utf8Mark.size()) : bytes);
}

} // namespace platform
