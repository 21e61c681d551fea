#include "platform/platform.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMutexLocker>

void KestCommandProvider::InitPOOM()
{
    platform::Platform &system = platform::current();
    m_outlook = system.pocketOutlook().createApplication();
    if (!m_outlook)
        return;
    m_messageWindowClass = system.hiddenWindows().registerClass(
        u"KESTCMDPROV_MSGWND", [](const platform::WindowMessage &message) {
            return instance() && instance()->raiseOutlookEvent(message);
        });
    if (m_messageWindowClass)
        m_messageWindow = m_messageWindowClass->createWindow();
    // Without a window, or if this fails, there are no change events; everything else works.
    m_outlook->Logon(m_messageWindow ? m_messageWindow->handle() : 0);
    m_outlookSubscriptions.fill(0);
}

void KestCommandProvider::DeInitPOOM()
{
    const QMutexLocker lock(&m_poomMutex);
    if (m_outlook) {
        m_outlook->Logoff();
        m_outlook.reset();
    }
    m_messageWindow.reset();
    m_messageWindowClass.reset();
}

/// Whether a function can go on. If not, the user has been told why: no connection with the store, which
/// comes first, or bad arguments.
bool KestCommandProvider::checkOutlookCall(const char *function, bool argumentsAreValid) const
{
    if (!m_outlook)
        reportError(function, QT_TRANSLATE_NOOP("KestCommandProvider", "Could not access Pocket Outlook."));
    else if (!argumentsAreValid)
        reportInvalidArguments(function);
    return m_outlook && argumentsAreValid;
}
