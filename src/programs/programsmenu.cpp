#include "programs/programsmenu.h"

#include "kestmainprovider/flicklist.h"
#include "platform/platform.h"
#include "platform/shell.h"
#include "programs/flprogramitem.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QSettings>

using Kind = FLProgramItem::Kind;

std::unordered_map<QString, std::unique_ptr<FolderCache>> ProgramsMenu::startFolderCacheDir;
QHash<QString, QPixmap> ProgramsMenu::iconsCache;
bool ProgramsMenu::useCache = false;
bool ProgramsMenu::useIconsCache = false;

ProgramsMenu::ProgramsMenu(QWidget *parent)
    : ListDialog(parent)
{
}

void ProgramsMenu::show(const QString &folder)
{
    m_startFolder = folder;
    m_currentFolder = folder;
    setObjectName(QStringLiteral("ProgramsMenu"));
    setWindowTitle(QStringLiteral("Programs")); // in all languages: lists of tasks know the window by it
    setWindowModality(Qt::WindowModal);
    build(QStringLiteral("programs_list"), QCoreApplication::translate("KestCommandProvider", "Cancel"));
    loadDir();
    runModally();
}

QString ProgramsMenu::result() const
{
    return m_result;
}

void ProgramsMenu::loadDir()
{
    const FolderCache shown = content();
    list().clear();
    list().beginInitialize();
    const auto add = [this](Kind kind, const QString &text, const QString &path) {
        list().addItem(std::make_unique<FLProgramItem>(kind, text, path));
    };
    if (m_currentFolder != m_startFolder)
        add(Kind::Back, QCoreApplication::translate("KestCommandProvider", "Back"), QString());
    const QString prefix = m_currentFolder + QLatin1Char('/');
    for (const QString &folder : shown.folders)
        add(Kind::Folder, folder, prefix + folder);
    for (const QString &shortcut : shown.shortcuts) {
        if (shortcut.compare(QLatin1String("icon.lnk"), Qt::CaseInsensitive) != 0)
            add(Kind::Program, shortcut.chopped(4), prefix + shortcut); // without ".lnk"
    }
    list().endInitialize();
}

void ProgramsMenu::clicked(IFlickListItem *item)
{
    const auto *row = dynamic_cast<const FLProgramItem *>(item);
    if (!row)
        return;
    switch (row->kind()) {
    case Kind::Back:
        goBack();
        break;
    case Kind::Folder:
        m_currentFolder = row->path();
        loadDir();
        break;
    case Kind::Program:
        m_result = row->path();
        close();
        break;
    }
}

/// Of the current folder.
FolderCache ProgramsMenu::content() const
{
    const auto known = startFolderCacheDir.find(m_currentFolder);
    const bool isKnown = known != startFolderCacheDir.end();
    if (isKnown && known->second->isCurrent(m_currentFolder))
        return *known->second;
    FolderCache read = FolderCache::read(m_currentFolder);
    if (useCache && m_currentFolder == m_startFolder)
        startFolderCacheDir[m_currentFolder] = std::make_unique<FolderCache>(read);
    return read;
}

void ProgramsMenu::goBack()
{
    // Only slashes separate folders here: a path written with backslashes has no way up.
    const bool endsWithSeparator =
        m_currentFolder.endsWith(QLatin1Char('/')) || m_currentFolder.endsWith(QLatin1Char('\\'));
    const int slash = m_currentFolder.lastIndexOf(QLatin1Char('/'), endsWithSeparator ? -2 : -1);
    m_currentFolder = slash == 0 ? QStringLiteral("\\") : m_currentFolder.left(slash); // -1: all of it
    loadDir();
}

QString ProgramsMenu::systemFolder()
{
    const auto folder = platform::current().shell().specialFolder(platform::SpecialFolder::Programs, false);
    return QString::fromStdU16String(folder.value_or(std::u16string()));
}

void ProgramsMenu::readSettings()
{
    const QSettings settings;
    useCache = settings.value(QStringLiteral("main/useProgramsCache"), true).toBool();
    useIconsCache = settings.value(QStringLiteral("main/useProgramsIconCache"), false).toBool();
}

void ProgramsMenu::buildCaches(const QString &folder)
{
    if (useCache && startFolderCacheDir.count(folder) == 0)
        startFolderCacheDir[folder] = std::make_unique<FolderCache>(FolderCache::read(folder));
}

void ProgramsMenu::purgeCaches(const QString &folder)
{
    if (folder.isEmpty())
        startFolderCacheDir.clear();
    else
        startFolderCacheDir.erase(folder);
}

void ProgramsMenu::purgeIconsCache()
{
    iconsCache.clear();
}

QPixmap ProgramsMenu::icon(const QString &shortcut, ShortcutUse use)
{
    const auto known = iconsCache.constFind(shortcut);
    if (useIconsCache && known != iconsCache.cend())
        return *known;
    const QPixmap extracted = extractIconPixmap(shortcut, true, 0, 0, use);
    if (useIconsCache)
        iconsCache.insert(shortcut, extracted);
    return extracted;
}
