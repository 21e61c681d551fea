#include "dialogs/numberdialogs.h"

#include "orvanecore/functionarguments.h"

#include <QtWidgets/QInputDialog>

#include <limits>

namespace {

// The bounds of numInput() without arguments for them.
constexpr int leastNumber = -2147483647;
constexpr int mostNumber = 2147483647;

bool isNumberAt(const FunctionArguments &arguments, int index)
{
    return index < arguments.argumentCount() && arguments.argument(index).isNumber();
}

} // namespace

// Scripts in the field count on how the optional arguments are read: the maximum and the step are taken from
// the argument before the one that asks for them, and the step only if that one is the last.

NumberAnswer askWholeNumber(const FunctionArguments &arguments)
{
    const int minimum = isNumberAt(arguments, 4) ? arguments.argument(4).toInt32() : leastNumber;
    const int maximum = isNumberAt(arguments, 5) ? arguments.argument(4).toInt32() : mostNumber;
    const bool hasStep = arguments.argumentCount() == 7 && isNumberAt(arguments, 6);
    const int step = hasStep ? arguments.argument(5).toInt32() : 1;

    bool ok = false;
    const int value = QInputDialog::getInt(nullptr, QString(), arguments.argument(2).toString(),
                                           arguments.argument(3).toInt32(), minimum, maximum, step, &ok);
    return {ok, value};
}

NumberAnswer askFraction(const FunctionArguments &arguments)
{
    const double minimum = isNumberAt(arguments, 4) ? arguments.argument(4).toNumber() : leastNumber;
    const double maximum = isNumberAt(arguments, 5) ? arguments.argument(4).toNumber() : mostNumber;
    const bool hasDecimals = arguments.argumentCount() == 7 && isNumberAt(arguments, 6);
    const int decimals = hasDecimals ? arguments.argument(5).toInt32() : 2;

    bool ok = false;
    const double value =
        QInputDialog::getDouble(nullptr, QString(), arguments.argument(2).toString(),
                                arguments.argument(3).toNumber(), minimum, maximum, decimals, &ok);
    using Limits = std::numeric_limits<int>;
    return {ok, static_cast<int>(qBound<double>(Limits::min(), value, Limits::max()))};
}
