#include "dialogs/dialogowner.h"
#include "kestmainprovider/kestmainprovider.h"
#include "kestmainprovider/listeditor.h"
#include "orvanecore/functionarguments.h"
#include "orvanecore/iapplication.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

#include <QtCore/QCoreApplication>

namespace {

// What a script array may claim to hold; its length need not have to do with its elements.
constexpr quint32 mostEntries = 1000000;

const ArgumentRule givenEntries{5,
                                6,
                                {ArgumentType::Object, ArgumentType::Function, ArgumentType::String,
                                 ArgumentType::Number, ArgumentType::Array}};
const ArgumentRule storedEntries{6,
                                 10,
                                 {ArgumentType::Object, ArgumentType::Function, ArgumentType::String,
                                  ArgumentType::Any, ArgumentType::String, ArgumentType::String}};

bool flagAt(const FunctionArguments &arguments, int index)
{
    return index < arguments.argumentCount() && arguments.argument(index).isBool()
        && arguments.argument(index).toBool();
}

QStringList toTexts(const QScriptValue &array, quint32 length)
{
    QStringList texts;
    for (quint32 i = 0; i < length; ++i)
        texts.append(array.property(i).toString());
    return texts;
}

// With pairs, the text is one of the values, and the index counts pairs. 0 if there is no such entry.
int indexOf(const QString &text, const QStringList &entries, bool valueOnOdd)
{
    const int step = valueOnOdd ? 2 : 1;
    for (int i = step - 1; i < entries.size(); i += step) {
        if (entries.at(i) == text)
            return i / step;
    }
    return 0;
}

QWidget *parentOf(IApplication *application)
{
    const auto *window = dynamic_cast<const QWidget *>(application);
    return window ? window->parentWidget() : nullptr;
}

} // namespace

void KestCommandProvider::listInput(FunctionArguments *arguments)
{
    if (argumentsMatch(*arguments, givenEntries))
        chooseOfGivenEntries(*arguments);
    else if (checkArguments("listInput", *arguments, storedEntries))
        chooseOfStoredEntries(*arguments);
}

void KestCommandProvider::chooseOfGivenEntries(const FunctionArguments &arguments)
{
    const QScriptValue array = arguments.argument(4);
    const quint32 length = array.property(QStringLiteral("length")).toUInt32();
    if (length > mostEntries) {
        reportInvalidArguments("listInput");
        return;
    }
    editList(arguments, toTexts(array, length), arguments.argument(3).toInt32(), false, flagAt(arguments, 5));
}

void KestCommandProvider::chooseOfStoredEntries(const FunctionArguments &arguments)
{
    const int count = arguments.argumentCount();
    const bool valueOnOdd = flagAt(arguments, 7);
    const bool editable = flagAt(arguments, 9);
    if (valueOnOdd && editable) {
        reportError("listInput",
                    QT_TRANSLATE_NOOP("KestCommandProvider", "Cannot edit with valueOnOdd set to true."));
        return;
    }
    const QScriptValue start = arguments.argument(3);
    const bool byIndex = count < 9 || arguments.argument(8).toBool() || arguments.argument(8).isNull();
    if (byIndex && !start.isNumber()) {
        reportError("listInput", QT_TRANSLATE_NOOP("KestCommandProvider", "Invalid Index."));
        return;
    }

    const KestMainProvider *store = configuration();
    const QVariant stored = store
        ? store->getConfig(arguments.argument(4).toString(), arguments.argument(5).toString(), QVariant())
        : QVariant();
    if (!stored.isValid() && !editable) {
        // 0 and not -1, by which scripts tell it from a cancelled dialog.
        answer(arguments.argument(0), arguments.argument(1), {false, m_application->nullValue(), 0});
        return;
    }
    const bool hasSeparator = count >= 7 && arguments.argument(6).isString();
    const QString separator = hasSeparator ? arguments.argument(6).toString() : QStringLiteral(";");
    const QStringList entries = stored.isValid() ? stored.toString().split(separator) : QStringList();
    const int index = byIndex ? start.toInt32() : indexOf(start.toString(), entries, valueOnOdd);
    editList(arguments, entries, index, editable, valueOnOdd);
}

void KestCommandProvider::editList(const FunctionArguments &arguments, const QStringList &entries, int index,
                                   bool editable, bool valueOnOdd)
{
    QScriptValueList results = {false, m_application->nullValue(), -1};
    {
        const DialogOwner<ListEditor> editor(parentOf(m_application));
        if (editor->show(entries, index, editable, valueOnOdd)) {
            results = {true, editor->text(), editor->index()};
            if (editable)
                storeList(arguments, editor->list());
        }
    }
    answer(arguments.argument(0), arguments.argument(1), results);
}

void KestCommandProvider::storeList(const FunctionArguments &arguments, const QStringList &entries)
{
    KestMainProvider *store = configuration();
    if (!store)
        return;
    // Whatever separator it was read with; what the list then reads as is the script's affair.
    store->setConfig(arguments.argument(4).toString(), arguments.argument(5).toString(),
                     entries.join(QLatin1Char(';')));
}
