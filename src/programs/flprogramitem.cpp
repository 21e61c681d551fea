#include "programs/flprogramitem.h"

#include "programs/programsmenu.h"

#include <kestmainprovider/flickliststyle.h>

#include <QtGui/QPainter>

namespace {

constexpr qreal margin = 10;

/// The picture of the style for rows without one of their own.
QString stylePicture(FLProgramItem::Kind kind)
{
    switch (kind) {
    case FLProgramItem::Kind::Folder:
        return QStringLiteral("DirIconPNG");
    case FLProgramItem::Kind::Back:
        return QStringLiteral("BackIconPNG");
    case FLProgramItem::Kind::Program:
        break;
    }
    return QStringLiteral("ProgramIconPNG");
}

} // namespace

FLProgramItem::FLProgramItem(Kind kind, const QString &text, const QString &path)
    : FlickListTextItem(text)
    , pictureSize(32)
    , m_kind(kind)
    , m_path(path)
{
    setHeight(40);
}

const QMetaObject *FLProgramItem::metaObject() const
{
    return &staticMetaObject;
}

FLProgramItem::Kind FLProgramItem::kind() const
{
    return m_kind;
}

QString FLProgramItem::path() const
{
    return m_path;
}

void FLProgramItem::styled(const FlickListStyle &style)
{
    m_picture = ownPicture();
    if (m_picture.isNull())
        m_picture = style.picture(stylePicture(m_kind));
}

void FLProgramItem::paint(QPainter *painter)
{
    FlickListTextItem::paint(painter);
    QRectF target(QPointF(), QSizeF(m_picture.size()).scaled(pictureSize, pictureSize, Qt::KeepAspectRatio));
    target.moveCenter(QPointF(margin + pictureSize / 2, height() / 2));
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawPixmap(target, m_picture, m_picture.rect());
}

qreal FLProgramItem::textLeft() const
{
    return margin + pictureSize + margin;
}

QPixmap FLProgramItem::ownPicture() const
{
    switch (m_kind) {
    case Kind::Program:
        return ProgramsMenu::icon(m_path, ShortcutUse::Program);
    case Kind::Folder:
        return ProgramsMenu::icon(m_path + QLatin1String("/icon.lnk"), ShortcutUse::FolderIcon);
    case Kind::Back:
        break;
    }
    return QPixmap();
}
