#pragma once

#include <kestmainprovider/flicklisttextitem.h>

#include <QtCore/QFileInfo>

/// A row of the file browser: a file, a folder, or the way up.
class FLFileItem : public FlickListTextItem
{
    Q_GADGET

public:
    /// The row that goes up, "..".
    FLFileItem();
    FLFileItem(const QString &directory, const QString &name, bool isFolder);

    const QMetaObject *metaObject() const override;

    /// Holds for the row that goes up, too.
    bool isFolder() const;
    bool isUp() const;

    /// Empty for the row that goes up. Made anew: a long list would be slow to make and hold all of them.
    QFileInfo fileInfo() const;

private:
    QString m_directory;
    bool m_isFolder = true;
    bool m_isUp = true;
};
