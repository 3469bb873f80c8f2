// Labels through cairo, compared with what direct cairo calls draw over the same map.
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/txmap/support/LabelPicture.h>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/TemporaryFolder.h>

namespace
{

const std::vector<std::string> kCairo = {"--text", "cairo"};
constexpr double kTurn = 6.283185307179586;
// The size of a country's name and of a place's, where --label-size is the first.
constexpr int kLabelSize = 26;
constexpr int kPlaceSize = 18;

std::vector<std::string> Cairo(std::vector<std::string> options)
{
    options.insert(options.end(), kCairo.begin(), kCairo.end());
    return options;
}

/// A picture in cairo's own form, to be drawn on.
class Canvas
{
public:
    explicit Canvas(const Picture& picture)
        : surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, picture.Width(), picture.Height()),
                  &cairo_surface_destroy),
          context(cairo_create(surface.get()), &cairo_destroy)
    {
        for (int y = 0; y < picture.Height(); ++y)
            for (int x = 0; x < picture.Width(); ++x)
            {
                const Pixel& pixel = picture.At(x, y);
                Row(y)[x] = 0xFF000000u | std::uint32_t{pixel[0]} << 16 | std::uint32_t{pixel[1]} << 8 | pixel[2];
            }
        cairo_surface_mark_dirty(surface.get());
        const std::unique_ptr<cairo_font_options_t, decltype(&cairo_font_options_destroy)> options(
            cairo_font_options_create(), &cairo_font_options_destroy);
        cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GOOD);
        cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_MEDIUM);
        cairo_set_font_options(context.get(), options.get());
        cairo_select_font_face(context.get(), "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
        cairo_set_font_size(context.get(), kPlaceSize);
    }

    cairo_t* Context() const { return context.get(); }

    /// How many pixels a picture has that this one has not.
    int Differs(const Picture& picture) const
    {
        cairo_surface_flush(surface.get());
        int count = 0;
        for (int y = 0; y < picture.Height(); ++y)
            for (int x = 0; x < picture.Width(); ++x)
            {
                const std::uint32_t p = Row(y)[x];
                const Pixel pixel{static_cast<std::uint8_t>(p >> 16), static_cast<std::uint8_t>(p >> 8),
                                  static_cast<std::uint8_t>(p), 255};
                count += pixel != picture.At(x, y);
            }
        return count;
    }

private:
    std::uint32_t* Row(int y) const
    {
        return reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface.get()) +
                                                std::ptrdiff_t{y} * cairo_image_surface_get_stride(surface.get()));
    }

    std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface;
    std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context;
};

struct Color
{
    int red;
    int green;
    int blue;
};

constexpr Color kPlace{48, 48, 54};

/// Where the middle of a label's left edge lies, right of the place of these tests.
struct Place
{
    double left;
    double middle;
};

/// @param halo how far the halo reaches.
Place RightOfThePlace(double halo)
{
    const double marker = (2.2 + 1.2 / 2.0) * 0.5;
    return {40.0 / 360.0 * 1000.0 + marker + halo + 1.0 + 0.01, 250.0};
}

/// Paints lines, centred one below the other.
/// @param box whether what fonts keep free above letters without accents counts.
void PaintLines(cairo_t* context, const std::vector<std::string>& lines, const Place& place, const Color& color,
                bool accents = false)
{
    cairo_font_extents_t font{};
    cairo_font_extents(context, &font);
    const double step = font.ascent + font.descent;
    const double blank = accents ? 0.0 : std::max(0.0, font.ascent - 0.8 * kPlaceSize);
    double widest = 0.0;
    std::vector<double> widths;
    for (const std::string& line : lines)
    {
        cairo_text_extents_t text{};
        cairo_text_extents(context, line.c_str(), &text);
        widths.push_back(text.x_advance);
        widest = std::max(widest, text.x_advance);
    }
    const double height = step * static_cast<double>(lines.size()) - blank;
    cairo_set_source_rgb(context, color.red / 255.0, color.green / 255.0, color.blue / 255.0);
    for (std::size_t i = 0; i < lines.size(); ++i)
    {
        cairo_save(context);
        cairo_translate(context, place.left + (widest - widths[i]) / 2.0,
                        place.middle - height / 2.0 - blank + step * static_cast<double>(i));
        cairo_move_to(context, 0.0, font.ascent);
        cairo_text_path(context, lines[i].c_str());
        cairo_fill(context);
        cairo_restore(context);
    }
}

const std::string kSize = std::to_string(kLabelSize);

