#include "TextPicture.h"

#include <algorithm>
#include <cstring>
#include <map>

#include <txgraphics/TXImage.h>

using namespace TZObjects;
using namespace txmap;

namespace
{

constexpr int kSide = 256;

} // namespace

TextPicture::TextPicture()
    : plugin(TX_TEST_PLUGIN, TextPath::Qt),
      fonts(plugin.Engine(), [this](const std::string& name) { missing.push_back(name); })
{
}

TextSection TextPicture::Section(const std::string& text)
{
    TextSection section;
    section.text = text;
    return section;
}

TextSection TextPicture::Image(const std::string& name, double width, double height)
{
    TextSection section;
    section.image = name;
    section.imageWidth = width;
    section.imageHeight = height;
    return section;
}

TextStyle TextPicture::Mono(double size)
{
    TextStyle style;
    style.fontStack = {"DejaVu Sans Mono"};
    style.size = size;
    return style;
}

TextBlock TextPicture::LayOut(const std::string& text, const TextStyle& style)
{
    return LayOutText({Section(text)}, style, fonts);
}

std::vector<std::wstring> TextPicture::Lines(const std::string& text, const TextStyle& style)
{
    std::map<double, std::wstring> lines;
    for (const TextPiece& piece : LayOut(text, style).pieces)
        lines[piece.origin.y] += piece.text.toStdWString();
    std::vector<std::wstring> texts;
    for (const auto& [height, letters] : lines)
        texts.push_back(letters);
    return texts;
}

std::vector<unsigned> TextPicture::Drawn(const Draw& draw)
{
    const TXRefPtr<TXGraphics> surface(plugin.Engine().NewGraphics());
    surface->CreateCompatibleGraphics(kSide, kSide);
    surface->ClearWithColor(TXColor::WHITE_);
    surface->EnableAntialiasing(true);
    draw(*surface);
    std::vector<unsigned> pixels(kSide * kSide);
    std::memcpy(pixels.data(), surface->GetImage()->GetBits(), pixels.size() * sizeof(unsigned));
    return pixels;
}

TXRefPtr<TXFont> TextPicture::Font(const char* face, int height)
{
    TXRefPtr<TXFont> font(plugin.Engine().NewFont());
    font->Create();
    font->SetFontHeight(height);
    font->SetFontWeight(400);
    font->SetFontName(face);
    return font;
}

TXRefPtr<TXPen> TextPicture::Pen(const TXColor& color)
{
    TXRefPtr<TXPen> pen(plugin.Engine().NewPen());
    pen->Create(TXPen::SolidLine, 1.0, color, TXPen::RoundCap, TXPen::RoundJoin);
    return pen;
}

std::size_t Differing(const std::vector<unsigned>& a, const std::vector<unsigned>& b)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        count += a[i] == b[i] ? 0 : 1;
    return count;
}

std::size_t Inked(const std::vector<unsigned>& pixels)
{
    return static_cast<std::size_t>(
        std::count_if(pixels.begin(), pixels.end(), [](unsigned pixel) { return pixel != 0xFFFFFFFFU; }));
}
