// Cached outlines of labels: which labels share them, and whether Qt would draw those alike.
#include <cmath>
#include <functional>
#include <limits>

#include <QFontMetricsF>
#include <QPainter>

#include <tests/support/Drawn.h>
#include <tests/support/ImageCompare.h>
#include <tests/support/QuietTest.h>
#include <txpluginqt/text/LabelOutlines.h>
#include <txpluginqt/text/QtColumns.h>
#include <txpluginqt/text/QtTextBlock.h>

#include "CacheSize.h"
#include <tests/support/PixelFont.h>
#include <tests/txpluginqt/raster/RandomPaths.h>

using namespace txqt;

namespace
{

using Draw = std::function<void(QPainter&)>;

QImage Drawn(const Draw& draw) { return ::Drawn(QSize(130, 80), QImage::Format_ARGB32_Premultiplied, draw); }

QPainterPath DirectPath(const QFont& font, const std::vector<PlacedText>& pieces, Qt::FillRule rule)
{
    QPainterPath path;
    path.setFillRule(rule);
    for (const PlacedText& piece : pieces)
        path.addText(piece.origin, font, piece.text);
    return path;
}

class CachedOutlinesTest : public QuietTest
{
protected:
    static std::size_t Bytes() { return LabelCache::OfThread().Bytes(); }

    /// True when nothing new is kept for the outlines.
    static bool Shares(const QFont& font, const QString& text, const std::vector<PlacedText>& pieces,
                       Qt::FillRule rule = Qt::WindingFill)
    {
        const std::size_t before = Bytes();
        const LabelOutlines outlines(font, text, pieces, rule);
        return Bytes() == before;
    }

    static bool SharesAt(const QFont& font, double x, double y) { return Shares(font, "Main", {{{x, y}, "Main"}}); }

    static ::testing::AssertionResult DrawnAsDirectly(const QFont& font, const std::vector<PlacedText>& pieces,
                                                      Qt::FillRule rule, const QColor& color)
    {
        QString text;
        for (const PlacedText& piece : pieces)
            text += piece.text;
        return SamePixels(Drawn([&](QPainter& p) { LabelOutlines(font, text, pieces, rule).Fill(p, color); }),
                          Drawn([&](QPainter& p) { p.fillPath(DirectPath(font, pieces, rule), color); }));
    }

