#pragma once

#include "platform/desktop/outlook/outlookitem.h"
#include "platform/pocketoutlook.h"

#include <array>

namespace platform {

/// A contact without its photo, which would take much more memory than all the rest.
class Contact : public OutlookItem
{
public:
    using OutlookItem::OutlookItem;

    std::array<QString, contactTextCount> texts; ///< by ContactText
    VariantDate birthday = noDate;
    VariantDate anniversary = noDate;
};

/// Reads the cards of a vCard file (RFC 6350, and the versions before); see ItemReader.
FileItems readContacts(const QByteArray &content);

/// The photo of the card at @p index of those that readContacts() makes of the same content: the bytes of a
/// picture file. Empty if it has none, or only says where one is.
QByteArray readContactPhoto(const QByteArray &content, std::size_t index);

} // namespace platform
