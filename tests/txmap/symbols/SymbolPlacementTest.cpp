#include <string>

#include <gtest/gtest.h>
#include <tests/support/RandomSource.h>
#include <txmap/symbols/SymbolPlacement.h>

using namespace TZObjects;
using namespace txmap;

namespace
{

const TXRect kArea(0.0, 1000.0, 0.0, 1000.0);

TXRect At(double x, double y) { return {x - 10.0, x + 10.0, y - 5.0, y + 5.0}; }

/// Layers of symbols with boxes of 20 x 10 for text, and icons of the same size.
struct TestLayer : LayerCandidates
{
    SymbolCandidate& Add(const std::vector<TextChoice>& places, bool hasIcon, const TXPoint& icon = {})
    {
        SymbolCandidate candidate;
        candidate.hasText = !places.empty();
        candidate.firstChoice = static_cast<std::uint32_t>(choices.size());
        candidate.choices = static_cast<std::uint32_t>(places.size());
        choices.insert(choices.end(), places.begin(), places.end());
        candidate.hasIcon = hasIcon;
        candidate.icon = At(icon.x, icon.y);
        hasTexts = hasTexts || candidate.hasText;
        hasIcons = hasIcons || hasIcon;
        symbols.push_back(candidate);
        return symbols.back();
    }
    void AddText(double x, double y) { Add({{At(x, y), {}}}, false); }
    void AddIcon(double x, double y) { Add({}, true, {x, y}); }
    /// An icon with its text below.
    void AddBoth(double x, double y) { Add({{At(x, y + 20.0), {}}}, true, {x, y}); }

    /// "T" for a text that is shown, "I" for an icon, "B" for both, "-" for nothing.
    std::string Shown(CollisionIndex& index) const
    {
        std::string shown;
        for (const SymbolVerdict& verdict : PlaceSymbols(*this, index))
            shown += verdict.text ? (verdict.icon ? 'B' : 'T') : (verdict.icon ? 'I' : '-');
        return shown;
    }
    std::string Shown() const
    {
        CollisionIndex index(kArea);
        return Shown(index);
    }
};

} // namespace

TEST(SymbolPlacement, FirstComeFirstServed)
{
    TestLayer layer;
    layer.AddText(100.0, 100.0);
    layer.AddText(110.0, 100.0);
    layer.AddText(130.0, 100.0);
    EXPECT_EQ(layer.Shown(), "T-T");
}

TEST(SymbolPlacement, LayersShareTheRoom)
{
    TestLayer above;
    above.AddIcon(100.0, 100.0);
    TestLayer below;
    below.AddText(110.0, 100.0);
    below.AddText(200.0, 100.0);
    CollisionIndex index(kArea);
    EXPECT_EQ(above.Shown(index), "I");
    EXPECT_EQ(below.Shown(index), "-T");
}

TEST(SymbolPlacement, OverlapOfTexts)
{
    for (const auto& [overlap, shown] :
         {std::pair{Overlap::Never, "T--"}, {Overlap::Cooperative, "TTT"}, {Overlap::Always, "TTT"}})
    {
        TestLayer layer;
        layer.text.overlap = overlap;
        layer.AddText(100.0, 100.0);
        layer.AddText(105.0, 100.0);
        layer.AddText(110.0, 100.0);
        EXPECT_EQ(layer.Shown(), shown);
    }
}

TEST(SymbolPlacement, CooperativeKeepsClearOfThoseThatNeverOverlap)
{
    TestLayer above;
    above.AddText(100.0, 100.0);
    TestLayer below;
    below.text.overlap = Overlap::Cooperative;
    below.AddText(105.0, 100.0);
    below.AddText(200.0, 100.0);
    below.AddText(205.0, 100.0);
    CollisionIndex index(kArea);
    EXPECT_EQ(above.Shown(index), "T");
    EXPECT_EQ(below.Shown(index), "-TT");
}

TEST(SymbolPlacement, WhatIsIgnoredTakesNoRoomButNeedsIt)
{
    TestLayer layer;
    layer.text.ignored = true;
    layer.AddText(100.0, 100.0);
    layer.AddText(105.0, 100.0);
    CollisionIndex index(kArea);
    EXPECT_EQ(layer.Shown(index), "TT");
    TestLayer other;
    other.AddText(100.0, 100.0);
    EXPECT_EQ(other.Shown(index), "T");
    EXPECT_EQ(layer.Shown(index), "--");
    TestLayer icons;
    icons.icon.ignored = true;
    icons.AddIcon(300.0, 100.0);
    icons.AddIcon(305.0, 100.0);
    icons.AddText(305.0, 100.0);
    EXPECT_EQ(icons.Shown(index), "IIT");
}

