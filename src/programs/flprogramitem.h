#pragma once

#include <kestmainprovider/flicklisttextitem.h>

#include <QtGui/QPixmap>

/// A row of the Programs menu: a program's shortcut, a folder, or the way back, with its picture.
class FLProgramItem : public FlickListTextItem
{
    Q_GADGET
    Q_PROPERTY(qreal PictureSize MEMBER pictureSize)

public:
    enum class Kind { Program, Folder, Back };

    /// @p path is that of the shortcut or folder; the way back has none.
    FLProgramItem(Kind kind, const QString &text, const QString &path);

    const QMetaObject *metaObject() const override;
    Kind kind() const;
    QString path() const;

    /// Makes the picture, which for a program or folder may mean to read files.
    void styled(const FlickListStyle &style) override;
    void paint(QPainter *painter) override;

    qreal pictureSize; ///< of the square that the picture fills as well as it can, in pixels

protected:
    qreal textLeft() const override;

private:
    QPixmap ownPicture() const;

    Kind m_kind;
    QString m_path;
    QPixmap m_picture;
};
