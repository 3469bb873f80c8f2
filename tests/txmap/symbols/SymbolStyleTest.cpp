// What symbols have of their style as a whole: its sprites, the order of its layers, and columns of letters.
#include <gmock/gmock.h>
#include <tests/txmap/drawing/layers/StyledTwins.h>
#include <txgraphics/TXImage.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/sources/Sprites.h>
#include <txmap/style/document/MapStyle.h>

using namespace TZObjects;
using namespace txmap;
using ::testing::IsEmpty;

namespace
{

class SymbolStyle : public StyledTwins
{
protected:
    /// Writes a sprite with one picture, "p", of a colour.
    void WriteSprite(const std::string& name, int side, int ratio, unsigned color)
    {
        const TXRefPtr<TXImage> pixels(plugin.Engine().NewImage());
        pixels->CreateImage(side, side, TXImage::Format_ARGB32);
        pixels->Fill(color);
        pixels->Save(TXString(folder / (name + ".png")));
        const std::string length = std::to_string(side);
        folder.Write(name + ".json", R"({"p": {"x": 0, "y": 0, "width": )" + length + R"(, "height": )" + length +
                                         R"(, "pixelRatio": )" + std::to_string(ratio) + "}}");
    }

    Sprites Read(double scale)
    {
        const StyleReading reading = ReadStyle(R"({"version": 8, "sources": {}, "layers": [], "sprite": [
            {"id": "default", "url": "first"}, {"id": "more", "url": "second"}]})");
        EXPECT_TRUE(reading.problems.empty());
        SourceDiagnostics diagnostics(true);
        Sprites sprites(reading.style.sprites, SourceFolder(folder.Path().string()), scale, diagnostics);
        EXPECT_THAT(diagnostics.Warnings(), IsEmpty());
        return sprites;
    }

    static unsigned ColorOf(const Sprites& sprites, const char* name) { return sprites.Find(name)->pixels.pixels[0]; }

    std::vector<unsigned> Named(const std::string& text, const std::string& layout, const std::string& metadata = "")
    {
        return Styled(R"({"type": "Point", "coordinates": )" + Place(128, 128) + "}",
                      R"({"id": "t", "type": "symbol", "source": "s", "metadata": {)" + metadata +
                          R"(}, "layout": {"text-font": ["DejaVu Sans"], "text-field": ")" + text + "\"" + layout +
                          "}}");
    }
};

/// How far ink reaches, from its first row or column to its last.
std::pair<int, int> ExtentOf(const std::vector<unsigned>& pixels)
{
    int left = 256;
    int right = 0;
    int top = 256;
    int bottom = 0;
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x)
            if (pixels[static_cast<std::size_t>(y * 256 + x)] >> 24 > 100)
            {
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
    return {right - left, bottom - top};
}

} // namespace

TEST_F(SymbolStyle, SeveralSpritesHaveNamesOfTheirOwn)
{
    WriteSprite("first", 4, 1, 0xffff0000u);
    WriteSprite("second", 6, 1, 0xff0000ffu);
    const Sprites sprites = Read(1.0);
    ASSERT_NE(sprites.Find("p"), nullptr);
    ASSERT_NE(sprites.Find("more:p"), nullptr);
    EXPECT_EQ(sprites.Find("default:p"), nullptr);
    EXPECT_EQ(ColorOf(sprites, "p"), 0xffff0000u);
    EXPECT_EQ(ColorOf(sprites, "more:p"), 0xff0000ffu);
    EXPECT_EQ(sprites.Names().count("more:p"), 1u);
}

