// A marker that is a character waits for a label of the same surface while cairo draws, and never while Qt does.
#include <tests/txpluginqt/cairo/FontDouble.h>
#include <tests/txpluginqt/cairo/OtherThread.h>
#include <tests/txpluginqt/text/cairo/ShortLabel.h>

#include "CairoSymbols.h"

using namespace TZObjects;

namespace
{

/// A host's font at which the test stops markers, by what they ask and what they set, and labels.
class GatedFont final : public FontDouble
{
public:
    using FontDouble::FontDouble;

    void SetFontName(TXString value) override
    {
        naming.Pass();
        FontDouble::SetFontName(value);
    }
    TXString GetFontName() const override
    {
        beingNamed.Pass();
        return FontDouble::GetFontName();
    }

    Gate naming;
    mutable Gate beingNamed;
};

class FontMarkerLockTest : public QuietTest
{
protected:
    FontMarkerLockTest()
    {
        twins.Surface().SelectFont(font.get());
        font->onQuestion = [this](FontDouble::Question question)
        {
            if (question == FontDouble::WordSpacing)
                label.Pass();
        };
    }

    auto Marker()
    {
        return [this] { return ::Draw(twins.Surface(), symbol); };
    }
    auto Label()
    {
        return [this] { return ::Draw(twins.Surface(), Entry::StringAt, call); };
    }
    void ExpectMarker()
    {
        twins.SelectDirectly(symbol, Look());
        ::DrawDirectly(twins.Direct(), symbol, Look().pen);
    }
    void ExpectLabel() { DrawDirectly(twins.Direct(), Entry::StringAt, call, Look()); }

    CairoMarkerTwins twins;
    TXRefPtr<GatedFont> font{new GatedFont(MakeFont(Look()))};
    Gate label;
    CharacterSymbol symbol;
    ShortLabel call;
};

TEST_F(FontMarkerLockTest, AMarkerWaitsForALabel)
{
    label.Arm();
    OtherThread first(Label());
    ASSERT_TRUE(label.HoldsOne());
    OtherThread second(Marker());
    EXPECT_TRUE(second.Waits());
    EXPECT_TRUE(twins.Untouched());
    label.Open();
    EXPECT_TRUE(first.Drawn());
    EXPECT_TRUE(second.Drawn());
    ExpectLabel();
    ExpectMarker();
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(FontMarkerLockTest, ALabelWaitsForAMarkerFromItsLookAtTheFontsName)
{
    font->beingNamed.Arm();
    OtherThread first(Marker());
    ASSERT_TRUE(font->beingNamed.HoldsOne());
    OtherThread second(Label());
    EXPECT_TRUE(second.Waits());
    EXPECT_TRUE(twins.Untouched());
    font->beingNamed.Open();
    EXPECT_TRUE(first.Drawn());
    EXPECT_TRUE(second.Drawn());
    ExpectMarker();
    ExpectLabel();
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(FontMarkerLockTest, AMarkerWaitsForAnotherThatNamesTheFont)
{
    symbol.fontName = L"DejaVu Serif";
    font->naming.Arm();
    OtherThread first(Marker());
    ASSERT_TRUE(font->naming.HoldsOne());
    OtherThread second(Marker());
    EXPECT_TRUE(second.Waits());
    EXPECT_TRUE(twins.Untouched());
    twins.SelectDirectly(symbol, Look());
    font->naming.Open();
    EXPECT_TRUE(first.Drawn());
    EXPECT_TRUE(second.Drawn());
    for (int i = 0; i < 2; ++i)
        ::DrawDirectly(twins.Direct(), symbol, Look().pen);
    EXPECT_TRUE(twins.SameAndInked());
}

TEST_F(FontMarkerLockTest, NoMarkerWaitsWithoutCairo)
{
    twins.Surface().EnableCairoDrawing(false);
    font->naming.Arm();
    OtherThread first(Marker());
    ASSERT_TRUE(font->naming.HoldsOne());
    // The first stands still, so that both do not use the painter at the same time.
    OtherThread second(Marker());
    EXPECT_TRUE(second.Ends());
    font->naming.Open();
    EXPECT_TRUE(first.Drawn());
    EXPECT_TRUE(second.Drawn());
}

TEST_F(FontMarkerLockTest, AVectorMarkerWaitsForNobody)
{
    label.Arm();
    OtherThread first(Label());
    ASSERT_TRUE(label.HoldsOne());
    PointSymbol star;
    star.SetPoints(Star(5, 2, 20.0));
    OtherThread second([&] { return ::Draw(twins.Surface(), Placement::ByAnchor, star); });
    EXPECT_TRUE(second.Ends());
    label.Open();
    EXPECT_TRUE(first.Drawn());
    EXPECT_TRUE(second.Drawn());
}

TEST_F(FontMarkerLockTest, IsGivenBackByEveryMarker)
{
    symbol.x = 1e300;
    EXPECT_FALSE(::Draw(twins.Surface(), symbol));
    symbol.x = 40.0;
    symbol.character = static_cast<short>(0xD800);
    EXPECT_TRUE(::Draw(twins.Surface(), symbol));
    symbol.character = 'R';
    EXPECT_TRUE(::Draw(twins.Surface(), symbol));
    OtherThread other(Label());
    EXPECT_TRUE(other.Ends());
    EXPECT_TRUE(other.Drawn());
}

} // namespace
