#include "platform/desktop/commandline.h"

namespace platform {

QStringList splitParameters(const QString &parameters)
{
    QStringList result;
    QString word;
    bool inWord = false;
    int quotes = 0; // of the current run: 1 while a quotation is open
    int backslashes = 0;

    const auto endWord = [&] {
        if (inWord)
            result.append(word);
        word.clear();
        inWord = false;
    };

    for (int i = 0; i < parameters.size(); ++i) {
        const QChar c = parameters.at(i);
        if (quotes == 0 && (c == QLatin1Char(' ') || c == QLatin1Char('\t'))) {
            endWord();
            backslashes = 0;
            continue;
        }
        inWord = true;
        if (c == QLatin1Char('\\')) {
            word += c;
            ++backslashes;
            continue;
        }
        if (c != QLatin1Char('"')) {
            word += c;
            backslashes = 0;
            continue;
        }
        // 2n backslashes before a quote stand for n, 2n + 1 for n and a plain quote.
        word.chop((backslashes + 1) / 2);
        if (backslashes % 2 != 0)
            word += c;
        else
            ++quotes;
        backslashes = 0;
        for (; i + 1 < parameters.size() && parameters.at(i + 1) == QLatin1Char('"'); ++i) {
            if (++quotes == 3) {
                word += c;
                quotes = 0;
            }
        }
        if (quotes == 2)
            quotes = 0;
    }
    endWord();
    return result;
}

} // namespace platform
