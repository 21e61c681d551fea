#include "network/inflate.h"

#include <zlib.h>

#include <array>
#include <memory>

namespace {

constexpr int anyHeader = MAX_WBITS + 32; // of gzip or zlib
constexpr int noHeader = -MAX_WBITS;
constexpr std::size_t shareSize = 65536;

InflatedBody inflateBody(const QByteArray &compressed, int most, int windowBits)
{
    z_stream stream = {};
    stream.next_in = reinterpret_cast<const Bytef *>(compressed.constData());
    stream.avail_in = static_cast<uInt>(compressed.size());
    if (inflateInit2(&stream, windowBits) != Z_OK)
        return {QByteArray(), InflatedBody::End::Damaged};
    const std::unique_ptr<z_stream, int (*)(z_stream *)> cleanup(&stream, inflateEnd);

    InflatedBody inflated;
    std::array<Bytef, shareSize> share;
    int code = Z_OK;
    while (code == Z_OK) {
        stream.next_out = share.data();
        stream.avail_out = shareSize;
        code = inflate(&stream, Z_NO_FLUSH);
        const int length = static_cast<int>(shareSize - stream.avail_out);
        if (inflated.body.size() > most - length)
            return {QByteArray(), InflatedBody::End::TooLong};
        inflated.body.append(reinterpret_cast<const char *>(share.data()), length);
    }
    if (code != Z_STREAM_END)
        inflated.end = InflatedBody::End::Damaged;
    return inflated;
}

} // namespace

InflatedBody inflateBody(const QByteArray &compressed, int most)
{
    if (compressed.isEmpty())
        return {};
    const InflatedBody inflated = inflateBody(compressed, most, anyHeader);
    const bool isUnknown = inflated.end == InflatedBody::End::Damaged && inflated.body.isEmpty();
    return isUnknown ? inflateBody(compressed, most, noHeader) : inflated;
}
