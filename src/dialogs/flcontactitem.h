#pragma once

#include <kestmainprovider/flicklisttextitem.h>

/// A row of the contact list.
class FLContactItem : public FlickListTextItem
{
    Q_GADGET

public:
    FLContactItem(const QString &name, qint32 contactId, const QFont &rowFont);

    const QMetaObject *metaObject() const override;

    /// The contact's object identifier.
    qint32 contactId() const;

private:
    qint32 m_contactId;
};
