// Draws labels through cairo in every layout and ends: the program that memcheck watches.
#include <cstdio>

#include <txgraphics/txgraphics.h>

using namespace TZObjects;

namespace
{

constexpr auto kTop = TXGraphics::TextAlignTop;
constexpr auto kCenter = TXGraphics::TextAlignHCenter;

int failures = 0;

void Expect(bool expected, bool answer)
{
    if (answer != expected)
        ++failures;
}

TXRefPtr<TXFont> Font(const TXGraphicsEngine& engine, double spacing, bool decorated)
{
    TXRefPtr<TXFont> font(engine.NewFont());
    font->Create();
    font->SetFontName(L"DejaVu Sans");
    font->SetFontHeight(16);
    font->SetWordSpacing(spacing);
    font->SetFontUnderline(decorated);
    font->SetFontStrikeOut(decorated);
    font->SetFontHalo(decorated);
    return font;
}

/// Every operation with the text.
void DrawAll(TXGraphics& surface, const TXString& text, bool expected)
{
    const TXColor fill(120, 30, 200, 180);
    Expect(expected, surface.DrawString(10, 10, 20, 90, 15, 60, kTop, kCenter, text, 20.0, 1.5));
    Expect(expected, surface.DrawString(10, 10, kTop, kCenter, text, 20.0, 2.0, 1.0));
    Expect(expected, surface.DrawString(10, 10, 4, 5, kTop, kCenter, text, 0.0, 1.0));
    Expect(expected, surface.DrawString(10, 10, 4, 5, kTop, kCenter, text, 1.0));
    Expect(expected, surface.DrawOutlineString(10, 10, 4, 5, kTop, kCenter, text, fill, 45.0, 2.0, 1.0));
    Expect(expected, surface.DrawOutlineString(10, 10, kTop, kCenter, text, fill, 45.0, 2.0, 1.0));
    Expect(expected, surface.DrawVerticalString(10, 10, 4, 5, kTop, kCenter, text, fill, 5.0, 2.0, 1.0, true, 1.0));
    Expect(expected, surface.DrawVerticalString(10, 10, kTop, kCenter, text, fill, 5.0, 2.0, 1.0, true, 1.0));
}

void DrawLabels(const TXGraphicsEngine& engine, TXGraphics& surface)
{
    const TXString texts[] = {L"Hag", L"one\ntwo\n\nthree", L"", L"\n", std::wstring{L'x', wchar_t(0xD800)}};
    for (const double spacing : {0.0, 2.0})
        for (const bool decorated : {false, true})
        {
            surface.SelectFont(Font(engine, spacing, decorated));
            for (const TXString& text : texts)
                DrawAll(surface, text, true);
        }
}

void Run(const TXGraphicsEngine& engine)
{
    const TXRefPtr<TXGraphics> surface(engine.NewGraphics());
    surface->EnableCairoDrawing(true);
    DrawAll(*surface, L"nowhere", false);

    const TXRefPtr<TXImage> first(engine.NewImage());
    first->CreateImage(120, 90, TXImage::Format_ARGB32_Premultiplied);
    first->Fill(TXColor::WHITE_);
    surface->SelectImage(first);
    DrawLabels(engine, *surface);

    const TXRefPtr<TXImage> second(engine.NewImage());
    second->CreateImage(60, 50, TXImage::Format_RGB888);
    surface->SelectImage(second);
    DrawAll(*surface, L"not on these pixels", false);
    second->CreateImage(60, 50, TXImage::Format_ARGB32);
    second->Fill(TXColor::WHITE_);
    DrawAll(*surface, L"on these", true);

    surface->CreateCompatibleGraphics(100, 80);
    surface->CreateCompatibleGraphics(110, 70);
    DrawAll(*surface, L"compatible", true);
    Expect(false, surface->DrawString(1e300, 10, kTop, kCenter, L"far away", 0.0, 0.0, 1.0));
    surface->EnableCairoDrawing(false);
    surface->EnableCairoDrawing(true);
    DrawAll(*surface, L"again", true);
    surface->Delete();
    DrawAll(*surface, L"without a painter", true);
}

} // namespace

int main()
{
    TXString error;
    const TXRefPtr<TXGraphicsEngine> engine = TXGraphicsEngineManager::instance("")->LoadPlugin(TX_TEST_PLUGIN, &error);
    if (!engine)
    {
        std::fprintf(stderr, "%s\n", error.toUTF8().c_str());
        return 1;
    }
    Run(*engine);
    if (failures > 0)
        std::fprintf(stderr, "%d labels did not answer as expected\n", failures);
    return failures > 0;
}
