// What is particular to DrawString's plain labels, each point painted in the right way and, to prove that the label
// tells them apart, in a wrong one.
#include <QFontMetricsF>

#include "LabelTest.h"

using namespace TZObjects;

namespace
{

constexpr Entry kStrings[] = {Entry::StringInBox, Entry::StringMoved, Entry::StringByFontAngle, Entry::StringAt};

class PlainLabelTest : public LabelTest
{
protected:
    /// Paints like each of the entries, but with the block's top raised by @p lift.
    static Paint WithLift(Entry entry, const Label& label, double lift)
    {
        return [=](QPainter& painter)
        {
            const PlainBlock block(label.Text(), DirectFont(label.font));
            const double halfHeight = block.lines.size() * block.height / 2.0;
            const double halfWidth = block.width / 2.0;
            QPointF anchor(label.x, label.y);
            QPointF topLeft(label.left - label.x, label.top - label.y);
            if (entry != Entry::StringInBox)
            {
                anchor += QPointF(halfWidth, halfHeight);
                topLeft = QPointF(-halfWidth, -halfHeight);
            }
            if (entry == Entry::StringMoved || entry == Entry::StringByFontAngle)
                anchor += QPointF(label.dx, label.dy);
            painter.translate(anchor);
            painter.rotate(label.angle);
            painter.scale(label.scale, label.scale);
            FillInPenColor(painter, block.Path(topLeft - QPointF(0.0, lift), block.height, 1, Qt::WindingFill));
        };
    }
};

TEST_F(PlainLabelTest, OnlyTheMovedStringLiftsItsBaselinesByOneUnit)
{
    for (const Entry entry : kStrings)
    {
        const bool lifted = entry == Entry::StringMoved || entry == Entry::StringByFontAngle;
        Label label;
        label.text = L"Wavy\nline";
        EXPECT_TRUE(SameAs(entry, label, WithLift(entry, label, lifted ? 1.0 : 0.0)));
        EXPECT_TRUE(DiffersFrom(entry, label, WithLift(entry, label, lifted ? 0.0 : 1.0)));
    }
}

TEST_F(PlainLabelTest, TheLiftIsTurnedAndScaledWithTheLabel)
{
    Label label;
    label.x = 60.0;
    label.angle = 90.0;
    label.font.angle = 90;
    label.scale = 2.0;
    for (const Entry entry : {Entry::StringMoved, Entry::StringByFontAngle})
        EXPECT_TRUE(SameAs(entry, label, WithLift(entry, label, 1.0)));
}

TEST_F(PlainLabelTest, TheSpacedStringTurnsAboutTheMiddleOfItsSpacedLines)
{
    Label label;
    label.text = L"two\nlines";
    label.angle = 180.0;
    label.lineSpacing = 14.0;
    const auto paint = [&](double spacings)
    {
        return [&, spacings](QPainter& painter)
        {
            const PlainBlock block(label.Text(), DirectFont(label.font));
            const QPointF half(block.width / 2.0, (2.0 * block.height + spacings * label.lineSpacing) / 2.0);
            painter.translate(QPointF(label.x, label.y) + half);
            painter.rotate(180.0);
            FillInPenColor(painter, block.Path(-half, block.height + label.lineSpacing, 1, Qt::WindingFill));
        };
    };
    // There is one space between two lines.
    EXPECT_TRUE(SameAs(Entry::StringAt, label, paint(1.0)));
    EXPECT_TRUE(DiffersFrom(Entry::StringAt, label, paint(0.0)));
    EXPECT_TRUE(DiffersFrom(Entry::StringAt, label, paint(2.0)));
}

TEST_F(PlainLabelTest, OverlappingGlyphsAreFilledByTheWindingRule)
{
    for (const Entry entry : kStrings)
    {
        Label label;
        label.text = L"WOBW";
        label.font.height = 30;
        label.font.letterSpacing = -11.0;
        const auto paint = [&](Qt::FillRule rule)
        {
            return [&, rule](QPainter& painter)
            {
                const PlainBlock block(label.Text(), DirectFont(label.font));
                const double lift = entry == Entry::StringInBox || entry == Entry::StringAt ? 0.0 : 1.0;
                const QPointF half(block.width / 2.0, block.height / 2.0);
                painter.translate(label.x, label.y);
                if (lift > 0.0)
                    painter.translate(label.dx, label.dy);
                QPointF topLeft(label.left - label.x, label.top - label.y);
                if (entry != Entry::StringInBox)
                {
                    painter.translate(half);
                    topLeft = -half - QPointF(0.0, lift);
                }
                FillInPenColor(painter, block.Path(topLeft, block.height, 1, rule));
            };
        };
        EXPECT_TRUE(SameAs(entry, label, paint(Qt::WindingFill)));
        EXPECT_TRUE(DiffersFrom(entry, label, paint(Qt::OddEvenFill)));
    }
}

TEST_F(PlainLabelTest, TheSlantComesAfterTheAnchorAndBeforeTheRotation)
{
    Label label;
    label.angle = 40.0;
    label.scale = 1.5;
    label.x = 60.0;
    label.left = 50.0;
    label.font.italic = TXFont::ItalicSlant;
    const auto paint = [&](bool slantFirst, double turn, double shear)
    {
        return [&, slantFirst, turn, shear](QPainter& painter)
        {
            const PlainBlock block(label.Text(), DirectFont(label.font));
            painter.translate(label.x, label.y);
            if (!slantFirst)
                painter.rotate(label.angle);
            painter.rotate(turn);
            painter.shear(0.0, shear);
            if (slantFirst)
                painter.rotate(label.angle);
            painter.scale(label.scale, label.scale);
            FillInPenColor(painter, block.Path(QPointF(label.left - label.x, label.top - label.y), block.height, 1,
                                               Qt::WindingFill));
        };
    };
    EXPECT_TRUE(SameAs(Entry::StringInBox, label, paint(true, 351.0, 0.16)));
    EXPECT_TRUE(DiffersFrom(Entry::StringInBox, label, paint(false, 351.0, 0.16)));
    EXPECT_TRUE(DiffersFrom(Entry::StringInBox, label, paint(true, 9.0, 0.16)));
    EXPECT_TRUE(DiffersFrom(Entry::StringInBox, label, paint(true, 351.0, 0.0)));
    label.angle = 0.0;
    EXPECT_TRUE(SameAs(Entry::StringInBox, label, paint(true, 351.0, 0.16)));
    EXPECT_TRUE(DiffersFrom(Entry::StringInBox, label, paint(true, 0.0, 0.0)));
}

TEST_F(PlainLabelTest, AnItalicFaceIsNotSlantedAsWell)
{
    for (const Entry entry : kStrings)
    {
        Label face;
        face.font.italic = TXFont::ItalicFace;
        Label slanted = face;
        slanted.font.italic = TXFont::ItalicSlant;
        EXPECT_TRUE(SameAsDirect(entry, face));
        EXPECT_TRUE(DiffersFrom(entry, face, [&](QPainter& painter) { DrawDirectly(painter, entry, slanted); }));
    }
}

TEST_F(PlainLabelTest, AnEmptyLineIsAsHighAsTheOthers)
{
    for (const Entry entry : kStrings)
    {
        Label gap;
        gap.text = L"a\n\nb";
        Label spaced = gap;
        spaced.text = L"a\n \nb";
        Label closed = gap;
        closed.text = L"a\nb";
        EXPECT_TRUE(SameAs(entry, gap, [&](QPainter& painter) { DrawDirectly(painter, entry, spaced); }));
        EXPECT_TRUE(DiffersFrom(entry, gap, [&](QPainter& painter) { DrawDirectly(painter, entry, closed); }));
    }
}

TEST_F(PlainLabelTest, LinesOfOneLabelAreAsFarApartAsTheTallestIsHigh)
{
    Label label;
    label.text = L"abc\n\u1eaag\nghi";
    const auto paint = [&](const char* measured)
    {
        return [&, measured](QPainter& painter)
        {
            const PlainBlock block(label.Text(), DirectFont(label.font));
            const double height = QFontMetricsF(block.font).boundingRect(QString::fromUtf8(measured)).height();
            painter.translate(label.x, label.y);
            FillInPenColor(painter,
                           block.Path(QPointF(label.left - label.x, label.top - label.y), height, 1, Qt::WindingFill));
        };
    };
    EXPECT_TRUE(SameAs(Entry::StringInBox, label, paint("\u1eaag")));
    EXPECT_TRUE(DiffersFrom(Entry::StringInBox, label, paint("abc")));
    for (const Entry entry : kStrings)
        EXPECT_TRUE(SameAsDirect(entry, label));
}

TEST_F(PlainLabelTest, TheOverloadWithoutAnAngleTurnsByTheFonts)
{
    Label label;
    label.x = 60.0;
    label.font.angle = 25;
    label.angle = 70.0;
    Label turned = label;
    turned.angle = 25.0;
    const auto paint = [](const Label& painted)
    { return [&](QPainter& painter) { DrawDirectly(painter, Entry::StringMoved, painted); }; };
    EXPECT_TRUE(SameAs(Entry::StringByFontAngle, label, paint(turned)));
    EXPECT_TRUE(DiffersFrom(Entry::StringByFontAngle, label, paint(label)));
    // And the others never do.
    EXPECT_TRUE(SameAs(Entry::StringMoved, label, paint(label)));

    label.text = turned.text = L"<BOL>Main</BOL> Street";
    EXPECT_TRUE(SameAs(Entry::StringByFontAngle, label, paint(turned)));
}

TEST_F(PlainLabelTest, TheSelectedFontIsUsedAsItIsNow)
{
    Label label;
    label.text = L"two\nlines of it";
    Label larger = label;
    larger.font.height = 31;
    afterSelecting = [](TXFont& font) { font.SetFontHeight(31); };
    for (const Entry entry : kAllEntries)
        EXPECT_TRUE(SameAs(entry, label, [&](QPainter& painter) { DrawDirectly(painter, entry, larger); }));
}

TEST_F(PlainLabelTest, ThePensColourFillsTheTextWithItsAlpha)
{
    const QColor color(180, 20, 90, 120);
    const auto setPen = [&](QPainter& painter) { painter.setPen(QPen(color, 9.0, Qt::DotLine)); };
    const auto setPenWithoutLine = [&](QPainter& painter) { painter.setPen(QPen(color, 9.0, Qt::NoPen)); };
    const auto setNoPen = [](QPainter& painter) { painter.setPen(Qt::NoPen); };
    for (const wchar_t* const text : {L"Wavy", L"<BOL>Wavy</BOL>"})
        for (const Entry entry : kStrings)
        {
            Label label;
            label.text = text;
            const auto paintIn = [&](const QColor& shown)
            {
                return [&, shown](QPainter& painter)
                {
                    painter.setPen(shown);
                    DrawDirectly(painter, entry, label);
                };
            };
            EXPECT_TRUE(SameAs(entry, label, paintIn(color), setPen));
            EXPECT_TRUE(SameAs(entry, label, paintIn(color), setPenWithoutLine));
            // Without a pen the painter's pen is a black one.
            EXPECT_TRUE(SameAs(entry, label, paintIn(Qt::black), setNoPen));
        }
}

TEST_F(PlainLabelTest, LinesAreAlignedAgainstTheWidestOfNegativeOnesToo)
{
    Label label;
    label.font.letterSpacing = -40.0;
    label.x = label.left = 100.0;
    for (const Entry entry :
         {Entry::StringInBox, Entry::StringMoved, Entry::StringAt, Entry::OutlineAbout, Entry::OutlineAt})
        for (const wchar_t* const text : {L"abc", L"abc\nd", L"ab\n\nc"})
            for (const int align : {1, 2, 3})
            {
                label.text = text;
                label.hAlign = align;
                EXPECT_TRUE(SameAsDirect(entry, label));
                EXPECT_TRUE(LastLeftInk());
            }
}

} // namespace
