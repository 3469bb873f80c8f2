#include <txmap/symbols/text/HaloImage.h>

#include <algorithm>
#include <array>
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

/// The weights of a bell curve from its middle to where it ends.
std::vector<float> BellCurve(double spread)
{
    std::vector<float> weights;
    double sum = 0.0;
    const int reach = static_cast<int>(std::ceil(3.0 * spread));
    for (int i = 0; i <= reach; ++i)
    {
        weights.push_back(static_cast<float>(std::exp(-0.5 * i * i / (spread * spread))));
        sum += weights.back() * (i == 0 ? 1.0 : 2.0);
    }
    for (float& weight : weights)
        weight = static_cast<float>(weight / sum);
    return weights;
}

/// Adds a row to another one, with a weight.
void AddRow(const float* from, float weight, int count, float* to)
{
    for (int i = 0; i < count; ++i)
        to[i] += weight * from[i];
}

/// The row with each value spread over its neighbours.
void BlurRow(const float* row, int width, const std::vector<float>& weights, float* blurred)
{
    const int reach = static_cast<int>(weights.size()) - 1;
    for (int step = std::max(-reach, 1 - width); step <= std::min(reach, width - 1); ++step)
    {
        const int from = std::max(0, step);
        const int to = std::min(width, width + step);
        AddRow(row + from, weights[static_cast<std::size_t>(std::abs(step))], to - from, blurred + from - step);
    }
}

std::uint32_t Premultiplied(const TXColor& color, unsigned alpha)
{
    const auto channel = [alpha](unsigned char value) { return (value * alpha + 127U) / 255U; };
    return alpha << 24U | channel(color.getR()) << 16U | channel(color.getG()) << 8U | channel(color.getB());
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
    const std::vector<float> weights = BellCurve(kBlurWidth * blur);
    const int reach = static_cast<int>(weights.size()) - 1;
    std::vector<float> alpha(pixels.size());
    std::transform(pixels.begin(), pixels.end(), alpha.begin(),
                   [](std::uint32_t pixel) { return static_cast<float>(pixel >> 24U); });
    const auto rowOf = [width](std::vector<float>& values, int y)
    { return &values[static_cast<std::size_t>(y) * static_cast<std::size_t>(width)]; };
    std::vector<float> rows(pixels.size());
    for (int y = 0; y < height; ++y)
        BlurRow(rowOf(alpha, y), width, weights, rowOf(rows, y));
    std::fill(alpha.begin(), alpha.end(), 0.5F);
    for (int y = 0; y < height; ++y)
        for (int from = std::max(0, y - reach); from <= std::min(height - 1, y + reach); ++from)
            AddRow(rowOf(rows, from), weights[static_cast<std::size_t>(std::abs(y - from))], width, rowOf(alpha, y));
    std::array<std::uint32_t, 256> colors{};
    for (unsigned i = 0; i < colors.size(); ++i)
        colors[i] = Premultiplied(color, i);
    std::transform(alpha.begin(), alpha.end(), pixels.begin(),
                   [&](float value) { return colors[std::min<std::size_t>(255, static_cast<std::size_t>(value))]; });
}

} // namespace txmap