TEST(SymbolPlacement, IconAndTextTogetherOrNotAtAll)
{
    // The first has room for its icon only, the second for its text only, the third for both.
    const auto shown = [](bool textOptional, bool iconOptional)
    {
        TestLayer above;
        above.AddText(100.0, 120.0);
        above.AddText(200.0, 100.0);
        TestLayer layer;
        layer.text.optional = textOptional;
        layer.icon.optional = iconOptional;
        layer.AddBoth(100.0, 100.0);
        layer.AddBoth(200.0, 100.0);
        layer.AddBoth(300.0, 100.0);
        CollisionIndex index(kArea);
        above.Shown(index);
        return layer.Shown(index);
    };
    EXPECT_EQ(shown(false, false), "--B");
    EXPECT_EQ(shown(true, false), "I-B");
    EXPECT_EQ(shown(false, true), "-TB");
    EXPECT_EQ(shown(true, true), "ITB");
}

TEST(SymbolPlacement, WhatIsHiddenTakesNoRoom)
{
    TestLayer layer;
    layer.AddText(100.0, 120.0);
    layer.AddBoth(100.0, 100.0); // Its text has no room.
    layer.AddIcon(100.0, 100.0);
    EXPECT_EQ(layer.Shown(), "T-I");
}

TEST(SymbolPlacement, TextsTakeTheFirstFreePlace)
{
    TestLayer layer;
    layer.AddText(100.0, 80.0);
    layer.Add({{At(100.0, 80.0), {}}, {At(100.0, 120.0), {}}}, false);
    layer.Add({{At(100.0, 80.0), {}}, {At(100.0, 120.0), {}}}, false);
    CollisionIndex index(kArea);
    const std::vector<SymbolVerdict> verdicts = PlaceSymbols(layer, index);
    EXPECT_TRUE(verdicts[1].text);
    EXPECT_EQ(verdicts[1].choice, 1u);
    EXPECT_FALSE(verdicts[2].text);
}

TEST(SymbolPlacement, OverlappingTextsPreferAFreePlace)
{
    TestLayer layer;
    layer.text.overlap = Overlap::Always;
    const std::vector<TextChoice> places = {{At(100.0, 80.0), {}}, {At(100.0, 120.0), {}}};
    for (int i = 0; i < 3; ++i)
        layer.Add(places, false);
    CollisionIndex index(kArea);
    const std::vector<SymbolVerdict> verdicts = PlaceSymbols(layer, index);
    EXPECT_EQ(verdicts[0].choice, 0u);
    EXPECT_EQ(verdicts[1].choice, 1u);
    EXPECT_EQ(verdicts[2].choice, 0u);
    EXPECT_TRUE(verdicts[2].text);
}

TEST(SymbolPlacement, AnIconAroundTheTextMovesWithIt)
{
    TestLayer layer;
    layer.AddIcon(100.0, 80.0);
    SymbolCandidate& symbol =
        layer.Add({{At(100.0, 60.0), At(100.0, 80.0)}, {At(100.0, 120.0), At(100.0, 120.0)}}, true, {100.0, 100.0});
    symbol.movesIcon = true;
    layer.AddIcon(100.0, 120.0);
    CollisionIndex index(kArea);
    const std::vector<SymbolVerdict> verdicts = PlaceSymbols(layer, index);
    EXPECT_TRUE(verdicts[1].text && verdicts[1].icon);
    EXPECT_EQ(verdicts[1].choice, 1u);
    EXPECT_FALSE(verdicts[2].icon);
}

TEST(SymbolPlacement, TextsAlongLinesTakeCircles)
{
    TestLayer layer;
    layer.hasTexts = true;
    const auto add = [&](double x)
    {
        SymbolCandidate& symbol = layer.Add({}, false);
        symbol.hasText = symbol.followsLine = true;
        symbol.firstCircle = static_cast<std::uint32_t>(layer.circles.size());
        symbol.circles = 3;
        for (int i = 0; i < 3; ++i)
            layer.circles.push_back({{x + 10.0 * i, 100.0}, 5.0});
    };
    add(100.0);
    add(125.0);
    add(131.0);
    SymbolCandidate& unfitted = layer.Add({}, false);
    unfitted.hasText = unfitted.followsLine = true;
    EXPECT_EQ(layer.Shown(), "T-T-");
}

TEST(SymbolPlacement, TheSameWhateverIsAskedBefore)
{
    RandomSource random(11);
    TestLayer layer;
    for (int i = 0; i < 500; ++i)
        layer.AddBoth(random.Real(0.0, 1000.0), random.Real(0.0, 1000.0));
    const std::string first = layer.Shown();
    EXPECT_EQ(layer.Shown(), first);
    EXPECT_NE(first.find('B'), std::string::npos);
    EXPECT_NE(first.find('-'), std::string::npos);
}
