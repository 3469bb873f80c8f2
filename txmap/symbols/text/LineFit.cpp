// Where the clusters of a text along a line come to lie.
#include <txmap/symbols/text/LineText.h>

#include <cmath>

namespace txmap
{

using TZObjects::TXPoint;

std::optional<FittedText> FitAlong(const LineText& text, const PixelLine& line, double anchor, const LineFit& fit)
{
    const double length = LengthOf(line.data(), line.size());
    double at = anchor + fit.alongOffset - text.length / 2.0;
    if (!std::isfinite(length) || !std::isfinite(at) || at < 0.0 || at + text.length > length)
        return std::nullopt;
    FittedText fitted;
    double begin = 0.0;
    std::size_t segment = 0;
    for (std::size_t i = 0; i < text.clusters.size(); ++i)
    {
        const double middle = at + text.clusters[i].advance / 2.0;
        while (segment + 2 < line.size() && begin + LengthOf(&line[segment], 2) < middle)
            begin += LengthOf(&line[segment++], 2);
        const TXPoint& a = line[segment];
        const TXPoint& b = line[segment + 1];
        const double part = (middle - begin) / LengthOf(&a, 2);
        fitted.clusters.push_back(
            {i, {a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part}, std::atan2(b.y - a.y, b.x - a.x) * 180.0 / M_PI});
        fitted.circles.push_back({fitted.clusters.back().at, text.size / 2.0});
        at += text.clusters[i].advance;
    }
    return fitted;
}

} // namespace txmap
