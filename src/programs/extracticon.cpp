#include "dialogs/customimage.h"
#include "dialogs/imagefile.h"
#include "orvanecore/functionarguments.h"
#include "programs/iconextraction.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

namespace {

constexpr int iconQuality = 90;

/// What the script is told if a file of that kind has no icon that could be written. Only programs and
/// shortcuts have a word for it.
QString answerWithoutIcon(const QString &source)
{
    if (hasEnding(source, QLatin1String(".exe")))
        return QStringLiteral("exe");
    return hasEnding(source, QLatin1String(".lnk")) ? QStringLiteral("lnk") : QStringLiteral("true");
}

} // namespace

void KestCommandProvider::extractIcon(FunctionArguments *arguments)
{
    const int count = arguments->argumentCount();
    const bool isValid = count != 7
        && argumentsMatch(*arguments,
                          {6,
                           8,
                           {ArgumentType::Object, ArgumentType::Function, ArgumentType::String,
                            ArgumentType::String, ArgumentType::Bool, ArgumentType::Bool}});
    if (!isValid) {
        reportInvalidArguments("extractIcon");
        return;
    }
    const QString source = resolvedPath(arguments->argument(2).toString());
    const QString destination = resolvedPath(arguments->argument(3).toString());
    const bool hasSize = count == 8;
    const int width = hasSize ? arguments->argument(6).toInt32() : 0;
    const int height = hasSize ? arguments->argument(7).toInt32() : 0;
    const auto tell = [&](const QString &result) {
        answer(arguments->argument(0), arguments->argument(1), {result});
    };

    if (arguments->argument(4).toBool()) {
        const QImage chosen = askForCustomImage(*m_application);
        if (saveImage(hasSize ? scaledTo(chosen, width, height) : chosen, destination)) {
            tell(QStringLiteral("true"));
            return;
        }
    }
    if (hasEnding(source, QLatin1String(".mscr"))) {
        tell(QStringLiteral("mscr"));
        return;
    }
    const bool isSaved =
        saveIconToFile(source, destination, arguments->argument(5).toBool(), width, height, iconQuality);
    tell(isSaved ? QStringLiteral("true") : answerWithoutIcon(source));
}
