// A contact sheet of labels: layouts, alignments, rules and halos, in each cell through Qt on the left and through
// cairo on the right. Usage: gallery-labels PICTURE
#include <functional>
#include <iostream>
#include <vector>

#include <txgraphics/txgraphics.h>

#include "gallery/Sheet.h"

using namespace TZObjects;

namespace
{

const TXColor kInk(40, 50, 70, 255);
const TXColor kCell(168, 196, 196, 255);
const TXColor kHalo(255, 250, 225, 255);

using Setting = std::function<void(TXFont&)>;
using Drawing = std::function<void(TXGraphics&, double x, double y)>;

/// One label: how its font is set, and how it is drawn with its top left at a point.
struct Cell
{
    TXString caption;
    Setting set;
    Drawing draw;
};

void AsItIs(TXFont&) {}

Cell Lines(const char* caption, TXGraphics::TXTextHorizAlign align, double spacing, Setting set = AsItIs)
{
    return {caption, set, [=](TXGraphics& s, double x, double y) {
                s.DrawString(x, y, TXGraphics::TextAlignTop, align, L"Long\nMeandering\nRiver", 0.0, spacing, 1.0);
            }};
}

Cell Line(const char* caption, Setting set, double angle = 0.0, double scale = 1.0)
{
    return {caption, set, [=](TXGraphics& s, double x, double y) {
                s.DrawString(x, y, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft, L"Stadt Straße", angle, 0.0,
                             scale);
            }};
}

Cell Outline(const char* caption, int width, const wchar_t* text, double angle)
{
    return {caption, [=](TXFont& font) { font.SetFontHaloWidth(width); },
            [=](TXGraphics& s, double x, double y) {
                s.DrawOutlineString(x, y, TXGraphics::TextAlignTop, TXGraphics::TextAlignHCenter, text, kInk, angle,
                                    2.0, 1.0);
            }};
}

/// The Qt path aligns columns by the horizontal alignment, the cairo path by the vertical one.
Cell Columns(const char* caption, int align, bool halo)
{
    return {caption,
            [=](TXFont& font)
            {
                font.SetFontName(L"WenQuanYi Micro Hei");
                font.SetFontHalo(halo);
                font.SetFontHaloWidth(4);
            },
            [=](TXGraphics& s, double x, double y)
            {
                s.DrawVerticalString(x + 20, y - 10, static_cast<TXGraphics::TXTextVertAlign>(align),
                                     static_cast<TXGraphics::TXTextHorizAlign>(align), L"BERG\n山川", kInk, 0.0, 8.0,
                                     0.0, halo, 1.0);
            }};
}

Cell Tags()
{
    return {"tags: the Qt path reads them", AsItIs, [](TXGraphics& s, double x, double y) {
                s.DrawString(x, y, 0.0, 0.0, TXGraphics::TextAlignTop, TXGraphics::TextAlignLeft, L"<BOL>B</BOL>", 0.0,
                             1.0);
            }};
}

std::vector<Cell> Labels()
{
    const auto left = TXGraphics::TextAlignLeft;
    const auto centre = TXGraphics::TextAlignHCenter;
    const auto right = TXGraphics::TextAlignRight;
    return {
        Lines("lines, left", left, 0.0),
        Lines("lines, centred", centre, 0.0),
        Lines("lines, right", right, 0.0),
        Lines("line spacing 8", centre, 8.0),
        Lines("lines, spaced and underlined", centre, 4.0,
              [](TXFont& font)
              {
                  font.SetWordSpacing(3.0);
                  font.SetFontUnderline(true);
              }),
        Line("one line", AsItIs),
        Line("turned by 30 degrees", AsItIs, 30.0),
        Line("scale 1.25", AsItIs, 0.0, 1.25),
        Line("underline", [](TXFont& font) { font.SetFontUnderline(true); }),
        Line("strike-out", [](TXFont& font) { font.SetFontStrikeOut(true); }),
        Line("spaced", [](TXFont& font) { font.SetWordSpacing(3.0); }),
        Line("bold", [](TXFont& font) { font.SetFontBold(true); }),
        Line("italic", [](TXFont& font) { font.SetFontItalic(true); }),
        Line("slanted", [](TXFont& font) { font.SetFontItalicMode(TXFont::ItalicSlant); }),
        Tags(),
        Outline("halo 2", 2, L"Stadt Straße", 0.0),
        Outline("halo 6, lines", 6, L"Long\nMeandering\nRiver", 0.0),
        Outline("halo 4, turned", 4, L"Stadt Straße", 20.0),
        Columns("columns, alignment 1", 1, false),
        Columns("columns, alignment 2, halo 4", 2, true),
    };
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
    {
        std::cerr << "usage: gallery-labels PICTURE" << std::endl;
        return 2;
    }
    const TXRefPtr<TXGraphicsEngine> engine = gallery::LoadEngine();
    if (!engine)
        return 3;

    gallery::Sheet sheet(*engine, {4, 5, 380, 150, kCell});
    TXGraphics& surface = sheet.Surface();
    for (const Cell& cell : Labels())
    {
        const TXPoint corner = sheet.AddCard(cell.caption);
        const TXRefPtr<TXFont> font = gallery::NewFont(*engine, "DejaVu Sans", 20);
        font->SetFontHaloColor(kHalo);
        cell.set(*font);
        surface.SelectFont(font);
        cell.draw(surface, corner.x + 24.0, corner.y + 48.0);
        surface.EnableCairoDrawing(true);
        cell.draw(surface, corner.x + 210.0, corner.y + 48.0);
        surface.EnableCairoDrawing(false);
    }
    return sheet.Save(argv[1]) ? 0 : 1;
}
