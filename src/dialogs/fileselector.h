#pragma once

#include "dialogs/listdialog.h"

#include <QtCore/QStringList>

/// A full-screen file browser: lets the user choose a file or, in folder mode, a folder.
class FileSelector : public ListDialog
{
    Q_OBJECT

public:
    explicit FileSelector(QWidget *parent = nullptr);

    /// As below, with the filters in one text, separated by ";". An empty one stands for "*.*", every file.
    void show(const QString &dir, bool showFolders, const QString &filter, bool folderMode, bool noneButton,
              const QString &selectName);

    /// Shows a folder's content and returns when the user has closed the dialog; once in its life.
    ///
    /// With @p showFolders the user can go to other folders. With @p folderMode there are no files, and
    /// "Select" chooses a folder; with @p noneButton "None" chooses nothing instead. The file named @p
    /// selectName is selected in @p dir, if it is there.
    void show(const QString &dir, bool showFolders, const QStringList &filters, bool folderMode,
              bool noneButton, const QString &selectName);

    /// The absolute path of what was chosen, "None", or an empty text if the user cancelled.
    QString result() const;

    /// Shows the current folder anew. The file of that name is selected if the folder is the one to begin
    /// with.
    void loadDir(const QString &name);

public slots:
    void clicked(IFlickListItem *item) override;
    void closeSelecting();

private:
    void goUp();

    QString m_result;
    bool m_showFolders = true;
    bool m_folderMode = false;
    QStringList m_filters;
    QString m_initialDirectory;
    QString m_currentDirectory;
};
