#include "kestimage.h"

#include "imageresources.h"

#include <QtGui/QPainter>

KestImage::KestImage(QWidget *parent)
    : QWidget(parent)
{
    if (const ImageResources *resources = ImageResources::instance())
        connect(resources, &ImageResources::changed, this, &KestImage::reload);
}

QString KestImage::resource() const
{
    return m_resource;
}

void KestImage::setResource(const QString &name)
{
    m_resource = name;
    reload(name);
}

QSize KestImage::sizeHint() const
{
    return m_picture.size();
}

void KestImage::paintEvent(QPaintEvent *)
{
    if (m_picture.isNull())
        return;
    QRect target(QPoint(), m_picture.size().scaled(size(), Qt::KeepAspectRatio));
    target.moveCenter(rect().center());
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(target, m_picture);
}

void KestImage::reload(const QString &changedName)
{
    if (changedName != m_resource)
        return;
    const ImageResources *resources = ImageResources::instance();
    m_picture = resources ? resources->picture(m_resource) : QPixmap();
    updateGeometry();
    update();
}
