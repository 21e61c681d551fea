#include "flicklisttextitem.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr qreal margin = 10;
constexpr int longestText = 1000; ///< more than a row can show, in characters

QFont usualFont()
{
    static const QFont font = [] {
        QFont bold(QStringLiteral("Tahoma"));
        bold.setPixelSize(15);
        bold.setBold(true);
        return bold;
    }();
    return font;
}

bool breaksLine(QChar c)
{
    const QChar::Category category = c.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line
        || category == QChar::Separator_Paragraph;
}

/// Without control characters, and without the middle of what is far too long to be measured for each
/// painting.
QString lineOf(QString text)
{
    if (text.size() > longestText)
        text = text.left(longestText / 2) + QChar(0x2026) + text.right(longestText / 2);
    std::replace_if(text.begin(), text.end(), breaksLine, QLatin1Char(' '));
    return text;
}

} // namespace

FlickListTextItem::FlickListTextItem(const QString &text)
    : selectedFillColor(0, 128, 240)
    , selectedColor(Qt::white)
    , nonSelectedFillColor(Qt::white)
    , nonSelectedColor(Qt::black)
    , font(usualFont())
    , m_text(text)
    , m_height(30)
{
}

const QMetaObject *FlickListTextItem::metaObject() const
{
    return &staticMetaObject;
}

QString FlickListTextItem::text() const
{
    return m_text;
}

qreal FlickListTextItem::height() const
{
    return m_height;
}

void FlickListTextItem::setHeight(qreal height)
{
    if (!std::isfinite(height) || height < 0 || height == m_height)
        return;
    prepareGeometryChange();
    m_height = height;
}

void FlickListTextItem::paint(QPainter *painter)
{
    const QRectF row(0, 0, width(), height());
    painter->fillRect(row, isSelected() ? selectedFillColor : nonSelectedFillColor);
    if (!isSelected()) {
        painter->setPen(Qt::lightGray);
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(row.adjusted(0, 0, -1, -1));
    }

    painter->setPen(isSelected() ? selectedColor : nonSelectedColor);
    painter->setFont(font);
    const QString line = QFontMetricsF(font, painter->device())
                             .elidedText(lineOf(text()), Qt::ElideMiddle, width() - textLeft() - margin);
    painter->drawText(QRectF(textLeft(), 0, width(), height()), Qt::AlignVCenter | Qt::TextSingleLine, line);
}

qreal FlickListTextItem::textLeft() const
{
    return margin;
}
