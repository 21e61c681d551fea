#include "widgetform.h"

#include <orvanecore/kestimage.h>

#include <QtCore/QFile>
#include <QtUiTools/QUiLoader>

namespace {

class FormLoader : public QUiLoader
{
public:
    QWidget *createWidget(const QString &className, QWidget *parent, const QString &name) override
    {
        if (className != QLatin1String("KestImage"))
            return QUiLoader::createWidget(className, parent, name);
        auto *image = new KestImage(parent);
        image->setObjectName(name);
        return image;
    }
};

QStringList heldBack;

/// Holds back what Qt says while a form is read: if it fails, holm says it in its own words.
class MessageHold
{
public:
    MessageHold()
        : m_previous(qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &message) { heldBack.append(message); }))
    {
        heldBack.clear();
    }
    ~MessageHold() { qInstallMessageHandler(m_previous); }
    Q_DISABLE_COPY(MessageHold)

private:
    const QtMessageHandler m_previous;
};

WidgetForm load(QFile &file)
{
    const MessageHold hold;
    FormLoader loader;
    std::unique_ptr<QWidget> window(loader.load(&file));
    return {std::move(window), loader.errorString()};
}

} // namespace

WidgetForm loadWidgetForm(const QString &uiFile)
{
    QFile file(uiFile);
    if (!file.open(QIODevice::ReadOnly))
        return {nullptr, uiFile + QLatin1String(": ") + file.errorString()};
    WidgetForm form = load(file);
    if (!form.window) {
        const QString reason = form.error.isEmpty() ? heldBack.value(0) : form.error;
        form.error = uiFile + QLatin1String(": not a form that Qt Designer made: ")
            + reason.section(QLatin1Char('\n'), 0, 0);
        return form;
    }
    for (const QString &message : qAsConst(heldBack))
        qWarning("%s: %s", qUtf8Printable(uiFile), qUtf8Printable(message));
    return form;
}
