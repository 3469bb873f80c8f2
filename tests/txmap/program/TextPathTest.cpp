// What both text paths must hold, whatever the data.
#include <sys/stat.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tests/support/RandomSource.h>
#include <tests/txmap/support/LabelPicture.h>
#include <tests/txmap/support/ProgramRun.h>
#include <tests/txmap/support/TemporaryFolder.h>

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

namespace
{

/// Runs txmap over a place with a name, as JSON has it.
ProgramRun RunPlace(const std::string& json, std::vector<std::string> options, const std::string& output)
{
    const TemporaryFolder folder;
    options.insert(options.begin(), folder.Write("in.geojson", PlaceNamed(json)));
    options.insert(options.end(),
                   {"--bbox", "-180,-90,180,90", "--size", "1000x500", "--graticule", "0", "-o", output});
    return RunTxmap(options);
}

long LinesOf(const std::string& text) { return std::count(text.begin(), text.end(), '\n'); }

std::string Repeated(const std::string& text, int times)
{
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

/// Places close together, the first of which are named.
std::string ClosePlaces(unsigned seed, int count, int named)
{
    RandomSource random(seed);
    std::ostringstream json;
    json << R"({"type":"FeatureCollection","features":[)";
    for (int i = 0; i < count; ++i)
    {
        json << (i ? "," : "") << R"({"type":"Feature","properties":{"pop_max":)" << 1000 - i << R"(,"name":)";
        if (i < named)
            json << "\"MAWN jgy " << i << "\"";
        else
            json << "null";
        const double longitude = random.Real(-60.0, 60.0);
        json << R"(},"geometry":{"type":"Point","coordinates":[)" << longitude << "," << random.Real(-40.0, 40.0)
             << "]}}";
    }
    json << "]}";
    return json.str();
}

class TextPaths : public ::testing::TestWithParam<const char*>
{
};

} // namespace

TEST_P(TextPaths, LetNoLabelTouchTheLettersOfAnother)
{
    constexpr int kPlaces = 8;
    for (const unsigned seed : {1u, 2u, 3u})
        for (const char* const halo : {"0:white", "3:white"})
        {
            const auto draw = [&](int named)
            {
                const TemporaryFolder folder;
                return Draw({folder.Write("in.geojson", ClosePlaces(seed, kPlaces, named)), "--label-field", "name",
                             "--text", GetParam(), "--bbox", "-180,-90,180,90", "--size", "720x360", "--label-size",
                             "20", "--label-halo", halo, "--graticule", "0"});
            };
            // One name more each time: what is written of the names before stays as it is.
            Picture before = draw(0);
            int written = 0;
            std::vector<bool> letters(before.Pixels().size(), false);
            for (int named = 1; named <= kPlaces; ++named)
            {
                const Picture after = draw(named);
                int touched = 0;
                for (std::size_t i = 0; i < letters.size(); ++i)
                    if (after.Pixels()[i] != before.Pixels()[i])
                    {
                        touched += letters[i];
                        // Halos are white, and may touch each other.
                        letters[i] = after.Pixels()[i][2] < 215;
                        written += letters[i];
                    }
                EXPECT_EQ(touched, 0) << "seed " << seed << ", halo " << halo << ", name " << named;
                before = after;
            }
            EXPECT_GT(written, kPlaces * 50) << "seed " << seed << ", halo " << halo;
        }
}

TEST_P(TextPaths, SurviveWhatStrangersNameTheirPlaces)
{
    const TemporaryFolder folder;
    // Whoever opened this pipe would wait for ever.
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    const std::string pipe = folder / "pipe";
    std::vector<std::string> names = {Repeated("<table><tr><td>", 40),
                                      "<BOL>" + Repeated("<table><tr><td>", 40),
                                      "<table cellpadding='100000000'><tr><td>x",
                                      "<BOL>x</BOL><img src='" + pipe + "'>",
                                      "<img src='file://" + pipe + "'><link rel='stylesheet' href='" + pipe + "'>",
                                      "<style>@import url(" + pipe + ");</style><BOL>x",
                                      Repeated("W", 100000),
                                      Repeated("<BOL>", 50000),
                                      Repeated("<BOL>i</BOL>", 20000),
                                      Repeated("a\\n", 20000),
                                      Repeated("a ", 50000),
                                      Repeated("|", 3000),
                                      Repeated("e\\u0301\\u0301", 1000),
                                      "\\u0000",
                                      "a\\u0000b",
                                      "\\u0001\\u0002\\u0007\\u0008\\t\\u001b[31m\\u007f\\u0080\\u009c",
                                      "\\ud83d\\ude00 \\ud808\\udc00 \\udbff\\udfff",
                                      "\\ud800 \\udc00\\ud800",
                                      "\\u202e\\u2066abc\\u200f\\ufeff\\ufffe\\uffff",
                                      "%s%n%d &#0; &#x110000; &amp;&lt;",
                                      "\\u2028\\u2029\\u0085"};
    RandomSource random(7);
    const std::vector<std::string> pieces = {
        "<",   ">",       "&",       ";",       "BOL", "/", "<BOL>", "</BOL>", "<scp>", "lt",
        "\\n", "\\u0000", "\\u0301", "\\u200d", "|",   " ", "x",     "北",     "\\t",   "\\ud83d\\ude00"};
    for (int i = 0; i < 12; ++i)
    {
        std::string name;
        for (int k = 0; k < 60; ++k)
            name += random.OneOf(pieces);
        names.push_back(name);
    }
    for (const std::string& name : names)
    {
        const ProgramRun run =
            RunPlace("\"" + name + "\"", {"--label-field", "name", "--text", GetParam()}, folder / "map.png");
        EXPECT_EQ(run.exitCode, 0) << name.substr(0, 100) << run.errors;
        EXPECT_LE(LinesOf(run.errors), 1) << run.errors;
        if (!run.errors.empty())
        {
            EXPECT_THAT(run.errors, AllOf(StartsWith("txmap: warning: "), HasSubstr("U+"))) << name.substr(0, 100);
        }
        EXPECT_EQ(Picture(folder / "map.png").Width(), 1000) << name.substr(0, 100);
    }
}

INSTANTIATE_TEST_SUITE_P(Through, TextPaths, ::testing::Values("qt", "cairo"),
                         [](const auto& test) { return std::string(test.param); });

TEST(TextPathOption, OfAnUnknownNameEndsWithOneLine)
{
    const TemporaryFolder folder;
    const ProgramRun run = RunPlace("\"x\"", {"--text", "pango"}, folder / "map.png");
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_THAT(run.errors, StartsWith("txmap: --text pango: "));
    EXPECT_EQ(LinesOf(run.errors), 1);
    EXPECT_EQ(folder.Names(), std::set<std::string>());
}

TEST(TextPathOption, AloneWritesNames)
{
    const TemporaryFolder folder;
    EXPECT_EQ(RunPlace("\"Nairobi\"", {"--text", "cairo"}, folder / "alone.png").errors, "");
    EXPECT_EQ(RunPlace("\"Nairobi\"", {"--text", "cairo", "--labels"}, folder / "labels.png").errors, "");
    EXPECT_EQ(RunPlace("\"Nairobi\"", {}, folder / "bare.png").errors, "");
    EXPECT_EQ(ContentOf(folder / "alone.png"), ContentOf(folder / "labels.png"));
    EXPECT_NE(ContentOf(folder / "alone.png"), ContentOf(folder / "bare.png"));
}

TEST(CairoCharacters, ThatTheFaceLacksAreReportedInOneLine)
{
    const TemporaryFolder folder;
    const ProgramRun run = RunPlace("\"北京 Beijing\\u00ad\"", {"--text", "cairo"}, folder / "map.png");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.errors, StartsWith("txmap: warning: "));
    EXPECT_THAT(run.errors, AllOf(HasSubstr("DejaVu Sans"), HasSubstr("U+4EAC, U+5317,"), Not(HasSubstr("U+00AD"))));
    EXPECT_EQ(LinesOf(run.errors), 1);
    EXPECT_GT(Compare(Picture(folder / "map.png"), DrawPlace("null")).pixels, 50);
}

