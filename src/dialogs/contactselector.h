#pragma once

#include "dialogs/listdialog.h"
#include "platform/pocketoutlook.h"

#include <QtCore/QHash>

class KestLineEdit;

/// A full-screen list of the contacts, with a field on top: what is typed there is looked for in the list.
class ContactSelector : public ListDialog
{
    Q_OBJECT

public:
    explicit ContactSelector(QWidget *parent = nullptr);

    /// Shows the contacts of a store and returns when the user has closed the dialog; once in its life.
    void show(platform::IPOutlookApp *outlook);

    /// The object identifier of the contact that was chosen, or 0 if the user cancelled.
    qint32 result() const;

public slots:
    void clicked(IFlickListItem *item) override;

    /// Goes on with the search from the match before: a longer text is looked for from there towards the end,
    /// a shorter one towards the start, as far as the first name on the way that begins with it or that sorts
    /// behind it, or before it. So typing at the end leads to the first name that begins so, and only the
    /// names in between are looked at. A single letter begins anew; another text of the same length changes
    /// nothing. The list has to be in the order of the lower-cased names.
    void textEdited(const QString &text);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void addContacts();
    void addSearchField();
    std::optional<QString> searchedName(int position) const;
    void goToRow(int row);
    void goToLetter(QChar letter);
    void searchTowardsEnd(const QString &text);
    void searchTowardsStart(const QString &text);

    qint32 m_result = 0;
    std::unique_ptr<platform::IPOutlookItemCollection> m_contacts; ///< null if the store gives none
    int m_contactCount = 0;
    KestLineEdit *m_searchField = nullptr;
    // Positions count from 1, in m_contacts.
    QHash<QChar, int> m_firstPositions; ///< of the names' first letters, in lower case
    int m_position = 1; ///< of the current match; -1 if there is no name with the letter typed
    QString m_previousText;
    int m_soughtRow = 0; ///< where the search has led to
};