/// Draws a place with a name through cairo.
/// @return how many pixels differ from the picture without the name on which its lines were painted directly.
int DifferenceFrom(const std::string& json, const std::vector<std::string>& lines, bool accents = false)
{
    const Canvas twin(DrawPlace("null"));
    PaintLines(twin.Context(), lines, RightOfThePlace(0.0), kPlace, accents);
    return twin.Differs(DrawPlace(json, Cairo({"--label-size", kSize, "--label-halo", "0:white"})));
}

/// The ends of the runs of columns in which a label has ink.
std::vector<std::pair<int, int>> InkedColumns(const Picture& labelled, const Picture& bare)
{
    std::vector<std::pair<int, int>> runs;
    for (int x = 0; x < labelled.Width(); ++x)
    {
        bool ink = false;
        for (int y = 0; y < labelled.Height() && !ink; ++y)
            ink = Distance(labelled.At(x, y), bare.At(x, y)) > 60;
        if (!ink)
            continue;
        if (runs.empty() || runs.back().second != x)
            runs.emplace_back(x, x);
        runs.back().second = x + 1;
    }
    return runs;
}

std::string CountryNamed(const std::string& json)
{
    return R"({"type":"FeatureCollection","features":[{"type":"Feature","properties":{"mapcolor":1,"name":)" + json +
           R"(},"geometry":{"type":"Polygon","coordinates":[[[-120,-60],[120,-60],[120,60],[-120,60],[-120,-60]]]}}]})";
}

Picture DrawCountry(const std::string& json, const std::vector<std::string>& options)
{
    const TemporaryFolder folder;
    std::vector<std::string> arguments = {folder.Write("in.geojson", CountryNamed(json))};
    arguments.insert(arguments.end(),
                     {"--label-field", "name", "--bbox", "-180,-90,180,90", "--size", "1000x500", "--graticule", "0"});
    arguments.insert(arguments.end(), options.begin(), options.end());
    return Draw(arguments);
}

} // namespace

TEST(CairoLabel, IsWhatCairoDraws)
{
    EXPECT_EQ(DifferenceFrom("\"Nairobi\"", {"Nairobi"}), 0);
    EXPECT_EQ(DifferenceFrom("\"  A &amp; W: 'jl' \"", {"A &amp; W: 'jl'"}), 0);
    EXPECT_EQ(DifferenceFrom("\"Łódź\"", {"Łódź"}, true), 0);
    EXPECT_GT(DifferenceFrom("\"Nairobi\"", {""}), 100);
}

TEST(CairoLabel, HasItsLinesCentredByTheirAdvances)
{
    EXPECT_EQ(DifferenceFrom("\"ill\\nNairobi WWW\\njj\"", {"ill", "Nairobi WWW", "jj"}), 0);
    EXPECT_EQ(DifferenceFrom("\"São Tomé\\ne Príncipe\"", {"São Tomé", "e Príncipe"}, true), 0);
}

TEST(CairoLabel, HasItsHaloAroundAllLettersWithoutSpikes)
{
    // The corners of these letters are sharp, and the second line's halo reaches into the first one.
    const std::vector<std::string> lines = {"MAWNjgy", "VvNldb"};
    const Canvas twin(DrawPlace("null"));
    const Place place = RightOfThePlace(6.0);
    for (double radius = 6.0; radius > 0.0; radius -= 1.0)
    {
        const int copies = std::max(16, static_cast<int>(std::ceil(kTurn * radius)));
        for (int i = 0; i < copies; ++i)
            PaintLines(twin.Context(), lines,
                       {place.left + radius * std::cos(kTurn * i / copies),
                        place.middle + radius * std::sin(kTurn * i / copies)},
                       {255, 0, 0});
    }
    PaintLines(twin.Context(), lines, place, kPlace);
    EXPECT_EQ(twin.Differs(DrawPlace("\"MAWNjgy\\nVvNldb\"", Cairo({"--label-size", kSize, "--label-halo", "6:red"}))),
              0);
}

TEST(CairoLabel, DiffersFromQtsAndLiesWhereThatLies)
{
    for (const char* const name : {"\"Nairobi\"", "\"one\\ntwo or three\"", "\"Łódź\"", "\"MAWN jgy\""})
    {
        const std::vector<std::string> options = {"--label-size", "40", "--label-halo", "2:white"};
        const Difference qt = InkOf(name, options);
        const Difference cairo = InkOf(name, Cairo(options));
        EXPECT_GT(Compare(DrawPlace(name, options), DrawPlace(name, Cairo(options))).pixels, 20) << name;
        EXPECT_NEAR(cairo.left, qt.left, 3) << name;
        EXPECT_NEAR(cairo.top, qt.top, 3) << name;
        EXPECT_NEAR(cairo.height, qt.height, 3) << name;
        ExpectAbout(cairo.width, qt.width, 0.1, name);
    }
}

