#include <txmap/symbols/text/HaloImage.h>

#include <algorithm>
#include <cmath>

#include <txgraphics/TXGraphicsEngine.h>
#include <txmap/labels/LabelFonts.h>
#include <txmap/symbols/text/SymbolFonts.h>

namespace txmap
{

using TZObjects::TXColor;
using TZObjects::TXGraphics;
using TZObjects::TXGraphicsEngine;
using TZObjects::TXImage;
using TZObjects::TXPoint;
using TZObjects::TXRect;
using TZObjects::TXRefPtr;

namespace
{

constexpr double kRadians = M_PI / 180.0;
// How far ink reaches beyond the advance and the baseline, in ems, with room for marks.
constexpr double kInkBeside = 0.6;
constexpr double kInkAbove = 1.4;
constexpr double kInkBelow = 0.7;
// The renderers of the format let opacity rise along the distance to the edge, by a smooth step of this half width
// times the blur. A bell curve of the same spread is narrower by the root of five.
constexpr double kBlurWidth = 1.19 / 2.2360679774997896;
constexpr int kBlurPasses = 3;

/// The box that holds the ink of letters.
TXRect InkBox(const std::vector<PlacedLetters>& letters, double margin)
{
    TXRect box(1e9, -1e9, 1e9, -1e9);
    for (const PlacedLetters& placed : letters)
    {
        const TextPiece& piece = *placed.piece;
        const double cosine = std::cos(placed.angle * kRadians);
        const double sine = std::sin(placed.angle * kRadians);
        for (const double x : {-kInkBeside * piece.size, piece.width + kInkBeside * piece.size})
            for (const double y : {-kInkAbove * piece.size, kInkBelow * piece.size})
            {
                const double px = placed.origin.x + cosine * x - sine * y;
                const double py = placed.origin.y + sine * x + cosine * y;
                box.left = std::min(box.left, px - margin);
                box.right = std::max(box.right, px + margin);
                box.top = std::min(box.top, py - margin);
                box.bottom = std::max(box.bottom, py + margin);
            }
    }
    return box;
}

/// Blurs a row or column with a box of a width that need not be whole.
void BlurLine(float* values, int count, int step, double radius, std::vector<float>& copy)
{
    const int whole = static_cast<int>(radius);
    const auto edge = static_cast<float>(radius - whole);
    const auto weight = static_cast<float>(1.0 / (2.0 * radius + 1.0));
    copy.resize(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        copy[static_cast<std::size_t>(i)] = values[static_cast<std::ptrdiff_t>(i) * step];
    const auto at = [&](int i) { return i < 0 || i >= count ? 0.0F : copy[static_cast<std::size_t>(i)]; };
    float sum = 0.0F;
    for (int i = 0; i < whole; ++i)
        sum += at(i);
    for (int i = 0; i < count; ++i)
    {
        sum += at(i + whole);
        values[static_cast<std::ptrdiff_t>(i) * step] = (sum + edge * (at(i - whole - 1) + at(i + whole + 1))) * weight;
        sum -= at(i - whole);
    }
}

std::uint32_t Premultiplied(const TXColor& color, float alpha)
{
    const auto channel = [alpha](unsigned char value)
    { return static_cast<std::uint32_t>(std::lround(static_cast<float>(value) * alpha)); };
    return static_cast<std::uint32_t>(std::lround(255.0F * alpha)) << 24 | channel(color.getR()) << 16 |
           channel(color.getG()) << 8 | channel(color.getB());
}

/// The pixels of an image, and the surface that paints on it.
class Scratch
{
public:
    Scratch(const TXGraphicsEngine& engine, const TXRect& box)
        : left(static_cast<int>(box.left)), top(static_cast<int>(box.top)), width(static_cast<int>(box.right) - left),
          height(static_cast<int>(box.bottom) - top),
          pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)), image(engine.NewImage()),
          surface(engine.NewGraphics())
    {
        RequireLabel(image && surface &&
                     image->CreateImage(reinterpret_cast<unsigned char*>(pixels.data()), width, height,
                                        TXImage::Format_ARGB32_Premultiplied));
        surface->SelectImage(image);
        surface->EnableAntialiasing(true);
    }

    PlacedLetters Moved(PlacedLetters letters) const
    {
        letters.origin = {letters.origin.x - left, letters.origin.y - top};
        return letters;
    }

    int left;
    int top;
    int width;
    int height;
    std::vector<std::uint32_t> pixels;
    TXRefPtr<TXImage> image;
    TXRefPtr<TXGraphics> surface;
};

/// Takes the letters out of what is there. Text through cairo knows no composition, so its letters stay.
void CutOut(TXGraphicsEngine& engine, Scratch& scratch, const std::vector<PlacedLetters>& letters)
{
    LetterPencil pencil(engine, *scratch.surface);
    scratch.surface->SetCompositionMode(TXGraphics::CompositionMode_DestinationOut);
    for (const PlacedLetters& placed : letters)
        if (placed.piece->face->Path() == TextPath::Qt)
            pencil.DrawLetters(scratch.Moved(placed), TXColor(0, 0, 0, 255));
}

} // namespace

void DrawHaloImage(TXGraphicsEngine& engine, TXGraphics& surface, const TXRect& clip,
                   const std::vector<PlacedLetters>& letters, const HaloLook& look)
{
    TXRect box = InkBox(letters, look.halo.width + 3.0 * look.blur + 1.0);
    box.left = std::floor(std::max(box.left, clip.left));
    box.top = std::floor(std::max(box.top, clip.top));
    box.right = std::ceil(std::min(box.right, clip.right));
    box.bottom = std::ceil(std::min(box.bottom, clip.bottom));
    if (!(box.left < box.right) || !(box.top < box.bottom))
        return;
    Scratch scratch(engine, box);
    {
        LetterPencil pencil(engine, *scratch.surface);
        for (const PlacedLetters& placed : letters)
            pencil.DrawHalo(scratch.Moved(placed), look.halo);
    }
    BlurAlpha(scratch.pixels, scratch.width, scratch.height, look.blur, look.halo.color);
    CutOut(engine, scratch, letters);
    const TXRect source(0.0, scratch.width, 0.0, scratch.height);
    const TXRect target(box.left, box.right, box.top, box.bottom);
    RequireLabel(surface.DrawImage(target, scratch.image.get(), source, look.opacity));
}

void BlurAlpha(std::vector<std::uint32_t>& pixels, int width, int height, double blur, const TXColor& color)
{
    if (!(blur > 0.0))
        return;
    const double spread = kBlurWidth * blur;
    const double radius = (std::sqrt(4.0 * spread * spread + 1.0) - 1.0) / 2.0;
    std::vector<float> alpha(pixels.size());
    std::transform(pixels.begin(), pixels.end(), alpha.begin(),
                   [](std::uint32_t pixel) { return static_cast<float>(pixel >> 24) / 255.0F; });
    std::vector<float> copy;
    for (int pass = 0; pass < kBlurPasses; ++pass)
    {
        for (int y = 0; y < height; ++y)
            BlurLine(&alpha[static_cast<std::size_t>(y) * static_cast<std::size_t>(width)], width, 1, radius, copy);
        for (int x = 0; x < width; ++x)
            BlurLine(&alpha[static_cast<std::size_t>(x)], height, width, radius, copy);
    }
    std::transform(alpha.begin(), alpha.end(), pixels.begin(),
                   [&](float value) { return Premultiplied(color, std::clamp(value, 0.0F, 1.0F)); });
}

} // namespace txmap
