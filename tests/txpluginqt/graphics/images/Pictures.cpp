#include "Pictures.h"

#include <cstdint>

namespace
{

QRgb PixelAt(int x, int y)
{
    // Any function without a pattern.
    std::uint32_t hash = static_cast<std::uint32_t>(x) * 2654435761u ^ static_cast<std::uint32_t>(y) * 2246822519u;
    hash ^= hash >> 15;
    hash *= 3266489917u;
    hash ^= hash >> 13;
    const std::uint32_t kind = hash % 5u;
    if (kind == 0)
        return hash | 0xff000000u;
    return kind == 1 ? 0u : hash;
}

} // namespace

QImage Picture(int width, int height, QImage::Format format)
{
    QImage picture(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y)
    {
        auto* const line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < width; ++x)
            line[x] = PixelAt(x, y);
    }
    return picture.convertToFormat(format);
}

std::vector<QImage::Format> DrawnFormats()
{
    std::vector<QImage::Format> formats;
    for (int format = QImage::Format_Mono; format < QImage::NImageFormats; ++format)
        formats.push_back(static_cast<QImage::Format>(format));
    return formats;
}
