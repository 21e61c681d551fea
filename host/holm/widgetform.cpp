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

} // namespace

WidgetForm loadWidgetForm(const QString &uiFile)
{
    QFile file(uiFile);
    if (!file.open(QIODevice::ReadOnly))
        return {nullptr, uiFile + QLatin1String(": ") + file.errorString()};
    FormLoader loader;
    WidgetForm form{std::unique_ptr<QWidget>(loader.load(&file)), QString()};
    if (!form.window)
        form.error = uiFile + QLatin1String(": not a form that Qt Designer made: ") + loader.errorString();
    return form;
}
