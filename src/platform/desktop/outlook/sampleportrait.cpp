#include "platform/desktop/outlook/sampleportrait.h"

#include <QtCore/QBuffer>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace platform {

namespace {

constexpr int side = 120;

QPainterPath ellipse(qreal x, qreal y, qreal radiusX, qreal radiusY)
{
    QPainterPath path;
    path.addEllipse(QPointF(x, y), radiusX, radiusY);
    return path;
}

QPainterPath box(qreal x, qreal y, qreal width, qreal height, qreal radius)
{
    QPainterPath path;
    path.addRoundedRect(x, y, width, height, radius, radius);
    return path;
}

} // namespace

QByteArray samplePortrait(const PortraitColours &colours)
{
    constexpr qreal middle = side / 2.0;
    const QPainterPath head = ellipse(middle, 50, 22, 27);
    const QPainterPath fringe = ellipse(middle, 40, 27, 25) - ellipse(middle + 6, 60, 30, 24);

    QImage image(side, side, QImage::Format_RGB32);
    image.fill(colours.background);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    if (colours.isHairLong)
        painter.fillPath(box(middle - 29, 16, 58, 78, 28), QColor(colours.hair));
    painter.fillPath(ellipse(middle, 124, 48, 38), QColor(colours.clothes));
    painter.fillPath(box(middle - 9, 66, 18, 28, 9), QColor(colours.skin).darker(112));
    painter.fillPath(head, QColor(colours.skin));
    painter.fillPath(fringe, QColor(colours.hair));
    for (const int direction : {-1, 1})
        painter.fillPath(ellipse(middle + direction * 8, 52, 2.2, 2.6), QColor(0x40, 0x30, 0x28));
    painter.setPen(QPen(QColor(colours.skin).darker(160), 2.2, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(QRectF(middle - 8, 54, 16, 12), 215 * 16, 110 * 16);
    painter.end();

    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

} // namespace platform
