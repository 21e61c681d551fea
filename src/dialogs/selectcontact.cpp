#include "dialogs/contactselector.h"
#include "dialogs/dialogowner.h"
#include "orvanecore/functionarguments.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

#include <QtCore/QMutexLocker>

void KestCommandProvider::selectContact(FunctionArguments *arguments)
{
    QMutexLocker lock(&m_poomMutex);
    const bool isValid =
        m_outlook && argumentsMatch(*arguments, {2, 2, {ArgumentType::Object, ArgumentType::Function}});
    if (!isValid) {
        lock.unlock();
        checkOutlookCall("selectContact", isValid);
        return;
    }

    const DialogOwner<ContactSelector> selector;
    selector->show(m_outlook.get());
    lock.unlock();
    answer(arguments->argument(0), arguments->argument(1), {selector.get() ? selector->result() : 0});
}