TEST(CairoLabel, QtDrawsWhenItIsAskedForOrNothingIs)
{
    EXPECT_EQ(DrawPlace("\"<BOL>Nairobi</BOL>\"", {"--text", "qt"}).Pixels(),
              DrawPlace("\"<BOL>Nairobi</BOL>\"").Pixels());
}

TEST(CairoLabel, ShowsNoLabelTags)
{
    for (const auto& [name, plain] : {std::pair{"\"<BOL>xyzzy</BOL>\"", "\"xyzzy\""},
                                      {"\"<ita>xy</ita><UND>zzy\"", "\"xyzzy\""},
                                      {"\"a <ACP> b</ACP> <scp></scp>\"", "\"a b\""},
                                      {"\"<BOL>one\\ntwo</BOL>\"", "\"one\\ntwo\""},
                                      {"\"soft\\u00adhyphen\\u200d\\ufe0f\"", "\"softhyphen\""},
                                      {"\"thin\\u2009space\"", "\"thin space\""}})
        EXPECT_EQ(DrawPlace(name, kCairo).Pixels(), DrawPlace(plain, kCairo).Pixels()) << name;
    // A name in tags breaks into lines like one without.
    EXPECT_EQ(DrawCountry("\"<BOL>Hither and</BOL> Thither\"", Cairo({"--label-size", "120"})).Pixels(),
              DrawCountry("\"Hither and Thither\"", Cairo({"--label-size", "120"})).Pixels());
    EXPECT_EQ(InkOf("\"<BOL></BOL>\"", kCairo).pixels, 0);
}

TEST(CairoLabel, ShowsForeignTagsAndEntitiesAsTheyStandInTheData)
{
    EXPECT_EQ(DifferenceFrom("\"<b>x</b>\"", {"<b>x</b>"}), 0);
    EXPECT_EQ(DifferenceFrom("\"&lt;x&lt; <Bol> <img src=a>\"", {"&lt;x&lt; <Bol> <img src=a>"}), 0);
}

TEST(CairoLabel, KeepsTheSpacesBetweenSpacedWords)
{
    for (const std::vector<std::string>& path : {kCairo, {"--text", "qt"}})
    {
        const Picture bare = DrawCountry("null", {});
        std::vector<std::string> options = {"--label-size", "24", "--label-halo", "0:white"};
        options.insert(options.end(), path.begin(), path.end());
        const auto runs = InkedColumns(DrawCountry("\"HHH HHH\"", options), bare);
        ASSERT_EQ(runs.size(), 6u) << path[1];
        std::vector<int> gaps;
        for (std::size_t i = 1; i < runs.size(); ++i)
            gaps.push_back(runs[i].first - runs[i - 1].second);
        for (const std::size_t i : {0u, 1u, 3u, 4u})
        {
            EXPECT_NEAR(gaps[i], gaps[0], 1) << path[1];
            EXPECT_GT(gaps[2], 1.8 * gaps[i]) << path[1];
        }
        // The country's middle is the picture's, and so is the name's.
        EXPECT_NEAR((runs.front().first + runs.back().second) / 2.0, 500.0, 2.5) << path[1];
    }
}

TEST(CairoLabel, SetsAccentsOverTheirLettersWhenTheseAreSpaced)
{
    const Picture bare = DrawCountry("null", {});
    const std::vector<std::string> options = Cairo({"--label-size", "24", "--label-halo", "0:white"});
    const Picture accented = DrawCountry("\"Ho\\u0302H\"", options);
    const Picture plain = DrawCountry("\"HoH\"", options);
    const auto runs = InkedColumns(accented, bare);
    const auto plainRuns = InkedColumns(plain, bare);
    ASSERT_EQ(runs.size(), 3u);
    ASSERT_EQ(plainRuns.size(), 3u);
    // Names of another height may lie elsewhere.
    for (std::size_t i = 0; i < runs.size(); ++i)
    {
        EXPECT_EQ(runs[i].first - runs[0].first, plainRuns[i].first - plainRuns[0].first);
        EXPECT_EQ(runs[i].second - runs[0].first, plainRuns[i].second - plainRuns[0].first);
    }
    EXPECT_NE(accented.Pixels(), plain.Pixels());
}
