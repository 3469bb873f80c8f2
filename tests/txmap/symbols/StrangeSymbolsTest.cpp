// Symbols of texts, numbers and sprites that nobody expects: something is drawn or nothing, and quickly.
#include <algorithm>
#include <string>
#include <vector>

#include <tests/txmap/drawing/layers/StyledTwins.h>
#include <txgraphics/TXImage.h>
#include <txmap/sources/SourceDiagnostics.h>
#include <txmap/sources/SourcePath.h>
#include <txmap/sources/Sprites.h>

using namespace TZObjects;
using namespace txmap;

namespace
{

class StrangeSymbols : public StyledTwins
{
protected:
    /// @param name as it stands in JSON.
    std::vector<unsigned> Named(const std::string& name, const std::string& layout = "", const std::string& paint = "")
    {
        const std::string geometry = layout.find("\"line\"") == std::string::npos
                                         ? R"({"type": "Point", "coordinates": )" + Place(128, 128) + "}"
                                         : Geometry("LineString", {{{20, 100}, {240, 160}}});
        return Styled(R"({"type": "Feature", "properties": {"n": ")" + name + R"("}, "geometry": )" + geometry + "}",
                      R"({"id": "l", "type": "symbol", "source": "s", "layout": {"text-field": "{n}",
                          "text-font": ["DejaVu Sans"])" +
                          layout + R"(}, "paint": {)" + paint + "}}");
    }
};

std::string Repeated(const std::string& text, std::size_t length)
{
    std::string all;
    while (all.size() < length)
        all += text;
    return all;
}

} // namespace

TEST_F(StrangeSymbols, TextsOfAMebibyte)
{
    for (const char* const part : {"ab c", "x", "\xd8\xb3\xd9\x84", "\xe4\xb8\xad", "\\n"})
        for (const char* const layout : {"", R"(, "symbol-placement": "line")"})
            Named(Repeated(part, std::size_t(1) << 20), layout, R"("text-halo-width": 1, "text-halo-color": "red")");
    EXPECT_GT(Drawn(Named(Repeated("ab c", std::size_t(1) << 20))), 1000u);
}

TEST_F(StrangeSymbols, NumbersThatAreNoneOrTooLarge)
{
    for (const char* const layout :
         {R"(, "text-size": ["/", 0, 0])", R"(, "text-size": ["/", 1, 0])", R"(, "text-size": 1e12)",
          R"(, "text-max-width": 1e12, "text-line-height": 1e12)", R"(, "text-line-height": -1e12)",
          R"(, "text-letter-spacing": 1e12)", R"(, "text-letter-spacing": -1e12)", R"(, "text-rotate": ["/", 1, 0])",
          R"(, "text-offset": ["literal", [1e12, -1e12]])", R"(, "text-padding": 1e12)",
          R"(, "text-radial-offset": ["/", 0, 0])", R"(, "symbol-sort-key": ["/", 0, 0])",
          R"(, "symbol-placement": "line", "text-max-angle": -1e12)",
          R"(, "symbol-placement": "line", "symbol-spacing": 1)",
          R"(, "symbol-placement": "line", "text-offset": [1e12, 1e12])"})
        Named("Name", layout, R"("text-halo-width": 1, "text-halo-color": "red")");
    for (const char* const paint : {R"("text-halo-width": 1e12)", R"("text-halo-blur": 1e12)",
                                    R"("text-translate": [1e12, 0])", R"("text-opacity": ["/", 0, 0])"})
        Named("Name", "", std::string(R"("text-halo-color": "red", )") + paint);
    EXPECT_GT(Drawn(Named("Name")), 50u);
}

TEST_F(StrangeSymbols, TagsAreTextAndOpenNothing)
{
    // As wide as it stands there, not as formatted text would be.
    const auto width = [&](const std::string& name)
    {
        const std::vector<unsigned> pixels = Named(name);
        int left = 256;
        int right = 0;
        for (int y = 0; y < 256; ++y)
            for (int x = 0; x < 256; ++x)
                if (pixels[static_cast<std::size_t>(y * 256 + x)] >> 24 != 0)
                {
                    left = std::min(left, x);
                    right = std::max(right, x);
                }
        return right - left;
    };
    const int plain = width("ab");
    EXPECT_GT(width("<b>ab</b>"), 2 * plain);
    EXPECT_GT(width("<i>a<"), plain);
    EXPECT_GT(width("a &amp; b"), width("a & b"));
    EXPECT_GT(width("<img src='x'>"), 3 * plain);
}

TEST_F(StrangeSymbols, BytesThatAreNoText)
{
    for (const char* const name : {"a\\u0000b", "\\u202e\\u2028\\ufffe\\u200b", "\\u0300\\u0300"})
        EXPECT_NO_THROW(Named(name)) << name;
}

TEST_F(StrangeSymbols, SpritesThatLie)
{
    const TXRefPtr<TXImage> pixels(plugin.Engine().NewImage());
    pixels->CreateImage(16, 16, TXImage::Format_ARGB32);
    pixels->Fill(0xff00ff00u);
    pixels->Save(TXString(folder / "sprite.png"));
    const auto problems = [&](const std::string& place)
    {
        folder.Write("sprite.json", R"({"good": {"x": 0, "y": 0, "width": 9, "height": 5}, "p": )" + place + "}");
        SourceDiagnostics diagnostics(false);
        const Sprites sprites({{"default", "sprite"}}, SourceFolder(folder.Path().string()), 1.0, diagnostics);
        EXPECT_NE(sprites.Find("good"), nullptr);
        EXPECT_EQ(sprites.Find("p") == nullptr, !diagnostics.Warnings().empty());
        return diagnostics.Warnings().size();
    };
    const std::string box = R"("x": 0, "y": 0, "width": 9, "height": 5)";
    EXPECT_EQ(problems("{" + box + R"(, "content": [1, 1, 8, 4], "stretchX": [[1, 2], [2, 9]], "stretchY": [[0, 5]]})"),
              0u);
    for (const std::string& lie :
         {std::string(R"("x")"), std::string(R"({"x": 8, "y": 0, "width": 9, "height": 5})"),
          std::string(R"({"x": -1, "y": 0, "width": 9, "height": 5})"),
          std::string(R"({"x": 1e300, "y": 0, "width": 1e300, "height": 5})"), "{" + box + R"(, "pixelRatio": 0})",
          "{" + box + R"(, "content": [1, 1, 10, 4]})", "{" + box + R"(, "content": [5, 1, 5, 4]})",
          "{" + box + R"(, "stretchX": [[5, 2]]})", "{" + box + R"(, "stretchX": [[0, 3], [2, 4]]})",
          "{" + box + R"(, "stretchY": [[0, 6]]})", "{" + box + R"(, "stretchX": [["a", 2]]})"})
        EXPECT_EQ(problems(lie), 1u) << lie;
}

TEST_F(StrangeSymbols, StacksOfAThousandFonts)
{
    std::string fonts;
    for (int i = 0; i < 1000; ++i)
        fonts += (i == 0 ? "\"Font " : ", \"Font ") + std::to_string(i) + "\"";
    EXPECT_GT(Drawn(Styled(R"({"type": "Point", "coordinates": )" + Place(128, 128) + "}",
                           R"({"id": "l", "type": "symbol", "source": "s", "layout": {"text-field": "Name",
                               "text-font": [)" +
                               fonts + "]}}")),
              50u);
}
