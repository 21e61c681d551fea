#include "dialogs/fileselector.h"

#include "dialogs/flfileitem.h"
#include "dialogs/folderlisting.h"
#include "kestmainprovider/flicklist.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtWidgets/QAction>

namespace {

bool isSeparator(QChar character)
{
    return character == QLatin1Char('/') || character == QLatin1Char('\\');
}

bool endsWithSeparator(const QString &path)
{
    return !path.isEmpty() && isSeparator(path.back());
}

} // namespace

FileSelector::FileSelector(QWidget *parent)
    : ListDialog(parent)
{
}

void FileSelector::show(const QString &dir, bool showFolders, const QString &filter, bool folderMode,
                        bool noneButton, const QString &selectName)
{
    const QStringList filters =
        filter.isEmpty() ? QStringList(QStringLiteral("*.*")) : filter.split(QLatin1Char(';'));
    show(dir, showFolders, filters, folderMode, noneButton, selectName);
}

void FileSelector::show(const QString &dir, bool showFolders, const QStringList &filters, bool folderMode,
                        bool noneButton, const QString &selectName)
{
    setWindowTitle(QCoreApplication::translate("FileSelector", "File Browser"));
    setWindowModality(Qt::ApplicationModal);
    m_showFolders = showFolders;
    m_folderMode = folderMode;
    m_filters = filters;

    build(QStringLiteral("file_list"), QCoreApplication::translate("WidgetsSelector", "Cancel"));
    if (folderMode || noneButton) {
        const QString text = folderMode ? QCoreApplication::translate("FileSelector", "Select")
                                        : QCoreApplication::translate("FileSelector", "None");
        connect(addAction(QStringLiteral("actionSelect"), text), &QAction::triggered, this,
                &FileSelector::closeSelecting);
    }

    m_initialDirectory = dir;
    m_currentDirectory = dir;
    loadDir(selectName);
    runModally();
}

QString FileSelector::result() const
{
    return m_result;
}

void FileSelector::clicked(IFlickListItem *item)
{
    const auto *row = dynamic_cast<const FLFileItem *>(item);
    if (!row)
        return;
    if (row->isUp()) {
        goUp();
    } else if (row->isFolder()) {
        if (!endsWithSeparator(m_currentDirectory))
            m_currentDirectory += QLatin1Char('/');
        m_currentDirectory += row->text();
        loadDir(QString());
    } else if (!m_folderMode) {
        m_result = row->fileInfo().absoluteFilePath();
        close();
    }
}

void FileSelector::closeSelecting()
{
    if (!list().selectedItem())
        return;
    // Not the selected folder, but the one that it is in, as all rows are.
    m_result = m_folderMode ? QDir(m_currentDirectory).absolutePath() : QStringLiteral("None");
    close();
}

void FileSelector::loadDir(const QString &name)
{
    list().clear();
    list().beginInitialize();
    const FolderListing content = listFolder(m_currentDirectory, m_folderMode ? QStringList() : m_filters);
    if (m_showFolders) {
        if (m_currentDirectory.size() > 1)
            list().addItem(std::make_unique<FLFileItem>());
        for (const QString &folder : content.folders)
            list().addItem(std::make_unique<FLFileItem>(m_currentDirectory, folder, true));
    }
    const bool mayMark = !name.isEmpty() && m_currentDirectory == m_initialDirectory;
    int marked = -1;
    for (const QString &file : content.files) {
        if (mayMark && marked < 0 && file == name)
            marked = list().itemCount();
        list().addItem(std::make_unique<FLFileItem>(m_currentDirectory, file, false));
    }
    list().selectRow(marked);
    list().endInitialize();
}

void FileSelector::goUp()
{
    // Only slashes separate folders here: a path written with backslashes has no way up.
    const int from = endsWithSeparator(m_currentDirectory) ? m_currentDirectory.size() - 2 : -1;
    const int slash = m_currentDirectory.lastIndexOf(QLatin1Char('/'), from);
    m_currentDirectory = slash == 0 ? QStringLiteral("/") : m_currentDirectory.left(slash); // -1: all of it
    loadDir(QString());
}
