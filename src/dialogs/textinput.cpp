#include "dialogs/nativedialog.h"
#include "orvanecore/functionarguments.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

#include <QtWidgets/QInputDialog>

void KestCommandProvider::textInput(FunctionArguments *arguments)
{
    if (!checkArguments(
            "textInput", *arguments,
            {4,
             4,
             {ArgumentType::String, ArgumentType::String, ArgumentType::Object, ArgumentType::Function}}))
        return;

    bool ok = false;
    QString text;
    {
        const NativeDialog notice(*m_application);
        text = QInputDialog::getText(nullptr, QString(), arguments->argument(0).toString(), QLineEdit::Normal,
                                     arguments->argument(1).toString(), &ok);
    }
    answer(arguments->argument(2), arguments->argument(3), {ok, text});
}
