// What is special about symbols that are a character, through Qt, one sentence at a time.
#include "FontMarkerTest.h"

#include <initializer_list>

#include <tests/support/ImageCompare.h>

using namespace TZObjects;

namespace
{

constexpr int kFlags = Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextDontClip;

TEST_F(FontMarkerTest, ASymbolLowerThanTenIsDrawnTwice)
{
    twins.Both([](QPainter& painter) { painter.setPen(QColor(20, 60, 140, 120)); });
    for (const auto& [height, times] : {std::pair(0.5, 2),
                                        {5.0, 2},
                                        {9.0, 2},
                                        {9.49, 2},
                                        {9.5, 2},
                                        {9.99, 2},
                                        {9.9999999, 2},
                                        {10.0, 1},
                                        {10.5, 1},
                                        {12.0, 1},
                                        {14.0, 1},
                                        {40.0, 1}})
    {
        symbol.height = height;
        EXPECT_TRUE(SameAsDirect());
        const QImage drawn = twins.Actual().copy();
        const auto paint = [&, height = height](QPainter& painter, int count)
        {
            painter.save();
            painter.translate(48.0 - 10.0, 36.0 - height * 0.5);
            for (int i = 0; i < count; ++i)
                painter.drawText(QRect(0, 0, 20, static_cast<int>(height)), kFlags, "R");
            painter.restore();
        };
        EXPECT_TRUE(SamePixels(drawn, Painted([&, times = times](QPainter& painter) { paint(painter, times); })))
            << height;
        EXPECT_NE(drawn, Painted([&, times = times](QPainter& painter) { paint(painter, 3 - times); })) << height;
    }
}

TEST_F(FontMarkerTest, TheBoxIsTruncatedAndItsHalvesAreNot)
{
    symbol.width = 20.9;
    symbol.height = 25.9;
    symbol.character = 'g';
    EXPECT_TRUE(SameAsDirect());
    const QImage drawn = twins.Actual().copy();
    const auto picture = [&](QPointF topLeft, QRectF box)
    {
        return Painted(
            [&](QPainter& painter)
            {
                painter.save();
                painter.translate(topLeft);
                painter.drawText(box, kFlags, "g");
                painter.restore();
            });
    };
    EXPECT_TRUE(SamePixels(drawn, picture({48 - 10.45, 36 - 12.95}, QRect(0, 0, 20, 25))));
    EXPECT_NE(drawn, picture({48 - 10.45, 36 - 12.95}, QRect(0, 0, 21, 26)));
    EXPECT_NE(drawn, picture({48 - 10.0, 36 - 12.0}, QRect(0, 0, 20, 25)));
    for (const auto& [width, height] : {std::pair(-20.9, 25.9), {20.9, -25.9}, {0.0, 30.5}, {30.5, 0.0}, {0.9, 0.9}})
    {
        symbol.width = width;
        symbol.height = height;
        EXPECT_TRUE(SameAsDirect());
        EXPECT_TRUE(SameCalls());
    }
}

TEST_F(FontMarkerTest, IsTurnedByEveryAngle)
{
    symbol.width = 17.0;
    for (const double angle : {0.0, 1e-9, -1e-9, 1e-7, 0.5, -0.5, 0.99, 1.0, -30.0, 30.0, 90.0, 360.0, 1e6})
    {
        symbol.angle = angle;
        EXPECT_TRUE(SameCalls()) << angle;
        EXPECT_TRUE(SameAsDirect());
    }
    // Half a degree and what is below 0 show.
    symbol.angle = 0.0;
    EXPECT_TRUE(SameAsDirect());
    const QImage upright = twins.Actual().copy();
    for (const double angle : {0.5, -30.0})
    {
        symbol.angle = angle;
        EXPECT_TRUE(SameAsDirect());
        EXPECT_NE(twins.Actual(), upright) << angle;
    }
}

TEST_F(FontMarkerTest, IsCentredAndNotClippedByItsBox)
{
    symbol.width = 2.0;
    symbol.height = 40.0;
    symbol.character = 'W';
    EXPECT_TRUE(SameAsDirect());
    EXPECT_TRUE(SameCalls());
    // Symmetrical about the centre, and wider than the box by far.
    EXPECT_NE(twins.Actual().pixel(35, 28), untouched.pixel(35, 28));
    EXPECT_NE(twins.Actual().pixel(61, 28), untouched.pixel(61, 28));
}

TEST_F(FontMarkerTest, TextAntialiasingIsOnWhileItIsDrawn)
{
    const auto aliased = [](QPainter& painter)
    { painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing, false); };
    const auto onlyText = [](QPainter& painter) { painter.setRenderHints(QPainter::TextAntialiasing, true); };
    const auto onlyShapes = [](QPainter& painter)
    {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setRenderHint(QPainter::TextAntialiasing, false);
    };
    for (const std::function<void(QPainter&)>& change :
         {std::function<void(QPainter&)>(aliased), {onlyText}, {onlyShapes}})
    {
        EXPECT_TRUE(SameCalls(change));
        twins.Both(change);
        EXPECT_TRUE(SameAsDirect());
    }
}

TEST_F(FontMarkerTest, IsInThePensColour)
{
    twins.Surface().SelectPen(NewPen(TXColor(200, 10, 30, 130), 5.0));
    twins.Direct().setPen(QPen(QColor(200, 10, 30, 130), 5.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    EXPECT_TRUE(SameAsDirect());
    EXPECT_NE(twins.Actual(), untouched);
    twins.Surface().SelectPen(TXPen::NullPen);
    twins.Direct().setPen(Qt::NoPen);
    EXPECT_TRUE(SameAsDirect());
}

TEST_F(FontMarkerTest, DrawsTheUnitThatTheNumberStandsFor)
{
    FontChoice choice;
    choice.height = 30;
    for (const wchar_t* const family : {L"DejaVu Sans", L"WenQuanYi Micro Hei"})
        for (const int unit : std::initializer_list<int>{'A',    '&',    ' ',    '\t',   '\n',   '\r',   0,
                                                         0x25A0, 0x2605, 0x4E2D, 0x05D0, 0x0301, 0x200B, 0xD83D,
                                                         0xDE00, 0xDC00, 0xF021, 0xFFFF, 0xFEFF, 0x2028, 0x00AD})
        {
            Select(choice);
            symbol.fontName = family;
            symbol.character = static_cast<short>(unit);
            EXPECT_TRUE(SameAsDirect());
        }
    // A unit of the upper half arrives as a negative number.
    symbol.character = static_cast<short>(0xFF21);
    EXPECT_LT(symbol.character, 0);
    EXPECT_TRUE(SameAsDirect());
    const QImage wide = twins.Actual().copy();
    EXPECT_NE(wide, untouched);
    symbol.character = '&';
    EXPECT_TRUE(SameAsDirect());
    EXPECT_NE(twins.Actual(), untouched);
}

TEST_F(FontMarkerTest, FollowsTransformWindowAndOrigin)
{
    const auto view = [](QPainter& painter)
    {
        painter.setWindow(0, 0, 150, 110);
        painter.setViewport(5, 3, 120, 90);
        painter.rotate(8);
        painter.setWorldMatrixEnabled(false);
    };
    EXPECT_TRUE(SameCalls(view));
    twins.Surface().SetWindowOrg(9, -4);
    twins.Direct().translate(9, -4);
    EXPECT_TRUE(SameAsDirect());
    twins.Both(view);
    EXPECT_TRUE(SameAsDirect());
    EXPECT_NE(twins.Actual(), untouched);
}

} // namespace
