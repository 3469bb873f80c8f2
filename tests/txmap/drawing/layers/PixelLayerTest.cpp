// Layers whose pixels are computed: patterns, pictures and shaded relief.
#include <cmath>
#include <set>

#include <gdal_priv.h>
#include <tests/txmap/drawing/layers/StyledTwins.h>
#include <txgraphics/TXImage.h>
#include <txmap/drawing/layers/Hillshade.h>

using namespace TZObjects;

namespace
{

class PixelLayer : public StyledTwins
{
protected:
    /// Writes a picture whose pixels are 0xAARRGGBB.
    void WritePicture(const std::string& name, int width, int height, const std::vector<unsigned>& pixels)
    {
        std::vector<unsigned> copy = pixels;
        const TXRefPtr<TXImage> image(plugin.Engine().NewImage());
        image->CreateImage(reinterpret_cast<unsigned char*>(copy.data()), width, height, TXImage::Format_ARGB32);
        image->Save(TXString((folder / name).c_str()));
    }
    /// Writes slope.asc, whose heights grow by so many metres with each of 64 cells from west to east.
    void WriteSlope(double step)
    {
        GDALAllRegister();
        std::string grid = "ncols 64\nnrows 64\nxllcorner -8\nyllcorner -8\ncellsize 0.25\n";
        for (int i = 0; i < 64 * 64; ++i)
            grid += std::to_string(step * (i % 64)) + (i % 64 < 63 ? " " : "\n");
        folder.Write("slope.asc", grid);
        folder.Write("slope.prj", R"(GEOGCS["WGS 84",DATUM["WGS_1984",SPHEROID["WGS 84",6378137,298.257223563]],)"
                                  R"(PRIMEM["Greenwich",0],UNIT["degree",0.0174532925199433]])");
    }
    unsigned At(const std::vector<unsigned>& pixels, int x, int y) const
    {
        return pixels[static_cast<std::size_t>(y * 256 + x)];
    }
    /// A style of one layer of a picture of two by two colours in the middle of the map.
    std::vector<unsigned> Raster(const std::string& paint)
    {
        WritePicture("quad.png", 2, 2, {0xffff0000, 0xff00ff00, 0xff0000ff, 0xff804020});
        return StyledSource(R"({"type": "image", "url": "quad.png", "coordinates": [)" + Place(64, 64) + "," +
                                Place(192, 64) + "," + Place(192, 192) + "," + Place(64, 192) + "]}",
                            R"({"id": "r", "type": "raster", "source": "s", "paint": {)" + paint + "}}");
    }
};

} // namespace

TEST_F(PixelLayer, PatternsBeginAtTheCornerOfTheWorld)
{
    std::vector<unsigned> stripes(16 * 16, 0xff0000ff);
    for (std::size_t i = 0; i < stripes.size(); ++i)
        stripes[i] = i % 16 < 8 ? 0xffff0000 : stripes[i];
    WritePicture("sprite.png", 16, 16, stripes);
    folder.Write("sprite.json", R"({"p": {"x": 0, "y": 0, "width": 16, "height": 16, "pixelRatio": 1}})");
    for (const char* const layer : {R"({"id": "b", "type": "background", "paint": {"background-pattern": "p"}})",
                                    R"({"id": "f", "type": "fill", "source": "s", "paint": {"fill-pattern": "p"}})"})
    {
        const auto styled =
            Styled(Geometry("Polygon", {{{-9, -9}, {300, -9}, {300, 300}, {-9, 300}, {-9, -9}}}), layer);
        // The world begins 128 pixels left of the picture, which is a multiple of the pattern.
        for (const int x : {2, 18, 130, 242})
            EXPECT_EQ(At(styled, x, 100), 0xffff0000u) << layer << x;
        for (const int x : {10, 26, 138, 250})
            EXPECT_EQ(At(styled, x, 100), 0xff0000ffu) << layer << x;
    }
}

TEST_F(PixelLayer, LinePatternsAreAsHighAsTheLineIsWide)
{
    // The top of a picture is on the right of the line, which goes from left to right.
    // Above blue with a green right half, below red.
    std::vector<unsigned> picture(8 * 8, 0xffff0000);
    for (std::size_t i = 0; i < 32; ++i)
        picture[i] = i % 8 < 4 ? 0xff0000ff : 0xff00ff00;
    WritePicture("sprite.png", 8, 8, picture);
    folder.Write("sprite.json", R"({"p": {"x": 0, "y": 0, "width": 8, "height": 8, "pixelRatio": 1}})");
    const auto styled = Styled(Geometry("LineString", {{{20, 100}, {220, 100}}}),
                               R"({"id": "l", "type": "line", "source": "s",
        "paint": {"line-pattern": "p", "line-width": 32}})");
    for (const int x : {28, 60, 92})
    {
        EXPECT_EQ(At(styled, x, 112), 0xff0000ffu) << x;
        EXPECT_EQ(At(styled, x + 16, 112), 0xff00ff00u) << x;
        EXPECT_EQ(At(styled, x, 88), 0xffff0000u) << x;
    }
    EXPECT_EQ(At(styled, 60, 82), 0u);
    EXPECT_EQ(At(styled, 60, 118), 0u);
}

