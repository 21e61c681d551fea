#pragma once

#include "iflicklistitem.h"

#include <QtGui/QColor>
#include <QtGui/QFont>

/// A row that reads a text in one line, on a colour that tells whether it is selected.
class KESTMAINPROVIDER_EXPORT FlickListTextItem : public IFlickListItem
{
    Q_GADGET
    Q_PROPERTY(QColor SelectedFillColor MEMBER selectedFillColor)
    Q_PROPERTY(QColor SelectedColor MEMBER selectedColor)
    Q_PROPERTY(QColor NonSelectedFillColor MEMBER nonSelectedFillColor)
    Q_PROPERTY(QColor NonSelectedColor MEMBER nonSelectedColor)
    Q_PROPERTY(QFont Font MEMBER font)
    Q_PROPERTY(qreal Height READ height WRITE setHeight)

public:
    explicit FlickListTextItem(const QString &text);

    const QMetaObject *metaObject() const override;
    QString text() const override;
    qreal height() const override;
    void setHeight(qreal height);
    void paint(QPainter *painter) override;

    QColor selectedFillColor;
    QColor selectedColor;
    QColor nonSelectedFillColor;
    QColor nonSelectedColor;
    QFont font; ///< Tahoma, bold, 15 pixels at first

protected:
    /// Where the text begins, in pixels from the row's left edge. 10 here.
    virtual qreal textLeft() const;

private:
    QString m_text;
    qreal m_height;
};