    CacheSize size{kUsualCacheSize};
};

TEST_F(CachedOutlinesTest, MeasuredLabelsAreCachedByFontTextAndSpacings)
{
    const auto block = QtTextBlock::Of("a\nb", PixelFont(20));
    EXPECT_EQ(QtTextBlock::Of("a\nb", PixelFont(20)), block);
    EXPECT_NE(QtTextBlock::Of("a\nc", PixelFont(20)), block);
    EXPECT_NE(QtTextBlock::Of("a\nb", PixelFont(21)), block);
    const auto columns = QtColumns::Of("a\nb", PixelFont(20), 1.0, 2.0);
    EXPECT_EQ(QtColumns::Of("a\nb", PixelFont(20), 1.0, 2.0), columns);
    EXPECT_NE(QtColumns::Of("a\nb", PixelFont(20), 2.0, 1.0), columns);
    EXPECT_NE(QtColumns::Of("a\nb", PixelFont(20), 1.5, 2.0), columns);
    EXPECT_NE(QtColumns::Of("a\nb", PixelFont(20), 1.0, std::nextafter(2.0, 3.0)), columns);
    EXPECT_NE(QtColumns::Of("ab", PixelFont(20), 1.0, 2.0), columns);
    EXPECT_NE(QtColumns::Of("a\nb", PixelFont(21), 1.0, 2.0), columns);
}

TEST_F(CachedOutlinesTest, AreSharedWithinA64thOfAPixelOnly)
{
    const QFont font = PixelFont(20);
    EXPECT_FALSE(SharesAt(font, 10.001, 20.001));
    EXPECT_TRUE(SharesAt(font, 10.001, 20.001));
    EXPECT_TRUE(SharesAt(font, 10.012, 20.013));
    EXPECT_FALSE(SharesAt(font, 10.001 + 1.0 / 64.0, 20.001));
    EXPECT_FALSE(SharesAt(font, 10.001, 20.001 + 1.0 / 64.0));
    // What lies on a border exactly is truncated to other parts than what lies behind it when it is negative.
    EXPECT_FALSE(SharesAt(font, -10.0, 20.001));
    EXPECT_FALSE(SharesAt(font, -10.0 + 0.005, 20.001));
    EXPECT_FALSE(SharesAt(font, -10.0 - 0.005, 20.001));
    EXPECT_TRUE(SharesAt(font, -10.0 - 0.006, 20.001));
    // What lies next to a border may come to lie on it when more is added.
    EXPECT_FALSE(SharesAt(font, std::nextafter(-10.0, 0.0), 20.001));
    EXPECT_FALSE(SharesAt(font, std::nextafter(-10.0, -11.0), 20.001));
    EXPECT_FALSE(SharesAt(font, 10.0, 20.001));
    EXPECT_FALSE(SharesAt(font, std::nextafter(10.0, 11.0), 20.001));
    EXPECT_FALSE(SharesAt(font, std::nextafter(10.0, 9.0), 20.001));
    // Sums of large numbers lose too many digits to tell.
    EXPECT_FALSE(SharesAt(font, 2e6 + 0.001, 20.001));
    EXPECT_FALSE(SharesAt(font, 2e6 + 0.012, 20.001));
    EXPECT_TRUE(SharesAt(font, 2e6 + 0.012, 20.001));
    QFont underlined = font;
    underlined.setUnderline(true);
    EXPECT_FALSE(SharesAt(underlined, 10.001, 20.001));
    EXPECT_FALSE(SharesAt(underlined, 10.012, 20.001)) << "a rule lies where it was asked for";
    EXPECT_TRUE(SharesAt(underlined, 10.012, 20.001));
    // The fill rule stays with the outlines.
    EXPECT_TRUE(Shares(font, "Main", {{{10.001, 20.001}, "Main"}}, Qt::WindingFill));
    EXPECT_FALSE(Shares(font, "Main", {{{10.001, 20.001}, "Main"}}, Qt::OddEvenFill));
    EXPECT_TRUE(Shares(font, "Main", {{{10.001, 20.001}, "Main"}}, Qt::WindingFill));
}

TEST_F(CachedOutlinesTest, WhatLabelsShareIsWhatQtWouldDrawForEach)
{
    const QString texts[] = {"Wavy", QString::fromUtf8("a\u4e2db"), QString::fromUtf8("\u0645\u0631\u062d ab"), "i\tl",
                             QString::fromUtf8("abc \u05e9\u05dc\u05d5\u05dd")};
    RandomPaths random(77);
    int shared = 0;
    for (int i = 0; i < 2500; ++i)
    {
        QFont font = PixelFont(random.Int(8, 30));
        font.setLetterSpacing(QFont::AbsoluteSpacing, random.Chance(60) ? 0.0 : random.Real(-12.0, 4.0));
        font.setUnderline(random.Chance(10));
        font.setOverline(random.Chance(5));
        font.setStrikeOut(random.Chance(5));
        const QString text = random.OneOf(texts);
        // Two places in the same 64th, or about its border.
        const double part = random.Int(-5 * 64, 60 * 64) / 64.0;
        const auto near = [&]() -> double
        {
            switch (random.Int(0, 19))
            {
            case 0:
                return part;
            case 1:
                return std::nextafter(part, random.Chance(50) ? 1e9 : -1e9);
            case 2:
                return part + (random.Chance(50) ? 1e-8 : -1e-8);
            case 3:
                return part - random.Real(0.0, 1.0 / 64.0);
            default:
                return part + random.Real(0.0, 1.0 / 64.0);
            }
        };
        const double y = 40.0 + random.Int(-64, 64) / 64.0;
        const Qt::FillRule rule = random.Chance(50) ? Qt::WindingFill : Qt::OddEvenFill;
        for (int k = 0; k < 3; ++k)
        {
            const std::vector<PlacedText> pieces{{{near(), k == 2 ? y + near() - part : y}, text},
                                                 {{near(), y + 20.0}, "l. i"}};
            const std::size_t before = Bytes();
            ASSERT_TRUE(DrawnAsDirectly(font, pieces, rule, QColor(200, 20, 60, 160))) << i << ' ' << k;
            shared += Bytes() == before;
        }
    }
    EXPECT_GE(shared, 800);
}

TEST_F(CachedOutlinesTest, PlacesFarAwayOrTinyAreDrawnAsDirectly)
{
    for (const double first :
         {0.0, -0.0, 5e-324, -5e-324, 1e-310, 1e-300, 0.005, -0.005, 1e-7, 15.625, 1e6, -1e6, 1e6 + 0.3})
        // The representation of the third is the number of the place at 15.625.
        for (const double second : {0.005, 0.0, 2000 * 5e-324, 5e-324, 1e-310, 1e6 + 0.301})
        {
            QFont font = PixelFont(20);
            font.setLetterSpacing(QFont::AbsoluteSpacing, -9.0);
            for (const double x : {first, second})
                ASSERT_TRUE(SamePixels(
                    Drawn(
                        [&](QPainter& p)
                        {
                            p.translate(40.0 - std::round(x), 30.0);
                            LabelOutlines(font, "lil", {{{x, 0.0}, "lil"}}, Qt::WindingFill).Fill(p, Qt::red);
                        }),
                    Drawn(
                        [&](QPainter& p)
                        {
                            p.translate(40.0 - std::round(x), 30.0);
                            p.fillPath(DirectPath(font, {{{x, 0.0}, "lil"}}, Qt::WindingFill), Qt::red);
                        })))
                    << first << ' ' << second;
        }
}

TEST_F(CachedOutlinesTest, LinesAndColumnsOfTheSameTextAreToldApart)
{
    // As many lines as characters, at the same places.
    const QFont font = PixelFont(20);
    const QString text = "ab\n";
    const QPointF corner(10.0, 10.0);
    const auto block = QtTextBlock::Of(text, font);
    const double step = QFontMetricsF(font).ascent();
    const auto drawLines = [&](QPainter& p)
    { block->Outlines(font, corner, step, 1, Qt::OddEvenFill).Fill(p, Qt::red); };
    const auto drawColumns = [&](QPainter& p)
    { QtColumns::Of(text, font, 0.0, 0.0)->Outlines(font, corner, 1).Fill(p, Qt::red); };
    size.Empty();
    const QImage lines = Drawn(drawLines);
    size.Empty();
    const QImage columns = Drawn(drawColumns);
    ASSERT_NE(lines, columns);
    EXPECT_TRUE(SamePixels(Drawn(drawLines), lines));
    size.Empty();
    EXPECT_TRUE(SamePixels(Drawn(drawLines), lines));
    EXPECT_TRUE(SamePixels(Drawn(drawColumns), columns));
}

TEST_F(CachedOutlinesTest, HalosAreDrawnAsStrokedDirectly)
{
    constexpr int kCases = 1500;
    int cached = 0;
    int inked = 0;
    for (int i = 0; i < kCases; ++i)
    {
        RandomPaths random(static_cast<unsigned>(i) % 300u + 1000u * static_cast<unsigned>(i % 2));
        const QFont font = PixelFont(random.Int(6, 26));
        const QString text = random.Chance(50) ? "Wavy" : "i l.";
        const std::vector<PlacedText> pieces{{{5.0, 30.0}, text}, {{8.0, 50.0}, "gj"}};
        // The second round comes to the same label with another pen and another transform.
        RandomPaths other(static_cast<unsigned>(i) + 50000u);
        QPen pen(other.NextBrush(), other.Chance(70) ? other.Int(1, 40) : other.Real(0.0, 3.0));
        if (other.Chance(5))
            pen.setCosmetic(true);
        QTransform transform = other.NextTransform();
        if (other.Chance(20))
            transform.scale(1.0 / transform.m11() / pen.widthF(), 1.0 / transform.m22() / pen.widthF());
        if (other.Chance(5))
            transform = QTransform(1.0, 0.1, 0.001, 0.0, 1.0, 0.001, 5.0, 3.0, 1.0) * transform;
        const auto state = other.NextState();
        const auto draw = [&](const Draw& stroke)
        {
            return Drawn(
                [&](QPainter& p)
                {
                    state(p);
                    p.setRenderHint(QPainter::Antialiasing);
                    p.setTransform(transform);
                    stroke(p);
                });
        };
        const QImage directly =
            draw([&](QPainter& p) { p.strokePath(DirectPath(font, pieces, Qt::OddEvenFill), pen); });
        inked += directly != Drawn([](QPainter&) {});
        for (int times = 0; times < 2; ++times)
        {
            const std::size_t before = Bytes();
            ASSERT_TRUE(SamePixels(
                draw([&](QPainter& p) { LabelOutlines(font, text, pieces, Qt::OddEvenFill).Stroke(p, pen); }),
                directly))
                << "case " << i << ", pen " << pen.widthF();
            cached += Bytes() > before;
            if (times == 1)
            {
                EXPECT_EQ(Bytes(), before);
            }
        }
    }
    EXPECT_GE(inked, kCases / 2);
    EXPECT_GE(cached, kCases / 3);
}

TEST_F(CachedOutlinesTest, StrokesAreCachedByTheWidthOfThePenAlone)
{
    const QFont font = PixelFont(20);
    const auto caches = [&](const QPen& pen, double scale)
    {
        const LabelOutlines outlines(font, "Main", {{{5.0, 30.0}, "Main"}}, Qt::OddEvenFill);
        const std::size_t before = Bytes();
        Drawn(
            [&](QPainter& p)
            {
                p.scale(scale, scale);
                outlines.Stroke(p, pen);
            });
        return Bytes() != before;
    };
    EXPECT_TRUE(caches(QPen(Qt::red, 3.0), 1.0));
    EXPECT_FALSE(caches(QPen(Qt::red, 3.0), 1.0));
    EXPECT_FALSE(caches(QPen(Qt::blue, 3.0), 2.0));
    EXPECT_TRUE(caches(QPen(Qt::red, 3.5), 1.0));
    EXPECT_FALSE(caches(QPen(Qt::red, 1.0), 1.0)) << "Qt draws lines up to a pixel wide in another way";
    EXPECT_FALSE(caches(QPen(Qt::red, 0.0), 1.0));
    EXPECT_TRUE(caches(QPen(Qt::red, 1.0), 1.5));
}

} // namespace
