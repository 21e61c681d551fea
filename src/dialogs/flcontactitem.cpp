#include "dialogs/flcontactitem.h"

FLContactItem::FLContactItem(const QString &name, qint32 contactId, const QFont &rowFont)
    : FlickListTextItem(name)
    , m_contactId(contactId)
{
    font = rowFont;
}

const QMetaObject *FLContactItem::metaObject() const
{
    return &staticMetaObject;
}

qint32 FLContactItem::contactId() const
{
    return m_contactId;
}
