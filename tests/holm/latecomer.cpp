#include <orvanecore/functionarguments.h>
#include <orvanecore/iapplication.h>
#include <orvanecore/iprovider.h>

#include <QtCore/QTimer>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace {

/// As providers' dialogs are: as large as the screen, with a list, and a menu to leave it by.
class Panel : public QDialog
{
public:
    Panel()
    {
        setWindowTitle(QStringLiteral("Panel"));
        auto *menuBar = new QMenuBar;
        auto *menu = menuBar->addMenu(QStringLiteral("&File"))->addMenu(QStringLiteral("&More"));
        menu->addAction(QStringLiteral("&Ask...\tCtrl+K"), this, [] { ask(); });
        menuBar->addAction(QStringLiteral("E&xit"), this, &QDialog::reject)
            ->setObjectName(QStringLiteral("actionExit"));
        auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
        buttons->addButton(QStringLiteral("&Never"), QDialogButtonBox::ActionRole)->setEnabled(false);
        connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        m_field->setObjectName(QStringLiteral("field"));
        for (int row = 0; row < rowCount; ++row)
            m_list->addItem(QStringLiteral("Row %1").arg(row));
        connect(m_list, &QListWidget::itemClicked, this, [this](const QListWidgetItem *item) {
            if (item == m_list->item(rowCount - 1))
                accept();
        });
        auto *layout = new QVBoxLayout(this);
        layout->setMenuBar(menuBar);
        layout->addWidget(
            new QLabel(QStringLiteral("A prompt that is wider than the screen of a handheld is")));
        layout->addWidget(m_field);
        layout->addWidget(m_list);
        layout->addWidget(buttons);
        setWindowState(Qt::WindowMaximized);
    }

    QString answer() const
    {
        const QListWidgetItem *item = m_list->currentItem();
        return (result() == Accepted ? QStringLiteral("accepted ") : QStringLiteral("rejected "))
            + m_field->text() + QLatin1Char(' ') + (item ? item->text() : QString());
    }

private:
    static void ask() { QInputDialog::getText(nullptr, QStringLiteral("Inner"), QString()); }

    static constexpr int rowCount = 60;
    QLineEdit *m_field = new QLineEdit;
    QListWidget *m_list = new QListWidget;
};

} // namespace

/// Publishes dialog(milliseconds, callback), fireLater(milliseconds, event), callLater(milliseconds,
/// callback), bind(object, callback, event), panel(null, callback) and message(null, text).
class Latecomer : public QObject, public IProvider
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID IProvider_iid)
    Q_INTERFACES(IProvider)

public:
    QString name() const override { return QStringLiteral("Latecomer"); }
    void InitializeScript(IApplication *application) override
    {
        m_application = application;
        int index = 0;
        for (const char *function : {"dialog", "fireLater", "callLater", "bind", "panel", "message"})
            application->registerFunction(this, QLatin1String(function), true, false, index++);
    }
    void BeginInitialize() override { }
    void EndInitialize() override { }
    void Unload() override { }

    void invoke(int index, FunctionArguments *arguments) override
    {
        const int milliseconds = arguments->argument(0).toInt32();
        const QScriptValue second = arguments->argument(1);
        if (index == 0) {
            QInputDialog dialog;
            dialog.setWindowTitle(QStringLiteral("Question"));
            QTimer::singleShot(milliseconds, &dialog, &QDialog::accept);
            dialog.exec();
            m_application->callFunction(QScriptValue(), second, {}, true);
        } else if (index == 1) {
            const auto fire = [=] { m_application->fireEvent(second.toString(), {milliseconds}); };
            QTimer::singleShot(milliseconds, Qt::PreciseTimer, this, fire);
        } else if (index == 2) {
            const auto call = [=] {
                m_application->callFunction(QScriptValue(), second, {milliseconds}, true);
            };
            QTimer::singleShot(milliseconds, Qt::PreciseTimer, this, call);
        } else if (index == 3) {
            m_application->subscribeEvent(arguments->argument(0), second, arguments->argument(2).toString());
        } else if (index == 4) {
            Panel panel;
            panel.exec();
            m_application->callFunction(QScriptValue(), second, {panel.answer()}, true);
        } else {
            QMessageBox::information(nullptr, QStringLiteral("Note"), second.toString());
        }
    }
    QScriptValue invokeRet(int, FunctionArguments *) override { return QScriptValue(); }

private:
    IApplication *m_application = nullptr;
};

#include "latecomer.moc"