TEST_F(SymbolStyle, DenserSpritesAreReadForDenserPictures)
{
    WriteSprite("first", 4, 1, 0xffff0000u);
    WriteSprite("first@2x", 8, 2, 0xff00ff00u);
    WriteSprite("second", 6, 1, 0xff0000ffu);
    for (const double scale : {1.0, 2.0})
    {
        const Sprites sprites = Read(scale);
        const SpritePicture* const picture = sprites.Find("p");
        ASSERT_NE(picture, nullptr);
        EXPECT_EQ(picture->Width(), 4.0);
        EXPECT_EQ(picture->ratio, scale);
        EXPECT_EQ(ColorOf(sprites, "p"), scale > 1.0 ? 0xff00ff00u : 0xffff0000u);
        // There is only one kind of this one.
        ASSERT_NE(sprites.Find("more:p"), nullptr);
        EXPECT_EQ(sprites.Find("more:p")->ratio, 1.0);
    }
}

TEST_F(SymbolStyle, TheUppermostLayerIsPlacedFirst)
{
    const auto layer = [](const char* id, const char* color)
    {
        return R"({"id": ")" + std::string(id) + R"(", "type": "symbol", "source": "s", "layout": {
            "text-font": ["DejaVu Sans"], "text-field": "Name"}, "paint": {"text-color": ")" +
               color + "\"}}";
    };
    const std::string point = R"({"type": "Point", "coordinates": )" + Place(128, 128) + "}";
    const std::string red = layer("r", "#ff0000");
    const std::string blue = layer("b", "#0000ff");
    const std::vector<unsigned> onlyBlue = Styled(point, blue);
    EXPECT_GT(Drawn(onlyBlue), 50u);
    EXPECT_EQ(Differing(Styled(point, red + ", " + blue), onlyBlue), 0u);
    EXPECT_EQ(Differing(Styled(point, blue + ", " + red), Styled(point, red)), 0u);
}

TEST_F(SymbolStyle, TextsOfAllScriptsAreTheSameAlongAStraightLine)
{
    const std::string line =
        R"({"type": "LineString", "coordinates": [)" + Place(10, 128) + "," + Place(246, 128) + "]}";
    for (const char* const text : {"القاهرة الكبرى", "ירושלים העתיקה", "กรุงเทพมหานคร", "नई दिल्ली क्षेत्र",
                                   "தமிழ்நாடு மாநிலம்", "北京市朝阳区", "Αθήνα Москва", "القاهرة Cairo 12", "東京 Tokyo"})
    {
        const std::vector<unsigned> straight = Named(text, "");
        const std::vector<unsigned> along =
            Styled(line, R"({"id": "t", "type": "symbol", "source": "s", "layout": {"symbol-placement": "line-center",
                "text-font": ["DejaVu Sans"], "text-field": ")" +
                             std::string(text) + "\"}}");
        const auto [width, height] = ExtentOf(straight);
        const auto [widthAlong, heightAlong] = ExtentOf(along);
        EXPECT_GT(width, 60) << text;
        EXPECT_NEAR(widthAlong, width, 0.06 * width) << text;
        EXPECT_NEAR(heightAlong, height, 2) << text;
        // What is not joined, or is joined another way, has other ink.
        const auto ink = static_cast<double>(Drawn(straight));
        EXPECT_NEAR(static_cast<double>(Drawn(along)), ink, 0.12 * ink) << text;
    }
}

TEST_F(SymbolStyle, TextsStandInColumns)
{
    const char* const text = "東京駅";
    const std::vector<unsigned> column = Named(text, "", R"("txmap:vertical": true)");
    const auto [width, height] = ExtentOf(column);
    EXPECT_GT(height, 2 * width);
    const auto [lineWidth, lineHeight] = ExtentOf(Named(text, ""));
    EXPECT_GT(lineWidth, 2 * lineHeight);
    // Where the format can say the same, the picture is the same.
    EXPECT_EQ(Differing(column, Named(text, R"(, "text-writing-mode": ["vertical"])")), 0u);
    // The format has no columns of letters that stand upright in no column; they are turned.
    const auto [latinWidth, latinHeight] = ExtentOf(Named("Tokyo", "", R"("txmap:vertical": true)"));
    EXPECT_GT(latinHeight, 2 * latinWidth);
}
