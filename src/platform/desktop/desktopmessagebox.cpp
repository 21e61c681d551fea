#include "platform/desktop/desktopmessagebox.h"

#include <QtCore/QThread>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>

#include <iostream>
#include <memory>

namespace platform {

namespace {

/// A box on its way to the GUI thread. If it never gets there, the program being about to end, it is told on
/// standard error instead.
class PendingBox
{
public:
    PendingBox(const QString &text, const QString &caption)
        : m_text(text)
        , m_caption(caption)
    {
    }
    ~PendingBox()
    {
        if (!m_isShown)
            std::cerr << '[' + m_caption.toStdString() + "] " + m_text.toStdString() + '\n' << std::flush;
    }
    Q_DISABLE_COPY(PendingBox)

    void open()
    {
        m_isShown = true;
        auto *box = new QMessageBox(QMessageBox::NoIcon, m_caption, m_text, QMessageBox::Ok);
        box->setAttribute(Qt::WA_DeleteOnClose);
        box->open();
    }

    void execute()
    {
        m_isShown = true;
        QMessageBox(QMessageBox::NoIcon, m_caption, m_text, QMessageBox::Ok).exec();
    }

private:
    const QString m_text;
    const QString m_caption;
    bool m_isShown = false;
};

} // namespace

void DesktopMessageBox::show(const std::u16string &text, const std::u16string &caption)
{
    const auto box =
        std::make_shared<PendingBox>(QString::fromStdU16String(text), QString::fromStdU16String(caption));
    auto *application = qobject_cast<QApplication *>(QCoreApplication::instance());
    if (!application)
        return;
    if (QThread::currentThread() == application->thread())
        box->execute();
    else
        QMetaObject::invokeMethod(
            application, [box] { box->open(); }, Qt::QueuedConnection);
}

} // namespace platform
