// Every property of symbols, from the style to the picture.
#include <algorithm>
#include <cmath>
#include <set>

#include <tests/txmap/drawing/layers/StyledTwins.h>
#include <txgraphics/TXImage.h>
#include <txmap/style/document/LayerTables.h>
#include <txmap/symbols/text/SymbolFonts.h>
#include <txmap/symbols/text/TextBlock.h>

using namespace TZObjects;
using namespace txmap;

namespace
{

/// What a layer of symbols is drawn of.
enum class Shape
{
    Point,    ///< In the middle of the picture.
    Pair,     ///< Two points close to each other, west and east.
    Line,     ///< Straight and long, from left to right.
    Leftward, ///< The same from right to left.
    Corner    ///< Two legs at a right angle.
};

/// A property, and a layer that it changes.
struct Property
{
    const char* name;
    Shape shape;
    const char* layout; ///< What else the layer has.
    const char* paint;
    const char* value; ///< As JSON; the name says whether it belongs to the layout.
    double bearing = 0.0;
};

const char* const kMark = R"("icon-image": "mark")";
const char* const kBoth = R"("icon-image": "mark", "text-field": "{n}")";
const char* const kName = R"("text-field": "{n}")";
const char* const kAlong = R"("text-field": "{n}", "symbol-placement": "line")";
const char* const kHalo = R"("text-halo-color": "#ff0000", "text-halo-width": 3)";

const Property kProperties[] = {
    {"text-anchor", Shape::Point, kName, "", R"("bottom-left")"},
    {"text-justify", Shape::Point, R"("text-field": "wide line\nx")", "", R"("right")"},
    {"text-transform", Shape::Point, kName, "", R"("uppercase")"},
    {"text-keep-upright", Shape::Leftward, kAlong, "", "false"},
    {"text-rotation-alignment", Shape::Point, kName, "", R"("map")", 30.0},
    {"text-ignore-placement", Shape::Pair, kName, "", "true"},
    {"text-optional", Shape::Pair, R"("icon-image": "mark", "text-field": "{n}", "text-offset": [0, 2])", "", "true"},
    {"icon-optional", Shape::Pair,
     R"("icon-image": "mark", "icon-size": 4, "text-field": "{m}", "text-size": 8, "text-offset": [0, 4])", "", "true"},
    {"text-allow-overlap", Shape::Pair, kName, "", "true"},
    {"text-overlap", Shape::Pair, kName, "", R"("always")"},
    {"icon-allow-overlap", Shape::Pair, R"("icon-image": "mark", "icon-size": 4)", "", "true"},
    {"icon-overlap", Shape::Pair, R"("icon-image": "mark", "icon-size": 4)", "", R"("always")"},
    {"icon-ignore-placement", Shape::Pair, R"("icon-image": "mark", "icon-size": 4)", "", "true"},
    {"text-variable-anchor", Shape::Pair, R"("text-field": "{n}", "text-radial-offset": 0.5)", "",
     R"(["right", "left"])"},
    {"text-variable-anchor-offset", Shape::Pair, kName, "", R"(["right", [-1, 0], "left", [1, 0]])"},
    {"text-radial-offset", Shape::Pair, R"("text-field": "{n}", "text-variable-anchor": ["right", "left"])", "", "1"},
    {"text-writing-mode", Shape::Point, R"("text-field": "東京駅")", "", R"(["vertical"])"},
    {"text-translate-anchor", Shape::Point, kName, R"("text-translate": [20, 0])", R"("viewport")", 90.0},
    {"icon-translate-anchor", Shape::Point, kMark, R"("icon-translate": [20, 0])", R"("viewport")", 90.0},
    {"icon-halo-blur", Shape::Point, R"("icon-image": "field")",
     R"("icon-halo-color": "#ff0000", "icon-halo-width": 4)", "3"},
    {"icon-halo-width", Shape::Point, R"("icon-image": "field")", R"("icon-halo-color": "#ff0000")", "4"},
    {"icon-halo-color", Shape::Point, R"("icon-image": "field")", R"("icon-halo-width": 4)", R"("#ff0000")"},
    {"icon-color", Shape::Point, R"("icon-image": "field")", "", R"("#ff0000")"},
    {"text-color", Shape::Point, kName, "", R"("#ff0000")"},
    {"text-halo-color", Shape::Point, kName, R"("text-halo-width": 3)", R"("#ff0000")"},
    {"text-halo-width", Shape::Point, kName, R"("text-halo-color": "#ff0000")", "3"},
    {"text-halo-blur", Shape::Point, kName, kHalo, "2"},
    {"text-opacity", Shape::Point, kName, "", "0.4"},
    {"icon-opacity", Shape::Point, kMark, "", "0.4"},
    {"text-translate", Shape::Point, kName, "", "[7, 9]"},
    {"icon-translate", Shape::Point, kMark, "", "[7, 9]"},
    {"text-rotate", Shape::Point, kName, "", "30"},
    {"text-offset", Shape::Point, kName, "", "[1, 2]"},
    {"text-letter-spacing", Shape::Point, kName, "", "0.5"},
    {"text-line-height", Shape::Point, R"("text-field": "{n}\n{n}")", "", "2"},
    {"text-max-width", Shape::Point, R"("text-field": "one two three four")", "", "4"},
    {"text-max-angle", Shape::Corner, R"("text-field": "Streets have long names", "symbol-placement": "line-center")",
     "", "180"},
    {"text-padding", Shape::Pair, R"("text-field": "{m}")", "", "20"},
    {"icon-padding", Shape::Pair, kMark, "", "20"},
    {"symbol-spacing", Shape::Line, kAlong, "", "60"},
    {"symbol-placement", Shape::Line, kName, "", R"("line-center")"},
    {"symbol-sort-key", Shape::Pair, kName, "", R"(["get", "k"])"},
    {"symbol-z-order", Shape::Pair, R"("icon-image": "mark", "icon-size": 4, "icon-overlap": "always")", "",
     R"("source")"},
    {"icon-anchor", Shape::Point, kMark, "", R"("bottom-left")"},
    {"icon-keep-upright", Shape::Leftward, R"("icon-image": "mark", "icon-size": 2, "symbol-placement": "line")", "",
     "true"},
    {"icon-offset", Shape::Point, kMark, "", "[5, 3]"},
    {"icon-rotate", Shape::Point, kMark, "", "30"},
    {"icon-rotation-alignment", Shape::Point, kMark, "", R"("map")", 30.0},
    {"icon-size", Shape::Point, kMark, "", "2"},
    {"icon-text-fit", Shape::Point, kBoth, "", R"("both")"},
    {"icon-text-fit-padding", Shape::Point, R"("icon-image": "mark", "text-field": "{n}", "icon-text-fit": "both")", "",
     "[5, 5, 5, 5]"},
    {"text-size", Shape::Point, kName, "", "30"},
    {"text-font", Shape::Point, kName, "", R"(["DejaVu Sans Bold"])"},
    {"text-field", Shape::Point, "", "", R"("{m}")"},
    {"icon-image", Shape::Point, "", "", R"("mark")"},
    {"visibility", Shape::Point, kBoth, "", R"("none")"},
};

class SymbolProperty : public StyledTwins
{
protected:
    SymbolProperty() : fonts(plugin.Engine(), [](const std::string&) {})
    {
        folder.Write("sprite.json", R"({"mark": {"x": 0, "y": 0, "width": 8, "height": 6},
            "field": {"x": 8, "y": 0, "width": 24, "height": 24, "sdf": true}})");
        const TXRefPtr<TXImage> sprite(plugin.Engine().NewImage());
        sprite->CreateImage(32, 24, TXImage::Format_ARGB32);
        sprite->Fill(0u);
        for (int y = 0; y < 6; ++y)
            for (int x = 0; x < 8; ++x)
                sprite->SetPixel(x, y, {30 * x, 40 * y, 90, 255});
        for (int y = 0; y < 24; ++y)
            for (int x = 0; x < 24; ++x)
                sprite->SetPixel(8 + x, y,
                                 {0, 0, 0, std::max(0, 255 - 20 * std::max(std::abs(x - 12), std::abs(y - 12)))});
        sprite->Save(TXString(folder / "sprite.png"));
    }

    static std::string Data(Shape shape)
    {
        const auto feature = [](const char* name, const std::string& geometry)
        {
            return R"({"type": "Feature", "properties": {"n": ")" + std::string(name) + R"(", "m": ")" +
                   std::string(1, name[0]) + R"(", "k": )" + (name[0] == 'W' ? "2" : "1") + R"(}, "geometry": )" +
                   geometry + "}";
        };
        const auto point = [](double x, double y)
        { return R"({"type": "Point", "coordinates": )" + Place(x, y) + "}"; };
        switch (shape)
        {
        case Shape::Point:
            return feature("Name x", point(128, 128));
        case Shape::Pair:
            return R"({"type": "FeatureCollection", "features": [)" + feature("West y", point(118, 129)) + "," +
                   feature("East z", point(138, 127)) + "]}";
        case Shape::Line:
            return feature("Name x", Geometry("LineString", {{{8, 100}, {250, 120}}}));
        case Shape::Leftward:
            return feature("Name x", Geometry("LineString", {{{250, 120}, {8, 100}}}));
        case Shape::Corner:
            break;
        }
        return feature("Name x", Geometry("LineString", {{{50, 200}, {120, 60}, {190, 200}}}));
    }

    std::vector<unsigned> Symbol(Shape shape, const std::string& layout, const std::string& paint, double bearing = 0.0)
    {
        const std::string font =
            layout.find("text-font") == std::string::npos ? R"("text-font": ["DejaVu Sans Mono"])" : "";
        return Styled(Data(shape),
                      R"({"id": "l", "type": "symbol", "source": "s", "layout": {)" + font +
                          (layout.empty() || font.empty() ? "" : ", ") + layout + R"(}, "paint": {)" + paint + "}}",
                      0.0, bearing);
    }

    /// The letter R, 40 pixels high, in the middle of the picture.
    std::vector<unsigned> Letter(const std::string& layout, const std::string& paint = "", double bearing = 0.0)
    {
        return Symbol(Shape::Point, R"("text-size": 40, "text-field": "R")" + (layout.empty() ? "" : ", " + layout),
                      paint, bearing);
    }

    /// Expects what one call draws, whose letter has the middle of its box @p shift from the middle of the picture, and
    /// is turned about that middle.
    void ExpectLetter(const std::vector<unsigned>& styled, const TXPoint& shift, const TXColor& color,
                      double angle = 0.0, const TXPoint& pivot = {0.0, 0.0})
    {
        TextStyle style;
        style.fontStack = {"DejaVu Sans Mono"};
        style.size = 40.0;
        TextSection section;
        section.text = "R";
        const TextBlock block = LayOutText({section}, style, fonts);
        const TXPoint origin(block.pieces.at(0).origin.x - block.width / 2.0 + shift.x - pivot.x,
                             block.pieces.at(0).origin.y - block.height / 2.0 + shift.y - pivot.y);
        const double cosine = angle == 0.0 ? 1.0 : std::cos(angle * M_PI / 180.0);
        const double sine = angle == 0.0 ? 0.0 : std::sin(angle * M_PI / 180.0);
        const auto rounded = [](double place) { return std::round(place * 256.0) / 256.0; };
        const double x = rounded(128.0 + pivot.x + cosine * origin.x - sine * origin.y);
        const double y = rounded(128.0 + pivot.y + sine * origin.x + cosine * origin.y);
        EXPECT_GT(Drawn(styled), 100u);
        EXPECT_EQ(Differing(styled, Direct(
                                        [&](TXGraphics& surface)
                                        {
                                            const TXRefPtr<TXFont> font(plugin.Engine().NewFont());
                                            font->Create();
                                            font->SetFontHeight(40);
                                            font->SetFontWeight(400);
                                            font->SetFontName("DejaVu Sans Mono");
                                            double height = 0.0;
                                            double ascent = 0.0;
                                            double descent = 0.0;
                                            font->GetFontMetricsInfo(height, ascent, descent, true);
                                            surface.SelectFont(font);
                                            surface.SelectPen(Pen(color, 1.0));
                                            surface.DrawString(x, y, x, x, y - ascent, y, TXGraphics::TextAlignTop,
                                                               TXGraphics::TextAlignLeft, TXString(L"R"), angle, 1.0);
                                        })),
                  0u);
    }

    SymbolFonts fonts;
};

} // namespace

TEST_F(SymbolProperty, EachChangesThePicture)
{
    for (const Property& property : kProperties)
    {
        SCOPED_TRACE(property.name);
        const std::string member = "\"" + std::string(property.name) + "\": " + property.value;
        const auto with = [&](const char* members)
        { return std::string(members) + (*members == 0 ? "" : ", ") + member; };
        const bool isOfLayout = RulesOf(LayerType::Symbol).layout.Find(property.name) != nullptr;
        const std::vector<unsigned> without = Symbol(property.shape, property.layout, property.paint, property.bearing);
        const std::vector<unsigned> changed =
            Symbol(property.shape, isOfLayout ? with(property.layout) : property.layout,
                   isOfLayout ? property.paint : with(property.paint), property.bearing);
        EXPECT_GT(Differing(without, changed), 10u);
        EXPECT_GT(Drawn(without) + Drawn(changed), 20u);
    }
}

TEST(SymbolProperties, HaveARowEach)
{
    std::set<std::string> names;
    for (const Property& property : kProperties)
        names.insert(property.name);
    // From above, nothing lies flat or high.
    for (const char* const name :
         {"text-pitch-alignment", "icon-pitch-alignment", "symbol-height-offset", "symbol-height-anchor"})
        EXPECT_TRUE(names.insert(name).second) << name;
    // Only tiles have edges.
    EXPECT_TRUE(names.insert("symbol-avoid-edges").second);
    const LayerRules& rules = RulesOf(LayerType::Symbol);
    for (const RuleList& list : {rules.layout, rules.paint})
        for (const MemberRule& rule : list)
            EXPECT_EQ(names.count(rule.name), 1u) << rule.name;
}

TEST_F(SymbolProperty, ColourAndOpacityAreThoseOfADirectCall)
{
    const TXColor black(0, 0, 0, 255);
    ExpectLetter(Letter(""), {0, 0}, black);
    ExpectLetter(Letter("", R"("text-color": "#804020")"), {0, 0}, {128, 64, 32, 255});
    ExpectLetter(Letter("", R"("text-color": "#804020", "text-opacity": 0.4)"), {0, 0}, {128, 64, 32, 102});
    ExpectLetter(Letter(R"("text-transform": "uppercase")"), {0, 0}, black);
    ExpectLetter(Symbol(Shape::Point, R"("text-size": 40, "text-field": "r", "text-transform": "uppercase")", ""),
                 {0, 0}, black);
}

TEST_F(SymbolProperty, PlacesAreThoseOfADirectCall)
{
    const TXColor black(0, 0, 0, 255);
    ExpectLetter(Letter(R"("text-offset": [1, -0.5])"), {40, -20}, black);
    ExpectLetter(Letter("", R"("text-translate": [7, 9])"), {7, 9}, black);
    // East is up.
    ExpectLetter(Letter("", R"("text-translate": [7, 9])", 90.0), {9, -7}, black);
    ExpectLetter(Letter("", R"("text-translate": [7, 9], "text-translate-anchor": "viewport")", 90.0), {7, 9}, black);
    ExpectLetter(Letter(R"("text-rotate": 30)"), {0, 0}, black, 30.0);
    ExpectLetter(Letter(R"("text-rotation-alignment": "map")", "", 30.0), {0, 0}, black, -30.0);
    TextStyle style;
    style.fontStack = {"DejaVu Sans Mono"};
    style.size = 40.0;
    TextSection section;
    section.text = "R";
    const TextBlock block = LayOutText({section}, style, fonts);
    ExpectLetter(Letter(R"("text-anchor": "left")"), {block.width / 2.0, 0}, black);
    ExpectLetter(Letter(R"("text-anchor": "bottom-right")"), {-block.width / 2.0, -block.height / 2.0}, black);
}