TEST(CairoCharacters, ThatNeedTheirNeighboursAreReported)
{
    const TemporaryFolder folder;
    for (const auto& [name, character] : {std::pair{"\"القاهرة\"", "U+0627"}, {"\"ירושלים\"", "U+05D5"}})
    {
        const ProgramRun run = RunPlace(name, {"--text", "cairo"}, folder / "map.png");
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_THAT(run.errors, HasSubstr(character)) << name;
        EXPECT_EQ(LinesOf(run.errors), 1);
    }
}

TEST(CairoCharacters, ThatAreThereAreNotReported)
{
    const TemporaryFolder folder;
    const std::vector<std::vector<std::string>> runs = {
        {"\"北京 Beijing\"", "--text", "qt"},
        {"\"北京 Beijing\"", "--text", "cairo", "--label-font", "WenQuanYi Micro Hei"},
        {"\"Łódź Ελλάδα Россия – <BOL>x</BOL>\"", "--text", "cairo"},
        {"\"thin\\u2009space, \\u200djoiner\"", "--text", "cairo"}};
    for (const std::vector<std::string>& run : runs)
    {
        const ProgramRun result = RunPlace(run[0], {run.begin() + 1, run.end()}, folder / "map.png");
        EXPECT_EQ(result.exitCode, 0) << run[0];
        EXPECT_EQ(result.errors, "") << run[0];
    }
}
