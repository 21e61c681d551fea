#include "platform/desktop/outlook/cardsplitter.h"
#include "platform/desktop/outlook/contentline.h"

#include <algorithm>
#include <array>

namespace platform {

namespace {

/// More lines than any card needs. The time that the library takes grows with their square.
constexpr int maxLinesOfCard = 2000;

const std::array<QByteArray, 4> bulkyNames = {"PHOTO", "LOGO", "SOUND", "KEY"};

QByteArray parametersOf(const QByteArray &line)
{
    return line.left(line.indexOf(':')).toUpper();
}

QByteArray unfolded(QByteArray line)
{
    line.replace("\r\n", "\n");
    if (parametersOf(QByteArray(line).replace("\n ", "")).contains("QUOTED-PRINTABLE"))
        line.replace("=\n", "");
    line.replace("\n ", "").replace("\n\t", "");
    return line.trimmed();
}

/// "item1.TEL;PREF=1:5" becomes "TEL;TYPE=PREF:5": the library sets properties with a group aside, and knows
/// only the older form of preference for all of them. It never ends over a line whose other encoding says
/// that it goes on when it does not.
QByteArray simplified(const QByteArray &rawLine, const QByteArray &name)
{
    QByteArray line = unfolded(rawLine);
    const QByteArray parameters = parametersOf(line);
    if (parameters.contains("QUOTED-PRINTABLE")) {
        while (line.endsWith('='))
            line.chop(1);
    }
    const bool isPreferred = (parameters + ';').contains(";PREF=1;");
    if (isPreferred && (name == "TEL" || name == "ADR"))
        line.insert(parameters.size(), ";TYPE=PREF");
    return line.mid(std::max(parameters.indexOf(name), 0)) + "\r\n";
}

} // namespace

CardFile splitCards(const QByteArray &content)
{
    CardFile file;
    int depth = 0;
    int lineOfCard = 0;
    ContentLineReader lines(content);
    while (const auto line = lines.next()) {
        const QByteArray name = line->name();
        const bool isBegin = name == "BEGIN" && line->value().toUpper() == "VCARD";
        const bool isEnd = name == "END" && line->value().toUpper() == "VCARD";
        if (isBegin && ++depth == 1) {
            file.cards.emplace_back();
            lineOfCard = 0;
        }
        if (depth == 0 && !line->isBlank())
            break;
        if (depth == 1 && (++lineOfCard <= maxLinesOfCard || isEnd)) {
            Card &card = file.cards.back();
            if (std::find(bulkyNames.begin(), bulkyNames.end(), name) == bulkyNames.end())
                card.text += simplified(line->raw(), name);
            else if (name == "PHOTO" && card.photo.isEmpty())
                card.photo = line->raw();
            card.hasUid = card.hasUid || name == "UID";
        }
        if (isEnd)
            --depth;
    }
    if (file.cards.empty())
        file.problem = QStringLiteral("this is no card");
    else if (depth > 0)
        file.problem = QStringLiteral("the file ends in the middle");
    if (depth > 0)
        file.cards.clear();
    return file;
}

QByteArray pictureIn(const QByteArray &rawLine)
{
    const QByteArray line = unfolded(rawLine);
    const QByteArray value = line.mid(line.indexOf(':') + 1).trimmed();
    const QByteArray parameters = parametersOf(line);
    if (value.left(5).toLower() == "data:") {
        const int comma = value.indexOf(',');
        const bool isBase64 = value.left(std::max(comma, 0)).toLower().endsWith(";base64");
        return isBase64 ? QByteArray::fromBase64(value.mid(comma + 1)) : QByteArray();
    }
    const bool isBase64 = parameters.contains("ENCODING=B") || parameters.contains(";BASE64");
    return isBase64 ? QByteArray::fromBase64(value) : QByteArray();
}

} // namespace platform
