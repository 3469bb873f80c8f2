// Fonts: changes, fonts of attached painters, and measuring.
#include "FontChange.h"
#include "Operations.h"
#include "Settle.h"

using namespace TZObjects;

namespace
{

int SomeFont(Random& random) { return random.Int(0, kFonts - 1); }

/// All that a font of either side measures about a text.
template <class Font>
std::vector<double> Measured(const Font& font, const TXString& text)
{
    double exact[8];
    int whole[7];
    font.GetTextExtent(text, exact[0], exact[1], true);
    font.GetMultiTextExtent(text, exact[2], exact[3], true);
    font.GetFontMetricsInfo(exact[4], exact[5], exact[6], true);
    exact[7] = font.GetMaxCharWidthOfText(text, true);
    font.GetTextExtent(text, whole[0], whole[1], true);
    font.GetMultiTextExtent(text, whole[2], whole[3], true);
    font.GetFontMetricsInfo(whole[4], whole[5], whole[6], true);
    std::vector<double> all(std::begin(exact), std::end(exact));
    all.insert(all.end(), std::begin(whole), std::end(whole));
    return all;
}

} // namespace

std::vector<Operation> FontOperations()
{
    return {
        Row(
            "a change of a font", 14,
            [](Random& r) {
                return std::tuple{SomeFont(r), FontChange(r)};
            },
            [](auto& side, int font, const FontChange& change) { change.Make(*side.Font(font)); }),
        Row(
            "another font", 1, [](Random& r) { return std::tuple{SomeFont(r)}; },
            [](auto& side, int font) { side.RenewFont(font); }),
        Row(
            "Delete and Create of a font", 1, [](Random& r) { return std::tuple{SomeFont(r)}; },
            [](auto& side, int font)
            {
                side.Font(font)->Delete();
                return side.Font(font)->Create();
            }),
        // Later labels are drawn with the font of the painter's device then.
        Row(
            "the font of a painter", 7,
            [](Random& r) { return std::tuple{r.Chance(80) ? r.Int(kFirstOfResolution, kCanvases - 1) : r.Int(0, 2)}; },
            [](auto& side, int canvas)
            {
                side.Surface().Attach(side.Outside(canvas));
                const int font = side.NumberOf(side.Surface().GetFont());
                side.Surface().Detach();
                return font;
            }),
        Row(
            "measures of a font", 4,
            [](Random& r) {
                return std::tuple{SomeFont(r), TXString(SomeText(r))};
            },
            [](auto& side, int font, const TXString& text) { return Measured(*side.Font(font), text); },
            [](World& world, int, int font, const TXString& text)
            {
                const ModelFont& measured = world.FontOfModel(font);
                if (Settle(measured.qfont, QString::fromStdWString(text.toStdWString())))
                    Measured(measured, text);
                return true;
            }),
    };
}
