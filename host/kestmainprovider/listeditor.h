#pragma once

#include "flickliststyle.h"
#include "kestmainprovider_global.h"

#include <QtCore/QStringList>
#include <QtWidgets/QDialog>

#include <memory>

class FlickList;
class QAbstractButton;
class QDialogButtonBox;
class QLineEdit;

/// A full-screen dialog that lets the user choose an entry of a list, and edit the list. GUI thread only.
///
/// The rows' looks are those of "styles/list_editor.xml", or ".vga.xml", in the application directory.
class KESTMAINPROVIDER_EXPORT ListEditor : public QDialog
{
    Q_OBJECT

public:
    explicit ListEditor(QWidget *parent = nullptr);
    ~ListEditor() override;

    /// Shows the entries, @p index selected, and returns when the user has closed the dialog: true if with OK
    /// or, in a list that is not editable, by a tap on an entry. An index that is not in the list selects
    /// none.
    ///
    /// With @p valueOnOdd the entries are pairs: one at an even position is shown, the one after it is its
    /// value, and indexes count pairs. A last one without a partner has an empty value. Pairs cannot be
    /// edited, whatever @p editable says.
    bool show(const QStringList &entries, int index, bool editable, bool valueOnOdd);

    /// What was chosen: the number of the entry, or of the pair; -1 if none, or if the dialog was cancelled.
    int index() const;

    /// The chosen entry, with pairs its value; empty if none.
    QString text() const;

    /// The entries as they are now: edits stay when the dialog is cancelled.
    QStringList list() const;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void makeEditControls();
    void fill(int selectedRow);

    void add();
    void change();
    void remove();
    void move(int rows);
    void insertEntry(int row, const QString &text);
    QString takeEntry(int row);
    void select(int row);

    void showSelected();
    void updateButtons();

    FlickListStyle m_style;
    std::unique_ptr<FlickList> m_list; ///< a child, too, but to be destroyed before its style
    QWidget *m_editControls = nullptr;
    QLineEdit *m_entry = nullptr;
    QAbstractButton *m_addButton = nullptr;
    QAbstractButton *m_changeButton = nullptr;
    QAbstractButton *m_removeButton = nullptr;
    QAbstractButton *m_upButton = nullptr;
    QAbstractButton *m_downButton = nullptr;
    QDialogButtonBox *m_buttons = nullptr;

    QStringList m_entries;
    bool m_hasPairs = false;
    bool m_isEditable = false;
    int m_index = -1;
};
