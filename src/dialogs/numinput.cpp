#include "dialogs/nativedialog.h"
#include "dialogs/numberdialogs.h"
#include "orvanecore/functionarguments.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

namespace {

// The argument asked for is one past the last that may be given, so a fraction is never asked for: scripts
// get whole numbers, and count on it.
bool wantsFraction(const FunctionArguments &arguments)
{
    constexpr int mode = 8;
    const QScriptValue examined =
        mode < arguments.argumentCount() ? arguments.argument(mode) : QScriptValue();
    return arguments.argumentCount() == 8 && examined.isBool();
}

} // namespace

void KestCommandProvider::numInput(FunctionArguments *arguments)
{
    if (!checkArguments(
            "numInput", *arguments,
            {4,
             8,
             {ArgumentType::Object, ArgumentType::Function, ArgumentType::String, ArgumentType::Number}}))
        return;

    NumberAnswer number{};
    {
        const NativeDialog notice(*m_application);
        number = wantsFraction(*arguments) ? askFraction(*arguments) : askWholeNumber(*arguments);
    }
    answer(arguments->argument(0), arguments->argument(1), {number.ok, number.value});
}
