// What is particular to labels of columns.
#include <QFontMetricsF>

#include "LabelTest.h"

using namespace TZObjects;

namespace
{

constexpr Entry kVerticals[] = {Entry::VerticalAbout, Entry::VerticalAt};

class VerticalLabelTest : public LabelTest
{
protected:
    VerticalLabelTest()
    {
        label.text = L"gWy\nab";
        label.halo = false;
        label.left = label.x;
        label.top = label.y = 12.0;
    }

    QFontMetricsF Metrics() const { return QFontMetricsF(DirectFont(label.font)); }
    double Advance(const char* character) const { return Metrics().horizontalAdvance(QString(character)); }

    struct Character
    {
        double x;
        double baseline;
        const char* text;
    };

    /// Moves the painter to the origin of the entry's path, which matters because Qt rounds the glyphs' places.
    /// @return the block's top left corner from there.
    QPointF MoveToOrigin(QPainter& painter, Entry entry) const
    {
        const ColumnBlock block(label.Text(), DirectFont(label.font), label.columnSpacing, label.charSpacing);
        const QPointF half =
            entry == Entry::VerticalAbout ? QPointF(0.0, 0.0) : QPointF(block.width, block.height) / 2.0;
        painter.translate(label.x + half.x(), label.y + half.y());
        return -half;
    }

    /// Paints single characters; their places are relative to the label's top left.
    Paint Characters(Entry entry, const std::vector<Character>& characters) const
    {
        return [=](QPainter& painter)
        {
            const QPointF topLeft = MoveToOrigin(painter, entry);
            QPainterPath path;
            for (const Character& each : characters)
                path.addText(topLeft + QPointF(each.x, each.baseline), DirectFont(label.font),
                             QString::fromUtf8(each.text));
            FillInColor(painter, path, label.fill);
        };
    }