TEST_F(PixelLayer, RastersFillTheirCorners)
{
    const auto styled = Raster(R"("raster-resampling": "nearest")");
    EXPECT_EQ(At(styled, 66, 66), 0xffff0000u);
    EXPECT_EQ(At(styled, 190, 66), 0xff00ff00u);
    EXPECT_EQ(At(styled, 66, 190), 0xff0000ffu);
    EXPECT_EQ(At(styled, 190, 190), 0xff804020u);
    EXPECT_EQ(At(styled, 60, 100), 0u);
    EXPECT_EQ(Drawn(styled), 128u * 128u);
}

TEST_F(PixelLayer, RastersAreMixedBetweenTheirPixels)
{
    const auto styled = Raster("");
    EXPECT_EQ(At(styled, 66, 66), 0xffff0000u);
    const unsigned middle = At(styled, 128, 70);
    EXPECT_NEAR(middle >> 16 & 255, 127.0, 3.0);
    EXPECT_NEAR(middle >> 8 & 255, 127.0, 3.0);
}

TEST_F(PixelLayer, RasterColoursChange)
{
    const std::string nearest = R"("raster-resampling": "nearest", )";
    EXPECT_EQ(At(Raster(nearest + R"("raster-hue-rotate": 120)"), 66, 66), 0xff00ff00u);
    EXPECT_EQ(At(Raster(nearest + R"("raster-saturation": -1)"), 66, 66), 0xff555555u);
    EXPECT_EQ(At(Raster(nearest + R"("raster-brightness-max": 0.5)"), 66, 66), 0xff800000u);
    EXPECT_EQ(At(Raster(nearest + R"("raster-brightness-min": 0.5)"), 66, 66), 0xffff8080u);
    EXPECT_EQ(At(Raster(nearest + R"("raster-contrast": -1)"), 66, 66), 0xff808080u);
    EXPECT_NEAR(At(Raster(nearest + R"("raster-opacity": 0.4)"), 66, 66) >> 24, 102.0, 1.0);
}

TEST_F(PixelLayer, SlopesTowardTheLightAreLitAndOthersShaded)
{
    GDALAllRegister();
    // A roof that falls to the west and to the east.
    std::string grid = "ncols 64\nnrows 64\nxllcorner -8\nyllcorner -8\ncellsize 0.25\n";
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            grid += std::to_string(100000 - 3000 * std::abs(x - 32)) + (x < 63 ? " " : "\n");
    folder.Write("roof.asc", grid);
    folder.Write("roof.prj", R"(GEOGCS["WGS 84",DATUM["WGS_1984",SPHEROID["WGS 84",6378137,298.257223563]],)"
                             R"(PRIMEM["Greenwich",0],UNIT["degree",0.0174532925199433]])");
    for (const char* const method : {"standard", "basic", "combined", "igor", "multidirectional"})
    {
        const auto styled = StyledSource(R"({"type": "raster-dem", "url": "roof.asc"})",
                                         R"({"id": "h", "type": "hillshade", "source": "s", "paint": {
            "hillshade-illumination-direction": 270, "hillshade-shadow-color": "#ff0000",
            "hillshade-highlight-color": "#00ff00", "hillshade-accent-color": "#0000ff00", "hillshade-method": ")" +
                                             std::string(method) + "\"}}");
        const unsigned west = At(styled, 128 - 6, 128);
        const unsigned east = At(styled, 128 + 6, 128);
        EXPECT_GT(west >> 8 & 255, west >> 16 & 255) << method;
        EXPECT_GT(east >> 16 & 255, east >> 8 & 255) << method;
    }
}

TEST_F(PixelLayer, HeightsHaveTheColoursOfTheirRamp)
{
    WriteSlope(100.0);
    const auto drawn = [&](const std::string& paint)
    {
        return StyledSource(R"({"type": "raster-dem", "url": "slope.asc"})",
                            R"({"id": "r", "type": "color-relief", "source": "s", "paint": {)" + paint + "}}");
    };
    const std::string ramp = R"("color-relief-color": ["step", ["elevation"], "#ff0000", 3200, "#0000ff"])";
    const auto steps = drawn(ramp);
    EXPECT_EQ(At(steps, 128 - 4, 128), 0xffff0000u);
    EXPECT_EQ(At(steps, 128 + 4, 128), 0xff0000ffu);
    EXPECT_NEAR(At(drawn(ramp + R"(, "color-relief-opacity": 0.4)"), 128 + 4, 128) >> 24, 102.0, 1.0);
    const auto blend =
        drawn(R"("color-relief-color": ["interpolate", ["linear"], ["elevation"], 0, "#000000", 6400, "#ffffff"])");
    EXPECT_NEAR(At(blend, 128, 128) & 255, 127.0, 6.0);
}

TEST_F(PixelLayer, ShallowHeightsKeepTheirShades)
{
    WriteSlope(0.01);
    const auto drawn = StyledSource(
        R"({"type": "raster-dem", "url": "slope.asc"})",
        R"({"id": "r", "type": "color-relief", "source": "s", "paint": {"color-relief-color": ["interpolate", ["linear"],
        ["elevation"], 0, "#000000", 0.64, "#ffffff"]}})");
    std::set<unsigned> shades;
    for (int x = 0; x < 256; ++x)
        shades.insert(At(drawn, x, 128));
    EXPECT_GT(shades.size(), 20u);
}

TEST(Hillshade, FlatGroundIsTransparentByTheStandardMethod)
{
    const txmap::HillshadeLook look{"standard", 0.5, {}, {txmap::HillshadeLight()}};
    EXPECT_EQ(txmap::HillshadeColor(look, 0.0, 0.0).Packed(), 0u);
}
