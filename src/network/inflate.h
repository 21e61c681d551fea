#pragma once

#include <QtCore/QByteArray>

/// What a compressed body unpacks to.
struct InflatedBody
{
    enum class End {
        Whole,
        TooLong, ///< the limit was passed; there is no body then
        Damaged, ///< the body goes as far as sense could be made of it
    };

    QByteArray body;
    End end = End::Whole;
};

/// Unpacks a body in the content encodings "gzip" and "deflate" of HTTP (RFC 7230, section 4.2), the latter
/// also without the header that it ought to have. @p most is the longest that it may become, in bytes. Any
/// thread.
InflatedBody inflateBody(const QByteArray &compressed, int most);