    Label label;
};

TEST_F(VerticalLabelTest, TheStepIsTheAscentAndTheCharacterSpacing)
{
    label.text = L"gWy";
    const double ascent = Metrics().ascent();
    const auto stacked = [&](Entry entry, double step) {
        return Characters(entry, {{0.0, ascent, "g"}, {0.0, ascent + step, "W"}, {0.0, ascent + 2.0 * step, "y"}});
    };
    for (const double spacing : {0.0, 3.0, -2.0})
    {
        label.charSpacing = spacing;
        for (const Entry entry : kVerticals)
        {
            EXPECT_TRUE(SameAs(entry, label, stacked(entry, ascent + spacing)));
            EXPECT_TRUE(DiffersFrom(entry, label, stacked(entry, Metrics().height() + spacing)));
        }
    }
}

TEST_F(VerticalLabelTest, NegativeWidthsCount)
{
    label.font.letterSpacing = -40.0;
    for (const wchar_t* const text : {L"a", L"a\nb", L"ab\nc\n\nd"})
        for (const int align : {1, 2, 3})
            for (const Entry entry : kVerticals)
            {
                label.text = text;
                label.hAlign = align;
                label.x = label.left = 90.0;
                EXPECT_TRUE(SameAsDirect(entry, label));
                EXPECT_TRUE(LastLeftInk());
            }
}

TEST_F(VerticalLabelTest, ColumnsAreAlignedAlongTheirLength)
{
    label.text = L"AB\nC";
    const double ascent = Metrics().ascent();
    const double x = std::max(Advance("A"), Advance("B")) + 0.2 * Metrics().height();
    const auto with = [&](Entry entry, double offset) {
        return Characters(entry, {{0.0, ascent, "A"}, {0.0, 2.0 * ascent, "B"}, {x, ascent + offset, "C"}});
    };
    for (const Entry entry : kVerticals)
    {
        label.hAlign = 1;
        EXPECT_TRUE(SameAs(entry, label, with(entry, 0.0)));
        label.hAlign = 3;
        EXPECT_TRUE(SameAs(entry, label, with(entry, ascent)));
        for (const int align : {2, 0, 7})
        {
            label.hAlign = align;
            EXPECT_TRUE(SameAs(entry, label, with(entry, ascent * 0.5)));
        }
    }
}

TEST_F(VerticalLabelTest, ColumnsThatRunUpwardsHaveNegativeLengths)
{
    label.text = L"ABC\nDEFG";
    label.top = label.y = 60.0;
    const double ascent = Metrics().ascent();
    // Each character stands an ascent above the one before: the columns are -1 and -2 ascents long.
    label.charSpacing = -2.0 * ascent;
    const double x = std::max({Advance("A"), Advance("B"), Advance("C")}) + 0.2 * Metrics().height();
    const auto with = [&](Entry entry, double first, double second)
    {
        return Characters(entry, {{0.0, first + ascent, "A"},
                                  {0.0, first, "B"},
                                  {0.0, first - ascent, "C"},
                                  {x, second + ascent, "D"},
                                  {x, second, "E"},
                                  {x, second - ascent, "F"},
                                  {x, second - 2.0 * ascent, "G"}});
    };
    for (const Entry entry : kVerticals)
    {
        label.hAlign = 3;
        EXPECT_TRUE(SameAs(entry, label, with(entry, 0.0, ascent)));
        EXPECT_TRUE(DiffersFrom(entry, label, with(entry, ascent, 2.0 * ascent)));
        label.hAlign = 2;
        EXPECT_TRUE(SameAs(entry, label, with(entry, 0.0, ascent * 0.5)));
    }
}

TEST_F(VerticalLabelTest, GapsFollowTheFirstColumnAndAreWiderForAnItalicFace)
{
    label.text = L"A\nB\nC";
    label.columnSpacing = 2.0;
    for (const auto italic : {TXFont::ItalicNone, TXFont::ItalicFace, TXFont::ItalicSlant})
    {
        label.font.italic = italic;
        const double ascent = Metrics().ascent();
        const auto with = [&](Entry entry, double firstFactor, double factor)
        {
            const double second = Advance("A") + 2.0 + firstFactor * Metrics().height();
            const double third = second + Advance("B") + 2.0 + factor * Metrics().height();
            return Characters(entry, {{0.0, ascent, "A"}, {second, ascent, "B"}, {third, ascent, "C"}});
        };
        const bool face = italic == TXFont::ItalicFace;
        for (const Entry entry : kVerticals)
        {
            EXPECT_TRUE(SameAs(entry, label, face ? with(entry, 0.3, 0.2) : with(entry, 0.2, 0.05)));
            EXPECT_TRUE(DiffersFrom(entry, label, face ? with(entry, 0.2, 0.05) : with(entry, 0.3, 0.2)));
        }
    }
}

TEST_F(VerticalLabelTest, TheLastColumnsGapCountsInTheWidthOfSeveralColumnsOnly)
{
    const auto upsideDown = [&](double width)
    {
        return [&, width](QPainter& painter)
        {
            const ColumnBlock block(label.Text(), DirectFont(label.font), label.columnSpacing, 0.0);
            painter.translate(label.x + width / 2.0, label.y + block.height / 2.0);
            painter.rotate(180.0);
            FillInColor(painter, block.Path(QPointF(-width / 2.0, -block.height / 2.0), 1), label.fill);
        };
    };
    label.angle = 180.0;
    label.columnSpacing = 3.0;
    const double h = Metrics().height();
    label.text = L"A\nB\nC";
    const double columns = Advance("A") + Advance("B") + Advance("C") + 2.0 * 3.0;
    EXPECT_TRUE(SameAs(Entry::VerticalAt, label, upsideDown(columns + h * 0.2 + h * 0.05 + h * 0.05)));
    EXPECT_TRUE(DiffersFrom(Entry::VerticalAt, label, upsideDown(columns + h * 0.2 + h * 0.05)));
    label.text = L"A";
    EXPECT_TRUE(SameAs(Entry::VerticalAt, label, upsideDown(Advance("A"))));
    EXPECT_TRUE(DiffersFrom(Entry::VerticalAt, label, upsideDown(Advance("A") + h * 0.2)));
}

TEST_F(VerticalLabelTest, IsNeverSlanted)
{
    label.font.italic = TXFont::ItalicSlant;
    Label upright = label;
    upright.font.italic = TXFont::ItalicNone;
    for (const Entry entry : kVerticals)
        for (const double angle : {0.0, 30.0})
        {
            label.angle = upright.angle = angle;
            EXPECT_TRUE(SameAs(entry, label, [&](QPainter& painter) { DrawDirectly(painter, entry, upright); }));
        }
}

TEST_F(VerticalLabelTest, TheHaloIsStrokedByTheArgumentAlone)
{
    label.font.haloWidth = 3;
    label.font.haloColor = TXColor(20, 220, 40, 70);
    label.fill = TXColor(120, 0, 0, 130);
    for (const Entry entry : kVerticals)
        for (const bool fontHalo : {false, true})
            for (const bool halo : {false, true})
            {
                label.font.halo = fontHalo;
                label.halo = halo;
                const auto paint = [&](bool stroke, int alpha)
                {
                    return [&, stroke, alpha](QPainter& painter)
                    {
                        const ColumnBlock block(label.Text(), DirectFont(label.font), 0.0, 0.0);
                        const QPainterPath path = block.Path(MoveToOrigin(painter, entry), 1);
                        if (stroke)
                            painter.strokePath(path, QPen(QColor(20, 220, 40, alpha), 3));
                        painter.fillPath(path, QColor(120, 0, 0, 130));
                    };
                };
                EXPECT_TRUE(SameAs(entry, label, paint(halo, 255)));
                EXPECT_TRUE(DiffersFrom(entry, label, paint(!halo, 255)));
                EXPECT_TRUE(DiffersFrom(entry, label, paint(true, 70)));
            }
}

TEST_F(VerticalLabelTest, EveryCodeUnitIsACharacterOfItsOwn)
{
    // A pair of surrogates and a combining mark take a step each.
    label.text = L"\U0001F600e\u0301x";
    const QString units = label.Text();
    ASSERT_EQ(units.size(), 5);
    for (const Entry entry : kVerticals)
        EXPECT_TRUE(SameAs(entry, label,
                           [&](QPainter& painter)
                           {
                               const QPointF topLeft = MoveToOrigin(painter, entry);
                               QPainterPath path;
                               for (int i = 0; i < units.size(); ++i)
                                   path.addText(topLeft + QPointF(0.0, Metrics().ascent() * (i + 1)),
                                                DirectFont(label.font), QString(units.at(i)));
                               FillInColor(painter, path, label.fill);
                           }));
}

TEST_F(VerticalLabelTest, OverlappingCharactersAreFilledByTheOddEvenRule)
{
    label.text = L"WOB";
    label.font.height = 34;
    label.charSpacing = -20.0;
    const auto paint = [&](Entry entry, Qt::FillRule rule)
    {
        return [&, entry, rule](QPainter& painter)
        {
            const ColumnBlock block(label.Text(), DirectFont(label.font), 0.0, label.charSpacing);
            QPainterPath path = block.Path(MoveToOrigin(painter, entry), 1);
            path.setFillRule(rule);
            FillInColor(painter, path, label.fill);
        };
    };
    for (const Entry entry : kVerticals)
    {
        EXPECT_TRUE(SameAs(entry, label, paint(entry, Qt::OddEvenFill)));
        EXPECT_TRUE(DiffersFrom(entry, label, paint(entry, Qt::WindingFill)));
    }
}

TEST_F(VerticalLabelTest, TagsAreDroppedByOneFormAndDrawnByTheOther)
{
    label.text = L"<BOL>x</BOL>";
    label.font.height = 9;
    const double ascent = Metrics().ascent();
    EXPECT_TRUE(SameAs(Entry::VerticalAbout, label, Characters(Entry::VerticalAbout, {{0.0, ascent, "x"}})));
    std::vector<Character> tags;
    for (const char* const character : {"<", "B", "O", "L", ">", "x", "<", "/", "B", "O", "L", ">"})
        tags.push_back({0.0, (static_cast<double>(tags.size()) + 1.0) * ascent, character});
    EXPECT_TRUE(SameAs(Entry::VerticalAt, label, Characters(Entry::VerticalAt, tags)));
}

} // namespace
