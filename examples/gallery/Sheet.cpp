#include "Sheet.h"

#include <iostream>

namespace gallery
{

namespace
{

const TXColor kPaper(250, 248, 242, 255);
constexpr double kGap = 4.0;

} // namespace

TXRefPtr<TXGraphicsEngine> LoadEngine()
{
    TXGraphicsEngineManager* const manager = TXGraphicsEngineManager::instance("");
    manager->SetDefaultImageFormat(TXImage::Format_ARGB32_Premultiplied);
    TXString error;
    const TXRefPtr<TXGraphicsEngine> engine = manager->LoadPlugin("txpluginqt", &error);
    if (!engine)
        std::cerr << error.toUTF8() << std::endl;
    return engine;
}

TXRefPtr<TXFont> NewFont(TXGraphicsEngine& engine, const char* face, int height)
{
    TXRefPtr<TXFont> font = engine.NewFont();
    font->Create();
    font->SetFontName(face);
    font->SetFontHeight(height);
    return font;
}

Sheet::Sheet(TXGraphicsEngine& engine, const SheetLayout& sheetLayout)
    : layout(sheetLayout), surface(engine.NewGraphics()), captionFont(NewFont(engine, "DejaVu Sans", 12))
{
    const TXRefPtr<TXImage> image = engine.NewImage();
    image->CreateImage(layout.columns * layout.cardWidth, layout.rows * layout.cardHeight, TXImage::Format_RGB32);
    surface->SelectImage(image);
    surface->ClearWithColor(kPaper);
}

TXPoint Sheet::AddCard(const TXString& caption)
{
    const double x = cards % layout.columns * layout.cardWidth;
    const double y = cards / layout.columns * layout.cardHeight;
    ++cards;
    surface->fillRect(TXRect(x + kGap, x + layout.cardWidth - kGap, y + kGap, y + layout.cardHeight - kGap),
                      layout.color);
    surface->SelectFont(captionFont);
    surface->DrawString(x + 12.0, y + 10.0, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft, caption, 0.0, 0.0,
                        1.0);
    return {x, y};
}

bool Sheet::Save(const TXString& path) const
{
    if (surface->Save(path))
        return true;
    std::cerr << "cannot write " << path.toUTF8() << std::endl;
    return false;
}

} // namespace gallery
