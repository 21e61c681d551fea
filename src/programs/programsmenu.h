#pragma once

#include "dialogs/listdialog.h"
#include "programs/foldercache.h"
#include "programs/iconextraction.h"

#include <QtCore/QHash>

#include <memory>
#include <unordered_map>

/// The Programs menu: lets the user go through a folder of shortcuts, and the folders in it, and choose one.
///
/// Two caches, which live from one menu to the next, save reading folders and files. GUI thread only.
class ProgramsMenu : public ListDialog
{
    Q_OBJECT

public:
    explicit ProgramsMenu(QWidget *parent = nullptr);

    /// Shows a folder of the device and returns when the user has closed the dialog; once in its life.
    void show(const QString &folder);

    /// The path of the shortcut that was chosen, or an empty text if the user cancelled.
    QString result() const;

    /// Shows the current folder anew.
    void loadDir();

    /// The system's own Programs folder, a path of the device. Empty if the system has none.
    static QString systemFolder();

    /// Sets the two switches as the application's settings have them.
    static void readSettings();

    /// Reads a folder into the cache, if folders are cached and it is not there already.
    static void buildCaches(const QString &folder);

    /// Forgets a folder, or all of them if @p folder is empty.
    static void purgeCaches(const QString &folder);

    /// Forgets all icons.
    static void purgeIconsCache();

    /// The large icon of a shortcut, or a null picture if it has none; out of the cache if icons are cached.
    static QPixmap icon(const QString &shortcut, ShortcutUse use);

    /// The folders that are cached, by their paths. Only buildCaches() and menus that begin in a folder put
    /// it in here.
    static std::unordered_map<QString, std::unique_ptr<FolderCache>> startFolderCacheDir;
    /// Icons by the shortcut's path, null ones for shortcuts that have none.
    static QHash<QString, QPixmap> iconsCache;
    static bool useCache; ///< whether folders are cached
    static bool useIconsCache; ///< whether icons are cached

public slots:
    void clicked(IFlickListItem *item) override;

private:
    FolderCache content() const;
    void goBack();

    QString m_result;
    QString m_startFolder;
    QString m_currentFolder;
};
