#pragma once

#include "kestmainprovider_global.h"

#include <QtCore/QObject>
#include <QtCore/QString>

class FlickList;
class FlickListStyle;
class QPainter;

/// One row of a FlickList, which owns it.
///
/// What a style file may set are the properties of metaObject(): a subclass declares them with Q_GADGET and
/// Q_PROPERTY. For that, IFlickListItem has to come first among its bases. GUI thread only.
class KESTMAINPROVIDER_EXPORT IFlickListItem
{
    Q_GADGET

public:
    IFlickListItem();
    virtual ~IFlickListItem();
    Q_DISABLE_COPY(IFlickListItem)

    /// The staticMetaObject of the item's class.
    virtual const QMetaObject *metaObject() const = 0;

    /// What the row reads, also for type-ahead.
    virtual QString text() const = 0;

    /// The row's height in pixels.
    virtual qreal height() const = 0;

    /// Paints the row into the rectangle from (0, 0), width() by height().
    virtual void paint(QPainter *painter) = 0;

    /// Called once before the row is first painted, when the list's style has set the item's properties, and
    /// again after a change of style. The place for what is costly, such as pictures. Does nothing here.
    virtual void styled(const FlickListStyle &style);

    /// The row's width in pixels, which the list sets when it is resized. 240 at first.
    qreal width() const;
    void setWidth(qreal width);

    /// Whether this is the list's selected row.
    bool isSelected() const;

protected:
    /// To be called before width or height change: the list lays its rows out anew.
    void prepareGeometryChange();

private:
    friend class FlickList;

    FlickList *m_list = nullptr;
    qreal m_width = 240;
    bool m_isSelected = false;
    bool m_isStyled = false;
};
