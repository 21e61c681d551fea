#include "dialogs/contactselector.h"

#include "dialogs/flcontactitem.h"
#include "dialogs/kestlineedit.h"
#include "kestmainprovider/flicklist.h"
#include "orvanecore/iapplication.h"
#include "provider/kestcommandprovider.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>

#include <algorithm>
#include <array>

using platform::IContact;

namespace {

constexpr int fieldLeft = 5;
constexpr int fieldTop = 6;

int fieldHeight()
{
    return KestCommandProvider::instance()->application()->isVGA() ? 56 : 34;
}

QFont tahoma(int pixelSize)
{
    QFont font(QStringLiteral("Tahoma"));
    font.setPixelSize(pixelSize);
    return font;
}

std::optional<QString> nameOf(IContact &contact)
{
    const auto name = contact.get_Text(platform::ContactText::FileAs);
    return name ? std::make_optional(QString::fromStdU16String(*name)) : std::nullopt;
}

} // namespace

ContactSelector::ContactSelector(QWidget *parent)
    : ListDialog(parent)
{
}

void ContactSelector::show(platform::IPOutlookApp *outlook)
{
    setWindowTitle(QCoreApplication::translate("ContactSelector", "Select Contact"));
    setWindowModality(Qt::ApplicationModal);
    build(QStringLiteral("contacts_list"), QCoreApplication::translate("ContactSelector", "Cancel"));

    const auto folder = outlook->GetDefaultFolder(platform::OutlookFolder::Contacts);
    m_contacts = folder ? folder->get_Items() : nullptr;
    m_contactCount = m_contacts ? m_contacts->get_Count().value_or(0) : 0;
    addContacts();
    addSearchField();
    const QPointer<ContactSelector> self(this);
    runModally(m_searchField);
    if (self)
        m_contacts.reset();
}

qint32 ContactSelector::result() const
{
    return m_result;
}

void ContactSelector::clicked(IFlickListItem *item)
{
    const auto *row = dynamic_cast<const FLContactItem *>(item);
    if (!row)
        return;
    m_result = row->contactId();
    close();
}

void ContactSelector::textEdited(const QString &text)
{
    const QString searched = text.toLower();
    if (searched.isEmpty()) {
        goToRow(0); // what was searched before stays remembered
        return;
    }
    if (searched.size() == 1)
        goToLetter(searched.front());
    else if (searched.size() > m_previousText.size())
        searchTowardsEnd(searched);
    else if (searched.size() < m_previousText.size())
        searchTowardsStart(searched);
    m_previousText = searched;
}

void ContactSelector::resizeEvent(QResizeEvent *event)
{
    ListDialog::resizeEvent(event);
    if (m_searchField)
        m_searchField->setGeometry(fieldLeft, fieldTop, width() - 2 * fieldLeft, fieldHeight());
}

// The field has no use for these: they go on to the name that was searched for.
void ContactSelector::keyPressEvent(QKeyEvent *event)
{
    constexpr std::array<int, 6> listKeys = {Qt::Key_Up,       Qt::Key_Down,   Qt::Key_PageUp,
                                             Qt::Key_PageDown, Qt::Key_Return, Qt::Key_Enter};
    const bool isForList = std::find(listKeys.begin(), listKeys.end(), event->key()) != listKeys.end();
    if (!isForList || !m_searchField || !m_searchField->hasFocus()) {
        ListDialog::keyPressEvent(event);
        return;
    }
    list().setFocus();
    list().selectRow(m_soughtRow);
}

void ContactSelector::addContacts()
{
    QFont font = tahoma(15);
    font.setBold(true);
    list().beginInitialize();
    for (int position = 1; position <= m_contactCount; ++position) {
        const auto item = m_contacts->Item(position);
        auto *const contact = dynamic_cast<IContact *>(item.get());
        const std::optional<QString> name = contact ? nameOf(*contact) : std::nullopt;
        const std::optional<qint32> oid = contact ? contact->get_Oid() : std::nullopt;
        if (!name || !oid)
            continue;
        if (!name->isEmpty() && !m_firstPositions.contains(name->front().toLower()))
            m_firstPositions.insert(name->front().toLower(), position);
        list().addItem(std::make_unique<FLContactItem>(*name, *oid, font));
    }
    list().endInitialize();
}

void ContactSelector::addSearchField()
{
    m_searchField = new KestLineEdit(this);
    m_searchField->setObjectName(QStringLiteral("searchField"));
    m_searchField->setFont(tahoma(fieldHeight() - 18));
    connect(m_searchField, &QLineEdit::textEdited, this, &ContactSelector::textEdited);
    setListTop(fieldTop + fieldHeight() + fieldTop);
}

/// Nothing if the contact cannot be fetched.
std::optional<QString> ContactSelector::searchedName(int position) const
{
    const auto item = m_contacts ? m_contacts->Item(position) : nullptr;
    auto *const contact = dynamic_cast<IContact *>(item.get());
    const std::optional<QString> name = contact ? nameOf(*contact) : std::nullopt;
    return name ? std::make_optional(name->toLower()) : std::nullopt;
}

void ContactSelector::goToRow(int row)
{
    if (!list().item(row))
        return;
    m_soughtRow = row;
    list().scrollToRow(row);
}

void ContactSelector::goToLetter(QChar letter)
{
    m_position = m_firstPositions.value(letter, -1);
    goToRow(m_position - 1); // without a match it stays where it is
}

void ContactSelector::searchTowardsEnd(const QString &text)
{
    bool isFound = false;
    for (int i = m_position; i <= m_contactCount && !isFound; ++i) {
        const std::optional<QString> name = searchedName(i);
        if (!name)
            continue;
        isFound = *name > text || name->startsWith(text);
        if (!isFound)
            ++m_position;
    }
    if (!isFound)
        m_position = list().itemCount() - 1;
    // Behind the last match the row is meant; a longer text is then looked for from the row before.
    goToRow(isFound ? m_position - 1 : m_position);
}

void ContactSelector::searchTowardsStart(const QString &text)
{
    bool isFound = false;
    for (int i = m_position; i >= 1 && !isFound; --i) {
        const std::optional<QString> name = searchedName(i);
        if (!name)
            continue;
        isFound = *name < text || name->startsWith(text);
        if (!isFound)
            --m_position;
    }
    if (!isFound)
        m_position = 0;
    goToRow(isFound ? m_position - 1 : 0);
}
