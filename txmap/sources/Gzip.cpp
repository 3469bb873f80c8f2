#include <txmap/sources/Gzip.h>

#include <zlib.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <stdexcept>

namespace txmap
{
namespace
{

struct InflateEnd
{
    void operator()(z_stream* stream) const { inflateEnd(stream); }
};

} // namespace

bool IsCompressed(std::string_view data)
{
    if (data.size() < 2)
        return false;
    const auto first = static_cast<unsigned char>(data[0]);
    const auto second = static_cast<unsigned char>(data[1]);
    if (first == 0x1F && second == 0x8B)
        return true;
    // zlib data begins with a number that 31 divides. No tile does: its first byte is the tag of a layer.
    return first == 0x78 && (first * 256 + second) % 31 == 0;
}

std::string Unpacked(std::string_view data, std::size_t limit)
{
    if (data.size() > std::numeric_limits<uInt>::max())
        throw std::runtime_error("is too large to be unpacked");
    z_stream stream{};
    // 32 finds out by itself whether it is gzip or zlib.
    if (inflateInit2(&stream, MAX_WBITS + 32) != Z_OK)
        throw std::runtime_error("cannot be unpacked");
    const std::unique_ptr<z_stream, InflateEnd> owner(&stream);
    // zlib does not write to what it reads, but says so only where it is compiled to.
    stream.next_in = const_cast<Bytef*>(reinterpret_cast<const Bytef*>(data.data()));
    stream.avail_in = static_cast<uInt>(data.size());
    std::string unpacked;
    std::size_t used = 0;
    while (true)
    {
        if (used == unpacked.size())
        {
            // One byte more than is allowed shows that it is too much.
            if (used > limit)
                throw std::runtime_error("unpacks to more than " + std::to_string(limit >> 20) + " MiB");
            unpacked.resize(std::min(limit + 1, std::max<std::size_t>(used * 2, 1 << 15)));
        }
        const std::size_t room = std::min<std::size_t>(unpacked.size() - used, 1u << 30);
        stream.next_out = reinterpret_cast<Bytef*>(&unpacked[used]);
        stream.avail_out = static_cast<uInt>(room);
        const int result = inflate(&stream, Z_NO_FLUSH);
        used += room - stream.avail_out;
        if (result == Z_STREAM_END)
        {
            if (stream.avail_in == 0)
                break;
            // gzip files may be written one behind another.
            if (inflateReset(&stream) != Z_OK)
                throw std::runtime_error("cannot be unpacked");
        }
        else if (result == Z_BUF_ERROR && stream.avail_in == 0)
            throw std::runtime_error("is compressed data that ends too early");
        else if (result != Z_OK && result != Z_BUF_ERROR)
            throw std::runtime_error("is broken compressed data");
    }
    if (used > limit)
        throw std::runtime_error("unpacks to more than " + std::to_string(limit >> 20) + " MiB");
    unpacked.resize(used);
    return unpacked;
}

} // namespace txmap
