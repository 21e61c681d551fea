#include "listeditor.h"

#include "flicklist.h"
#include "flicklisttextitem.h"

#include <orvanecore/iapplication.h>

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>

#include <limits>

namespace {

/// A tool button, as these are narrower than others. @p arrow takes the place of the text.
QAbstractButton *makeButton(const QString &name, const QString &text, Qt::ArrowType arrow = Qt::NoArrow)
{
    auto *button = new QToolButton;
    button->setObjectName(name);
    button->setText(text);
    button->setArrowType(arrow);
    button->setToolTip(arrow == Qt::NoArrow ? QString() : text);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    return button;
}

} // namespace

ListEditor::ListEditor(QWidget *parent)
    : QDialog(parent)
    , m_list(std::make_unique<FlickList>(this))
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    makeEditControls();
    const IApplication *const application = IApplication::instance();
    if (application && m_style.load(FlickListStyle::fileFor(*application, QStringLiteral("list_editor"))))
        m_list->setListStyle(&m_style);
    m_list->setObjectName(QStringLiteral("list"));
    m_buttons->setObjectName(QStringLiteral("buttons"));

    // The list goes from edge to edge.
    auto *controls = new QVBoxLayout;
    controls->addWidget(m_editControls);
    controls->addWidget(m_buttons);
    auto *layout = new QVBoxLayout(this);
    controls->setContentsMargins(layout->contentsMargins() / 2);
    controls->setSpacing(layout->spacing());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_list.get(), 1);
    layout->addLayout(controls);

    connect(m_list.get(), &FlickList::rowSelected, this, &ListEditor::showSelected);
    connect(m_list.get(), &FlickList::clicked, this, [this] {
        if (!m_isEditable)
            accept();
    });
    connect(m_buttons, &QDialogButtonBox::accepted, this, &ListEditor::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &ListEditor::reject);
}

ListEditor::~ListEditor() = default;

bool ListEditor::show(const QStringList &entries, int index, bool editable, bool valueOnOdd)
{
    m_entries = entries;
    m_hasPairs = valueOnOdd;
    m_isEditable = editable && !valueOnOdd;
    m_index = -1;
    setWindowTitle(m_isEditable ? tr("Edit the list") : tr("Choose an entry"));
    m_editControls->setVisible(m_isEditable);
    fill(index);
    m_list->setFocus();
    setWindowState(windowState() | Qt::WindowMaximized);

    const QPointer<ListEditor> self(this);
    const bool isAccepted = exec() == Accepted;
    if (!self || !isAccepted)
        return false;
    m_index = m_list->selectedRow();
    return true;
}

int ListEditor::index() const
{
    return m_index;
}

QString ListEditor::text() const
{
    return m_entries.value(m_hasPairs && m_index >= 0 ? 2 * m_index + 1 : m_index);
}

QStringList ListEditor::list() const
{
    return m_entries;
}

void ListEditor::keyPressEvent(QKeyEvent *event)
{
    // Enter adds an entry, or selects a row: it would be too easy to close the dialog with it by mistake.
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!m_isEditable || !isEnter)
        QDialog::keyPressEvent(event);
}

void ListEditor::resizeEvent(QResizeEvent *event)
{
    QDialog::resizeEvent(event);
    m_list->scrollTo(m_list->currentIndex());
}

void ListEditor::makeEditControls()
{
    m_editControls = new QWidget(this);
    m_entry = new QLineEdit;
    m_entry->setObjectName(QStringLiteral("entry"));
    m_entry->setMaxLength(std::numeric_limits<int>::max());
    m_addButton = makeButton(QStringLiteral("addButton"), tr("Add"));
    m_changeButton = makeButton(QStringLiteral("changeButton"), tr("Change"));
    m_removeButton = makeButton(QStringLiteral("removeButton"), tr("Remove"));
    m_upButton = makeButton(QStringLiteral("upButton"), tr("Move up"), Qt::UpArrow);
    m_downButton = makeButton(QStringLiteral("downButton"), tr("Move down"), Qt::DownArrow);

    auto *entryRow = new QHBoxLayout;
    entryRow->addWidget(m_entry);
    entryRow->addWidget(m_addButton);
    auto *buttonRow = new QHBoxLayout;
    for (QAbstractButton *button : {m_changeButton, m_removeButton, m_upButton, m_downButton}) {
        button->setMinimumWidth(1); // rather than that the dialog outgrows a small screen
        buttonRow->addWidget(button);
    }
    auto *layout = new QVBoxLayout(m_editControls);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(entryRow);
    layout->addLayout(buttonRow);

    connect(m_entry, &QLineEdit::textChanged, this, &ListEditor::updateButtons);
    connect(m_entry, &QLineEdit::returnPressed, m_addButton, &QAbstractButton::click);
    connect(m_addButton, &QAbstractButton::clicked, this, &ListEditor::add);
    connect(m_changeButton, &QAbstractButton::clicked, this, &ListEditor::change);
    connect(m_removeButton, &QAbstractButton::clicked, this, &ListEditor::remove);
    connect(m_upButton, &QAbstractButton::clicked, this, [this] { move(-1); });
    connect(m_downButton, &QAbstractButton::clicked, this, [this] { move(1); });
}

void ListEditor::fill(int selectedRow)
{
    m_list->beginInitialize();
    m_list->clear();
    for (int i = 0; i < m_entries.size(); i += m_hasPairs ? 2 : 1)
        m_list->addItem(std::make_unique<FlickListTextItem>(m_entries.at(i)));
    m_list->endInitialize();
    m_list->scrollToRow(0);
    select(selectedRow);
}

void ListEditor::add()
{
    const int selectedRow = m_list->selectedRow();
    const int row = selectedRow < 0 ? m_entries.size() : selectedRow + 1;
    insertEntry(row, m_entry->text());
    select(row);
}

void ListEditor::change()
{
    const int row = m_list->selectedRow();
    const QString text = m_entry->text();
    takeEntry(row);
    insertEntry(row, text);
    select(row);
}

void ListEditor::remove()
{
    const int row = m_list->selectedRow();
    takeEntry(row);
    select(qMin(row, m_entries.size() - 1));
}

void ListEditor::move(int rows)
{
    const int row = m_list->selectedRow();
    insertEntry(row + rows, takeEntry(row));
    select(row + rows);
}

void ListEditor::insertEntry(int row, const QString &text)
{
    m_entries.insert(row, text);
    m_list->insertItem(row, std::make_unique<FlickListTextItem>(text));
}

QString ListEditor::takeEntry(int row)
{
    QString text = m_entries.takeAt(row);
    m_list->takeItem(row);
    return text;
}

void ListEditor::select(int row)
{
    m_list->selectRow(row);
    showSelected();
}

void ListEditor::showSelected()
{
    const IFlickListItem *const item = m_list->selectedItem();
    m_entry->setText(item ? item->text() : QString());
    m_entry->selectAll();
    updateButtons();
}

void ListEditor::updateButtons()
{
    const int row = m_list->selectedRow();
    const QString text = m_entry->text();
    m_addButton->setEnabled(!text.isEmpty());
    m_changeButton->setEnabled(row >= 0 && !text.isEmpty() && text != m_entries.value(row));
    m_removeButton->setEnabled(row >= 0);
    m_upButton->setEnabled(row > 0);
    m_downButton->setEnabled(row >= 0 && row < m_entries.size() - 1);
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(m_isEditable || row >= 0);
}
