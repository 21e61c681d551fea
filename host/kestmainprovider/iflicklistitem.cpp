#include "iflicklistitem.h"

#include "flicklist.h"

IFlickListItem::IFlickListItem() = default;

IFlickListItem::~IFlickListItem() = default;

void IFlickListItem::styled(const FlickListStyle &) { }

qreal IFlickListItem::width() const
{
    return m_width;
}

void IFlickListItem::setWidth(qreal width)
{
    if (width == m_width)
        return;
    prepareGeometryChange();
    m_width = width;
}

bool IFlickListItem::isSelected() const
{
    return m_isSelected;
}

void IFlickListItem::prepareGeometryChange()
{
    if (m_list)
        m_list->scheduleLayout();
}
