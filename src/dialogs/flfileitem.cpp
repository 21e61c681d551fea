#include "dialogs/flfileitem.h"

#include <QtCore/QDir>

FLFileItem::FLFileItem()
    : FlickListTextItem(QStringLiteral(".."))
{
}

FLFileItem::FLFileItem(const QString &directory, const QString &name, bool isFolder)
    : FlickListTextItem(name)
    , m_directory(directory)
    , m_isFolder(isFolder)
    , m_isUp(false)
{
}

const QMetaObject *FLFileItem::metaObject() const
{
    return &staticMetaObject;
}

bool FLFileItem::isFolder() const
{
    return m_isFolder;
}

bool FLFileItem::isUp() const
{
    return m_isUp;
}

QFileInfo FLFileItem::fileInfo() const
{
    return isUp() ? QFileInfo() : QFileInfo(QDir(m_directory), text());
}
