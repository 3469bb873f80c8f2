// Markers and labels through Qt on one surface: each sees what the one before has left.
#include <tests/support/Twins.h>
#include <tests/txpluginqt/graphics/RandomCases.h>
#include <tests/txpluginqt/graphics/SurfaceTest.h>
#include <tests/txpluginqt/text/ExpectedLabel.h>

#include "Symbols.h"
#include "WholeState.h"

using namespace TZObjects;

namespace
{

class MarkersAndLabelsTest : public SurfaceTest
{
protected:
    MarkersAndLabelsTest()
    {
        FontChoice choice;
        choice.family = L"DejaVu Serif";
        choice.height = 17;
        choice.bold = true;
        twins.Surface().SelectFont(MakeFont(choice));
        directFont = DirectFont(choice);
        twins.Direct().setFont(directFont);
        twins.Both([](QPainter& painter) { painter.setPen(QColor(20, 60, 140, 200)); });
        label.text = L"Main";
    }

    void DrawLabel(Entry entry)
    {
        label.font.family = directFont.family().toStdWString();
        label.font.height = directFont.pixelSize();
        label.font.bold = directFont.bold();
        EXPECT_TRUE(::Draw(twins.Surface(), entry, label)) << NameOf(entry);
        twins.Direct().save();
        twins.Direct().setFont(directFont);
        twins.Direct().setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
        DrawDirectly(twins.Direct(), entry, label);
        twins.Direct().restore();
    }
    void DrawSymbol(const CharacterSymbol& symbol)
    {
        EXPECT_TRUE(::Draw(twins.Surface(), symbol)) << symbol;
        DrawDirectly(twins.Direct(), directFont, symbol);
    }
    void DrawSymbol(Placement placement, const PointSymbol& symbol)
    {
        EXPECT_TRUE(::Draw(twins.Surface(), placement, symbol)) << symbol;
        DrawDirectly(twins.Direct(), placement, symbol);
    }

    Twins twins{150, 100};
    QFont directFont;
    Label label;
};

TEST_F(MarkersAndLabelsTest, ALabelAfterAFontMarkerHasTheMarkersFont)
{
    const Label ordinary = label;
    CharacterSymbol symbol;
    symbol.fontName = L"DejaVu Sans Mono";
    symbol.height = 24.0;
    for (const Entry entry : kAllEntries)
    {
        label = ordinary;
        for (int i = 0; i < 2; ++i) // the second time after the glyphs of the face are loaded
        {
            twins.Wipe();
            DrawSymbol(symbol);
            DrawLabel(entry);
        }
        EXPECT_TRUE(twins.SameWithState()) << NameOf(entry);
    }
}

TEST_F(MarkersAndLabelsTest, MarkersAndLabelsInAnyOrderAreDrawnAsQtDrawsThem)
{
    const wchar_t* const families[] = {L"DejaVu Sans", L"DejaVu Serif", L"DejaVu Sans Mono", L"WenQuanYi Micro Hei"};
    PointSymbol star;
    star.SetPoints(Star(5, 2, 18.0));
    for (int round = 0; round < 2; ++round) // the second time after the glyphs of the faces are loaded
    {
        Random random(343);
        twins.Wipe();
        for (int i = 0; i < 60; ++i)
        {
            CharacterSymbol symbol;
            symbol.x = star.x = random.Real(10.0, 140.0);
            symbol.y = star.y = random.Real(10.0, 90.0);
            star.offsetX = star.x + 5.0;
            star.offsetY = star.y - 5.0;
            symbol.angle = star.angle = label.angle = random.Real(-90.0, 90.0);
            symbol.height = random.Real(7.0, 30.0);
            symbol.fontName = random.OneOf(families);
            symbol.character = static_cast<short>(random.Int(0x25A0, 0x25CF));
            const int kind = random.Int(0, 3);
            if (kind == 0)
                DrawLabel(random.OneOf(kAllEntries));
            else if (kind == 1)
                DrawSymbol(random.OneOf(kPlacements), star);
            else
                DrawSymbol(symbol);
        }
    }
    EXPECT_TRUE(twins.SameWithState());
}

TEST(MarkersAndTextTest, APenThatNothingHasUsedYetDoesNotChangeHowTextIsDrawn)
{
    // Qt finds out how it draws text when it prepares a state, from a pen that it prepares apart from that.
    for (const Placement placement : kPlacements)
        for (const bool fills : {false, true})
        {
            Twins twins(150, 100, TXImage::Format_ARGB32);
            twins.Both(
                [&](QPainter& painter)
                {
                    QLinearGradient gradient(0.0, 0.0, 150.0, 0.0);
                    gradient.setColorAt(0.0, QColor(10, 200, 30, 90));
                    gradient.setColorAt(1.0, QColor(200, 20, 130, 120));
                    painter.setRenderHint(QPainter::Antialiasing, false);
                    painter.setPen(Qt::NoPen);
                    painter.setBrush(gradient);
                    painter.drawRect(20, 20, 100, 60);
                    painter.setPen(QColor(0, 0, 0, 255));
                });
            PointSymbol star;
            star.SetPoints(Star(5, 2, 18.0));
            star.closed = false;
            EXPECT_TRUE(Draw(twins.Surface(), placement, star));
            DrawDirectly(twins.Direct(), placement, star);
            if (fills)
                twins.Both([](QPainter& painter) { painter.fillRect(5, 5, 30, 20, QColor(90, 90, 200, 100)); });
            CharacterSymbol symbol;
            symbol.x = 70.0;
            symbol.height = symbol.width = 40.0;
            const FontChoice choice;
            twins.Surface().SelectFont(MakeFont(choice));
            QFont directFont = DirectFont(choice);
            EXPECT_TRUE(Draw(twins.Surface(), symbol));
            DrawDirectly(twins.Direct(), directFont, symbol);
            EXPECT_TRUE(twins.Same()) << (fills ? "with a fill between" : "at once");
        }
}

TEST_F(MarkersAndLabelsTest, AVectorMarkerLeavesTheFontAlone)
{
    PointSymbol star;
    star.SetPoints(Star(5, 2, 18.0));
    const QFont before = FontOf(*twins.Surface().GetFont());
    for (const Placement placement : kPlacements)
        DrawSymbol(placement, star);
    EXPECT_EQ(FontOf(*twins.Surface().GetFont()), before);
    for (int i = 0; i < 2; ++i)
    {
        twins.Wipe();
        DrawLabel(Entry::StringAt);
    }
    EXPECT_TRUE(twins.SameWithState());
}

} // namespace
