// Labels drawn more than once, from what is kept of them, against the same labels drawn directly.
#include <cstring>

#include <QPicture>

#include <tests/support/ImageCompare.h>
#include <tests/support/PainterState.h>
#include <tests/support/QuietTest.h>
#include <tests/support/Twins.h>
#include <tests/txpluginqt/text/ExpectedLabel.h>
#include <tests/txpluginqt/text/LabelTexts.h>
#include <tests/txpluginqt/text/RandomLabels.h>

#include "CacheSize.h"
#include <tests/txpluginqt/raster/RandomPaths.h>

using namespace TZObjects;

using namespace txqt;

namespace
{

Label Moved(Label label, double dx, double dy)
{
    for (double* const x : {&label.x, &label.left, &label.right})
        *x += dx;
    for (double* const y : {&label.y, &label.top, &label.bottom})
        *y += dy;
    return label;
}

/// Few labels of many kinds, so that the same come again, and such as differ in one thing only.
Label SomeLabel(RandomPaths& random, RandomLabels& labels)
{
    Label label = labels.NextLabel();
    if (random.Chance(60))
    {
        static const wchar_t* const texts[] = {L"Wavy fj", L"a\nlonger", L"<BOL>b</BOL>", L"i l ."};
        label.text = random.OneOf(texts);
        FontChoice font;
        font.height = random.Chance(50) ? 17 : 18;
        font.bold = random.Chance(30);
        font.underline = random.Chance(20);
        font.letterSpacing = random.Chance(30) ? 2.0 : 0.0;
        font.italic = static_cast<TXFont::TXItalicMode>(random.Int(0, 2));
        label.font = font;
        label.x = label.y = 30.0;
        label.left = label.top = 22.0;
    }
    label.font.haloWidth = random.Chance(50) ? random.Int(1, 5) : random.Int(1, 40);
    return label;
}

/// A transform that a host's own painter may bring along.
QTransform SomeTransform(RandomPaths& random)
{
    QTransform transform;
    switch (random.Int(0, 9))
    {
    case 0:
        transform.rotate(random.Real(-30, 30));
        break;
    case 1:
        transform.shear(random.Real(-0.4, 0.4), random.Real(-0.4, 0.4));
        break;
    case 2:
        transform = QTransform(-1, 0, 0, 1, 150, 0);
        break;
    case 3:
        transform = QTransform(1.0, 0.1, 0.001, 0.0, 1.0, 0.002, 5.0, 3.0, 1.0);
        break;
    case 4:
        transform.scale(random.Real(0.3, 2.0), random.Real(0.3, 2.0));
        break;
    default:
        transform.translate(random.Real(-9, 9), random.Real(-9, 9));
    }
    return transform;
}

class RepeatedLabelsTest : public QuietTest
{
protected:
    /// Draws each of many labels at three places, one over the other, comparing each time.
    void DrawMany(std::size_t cacheSize, unsigned seed, int cases)
    {
        const CacheSize size(cacheSize);
        int inked = 0;
        for (const TXImage::Format format :
             {TXImage::Format_RGB32, TXImage::Format_ARGB32, TXImage::Format_ARGB32_Premultiplied})
        {
            Twins twins(150, 100, format);
            const QImage background = twins.Expected().copy();
            RandomLabels labels(seed + static_cast<unsigned>(format));
            RandomPaths random(seed * 31 + static_cast<unsigned>(format));
            for (int i = 0; i < cases; ++i)
            {
                SCOPED_TRACE(::testing::Message() << "format " << format << ", case " << i);
                const Label label = SomeLabel(random, labels);
                const auto change = labels.NextChange();
                const QTransform transform = SomeTransform(random);
                const bool view = random.Chance(15);
                const Entry entry = kAllEntries[i % 8];
                const QColor pen = labels.NextColor();
                const auto state = [&](QPainter& painter)
                {
                    painter.setPen(pen);
                    change(painter);
                    painter.setTransform(transform, true);
                    if (view)
                    {
                        painter.setWindow(-10, -5, 160, 130);
                        painter.setViewport(3, 2, 140, 90);
                    }
                };
                ASSERT_TRUE(DrawThrice(twins, background, entry, label, state)) << NameOf(entry) << ' ' << label;
                inked += twins.Expected() != background;
            }
        }
        EXPECT_GE(inked, cases * 3 / 2);
    }

private:
    static bool DrawThrice(Twins& twins, const QImage& background, Entry entry, const Label& label,
                           const std::function<void(QPainter&)>& state)
    {
        for (QImage* const image : {&twins.Actual(), &twins.Expected()})
            std::memcpy(image->bits(), background.constBits(), static_cast<std::size_t>(background.sizeInBytes()));
        twins.Both([](QPainter& painter) { painter.save(); });
        twins.Both(state);
        twins.Surface().SelectFont(MakeFont(label.font));
        twins.Direct().setFont(DirectFont(label.font));
        bool same = true;
        for (const QPointF& by : {QPointF(0, 0), QPointF(7.25, -3.0), QPointF(-4.015625, 9.37)})
        {
            const Label moved = Moved(label, by.x(), by.y());
            same = same && Draw(twins.Surface(), entry, moved);
            DrawDirectly(twins.Direct(), entry, moved);
            same = same && twins.Actual() == twins.Expected();
        }
        same = same && SameState(twins.SurfacePainter(), twins.Direct());
        twins.Both([](QPainter& painter) { painter.restore(); });
        return same;
    }
};

TEST_F(RepeatedLabelsTest, AreDrawnAsTheFirstTime) { DrawMany(kUsualCacheSize, 100, 400); }

TEST_F(RepeatedLabelsTest, AreDrawnAsTheFirstTimeWhenNothingIsKept) { DrawMany(0, 200, 160); }

TEST_F(RepeatedLabelsTest, AreDrawnAsTheFirstTimeWhenLittleIsKept) { DrawMany(65536, 300, 400); }

TEST_F(RepeatedLabelsTest, TakeNothingMoreToKeep)
{
    const CacheSize size(kUsualCacheSize);
    Twins twins;
    for (const Entry entry : kAllEntries)
    {
        Label label;
        label.text = L"kept once";
        label.font.haloWidth = 4;
        twins.Surface().SelectFont(MakeFont(label.font));
        const std::size_t before = LabelCache::OfThread().Bytes();
        Draw(twins.Surface(), entry, label);
        const std::size_t kept = LabelCache::OfThread().Bytes();
        if (entry == Entry::StringInBox || entry == Entry::OutlineAt || entry == Entry::VerticalAbout)
        {
            EXPECT_GT(kept, before) << NameOf(entry);
        }
        for (const double by : {0.0, 8.0, -3.0})
        {
            twins.Surface().SelectFont(MakeFont(label.font));
            Draw(twins.Surface(), entry, Moved(label, by, by));
        }
        EXPECT_EQ(LabelCache::OfThread().Bytes(), kept) << NameOf(entry);
    }
}

TEST_F(RepeatedLabelsTest, AreRecordedByOtherDevicesAsTheFirstTime)
{
    const CacheSize size(kUsualCacheSize);
    RandomLabels labels(4);
    RandomPaths random(4);
    for (int i = 0; i < 160; ++i)
    {
        Label label = SomeLabel(random, labels);
        if (IsRich(label))
            label.text = L"plain";
        const Entry entry = kAllEntries[i % 8];
        // On a raster first, so that all is kept.
        Twins twins;
        twins.Surface().SelectFont(MakeFont(label.font));
        Draw(twins.Surface(), entry, label);
        const auto recorded = [&](const std::function<void(QPainter&)>& draw)
        {
            QPicture picture;
            QPainter painter(&picture);
            painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
            painter.setPen(Qt::darkGreen);
            painter.setFont(DirectFont(label.font));
            draw(painter);
            painter.end();
            QImage played(150, 100, QImage::Format_ARGB32_Premultiplied);
            played.fill(Qt::white);
            QPainter player(&played);
            picture.play(&player);
            return played;
        };
        const auto onSurface = [&](QPainter& painter)
        {
            const TXRefPtr<TXGraphics> surface = TestEngine().NewGraphics();
            surface->Attach(&painter);
            surface->SelectFont(MakeFont(label.font));
            for (int times = 0; times < 3; ++times)
                EXPECT_TRUE(Draw(*surface, entry, Moved(label, times * 3.0, times * 5.5)));
            surface->Detach();
        };
        const auto directly = [&](QPainter& painter)
        {
            for (int times = 0; times < 3; ++times)
                DrawDirectly(painter, entry, Moved(label, times * 3.0, times * 5.5));
        };
        ASSERT_TRUE(SamePixels(recorded(onSurface), recorded(directly))) << NameOf(entry) << ' ' << label;
    }
}

TEST_F(RepeatedLabelsTest, FollowEveryChangeOfTheirFont)
{
    const CacheSize size(kUsualCacheSize);
    static constexpr void (*changes[])(QFont&) = {
        [](QFont& f) { f.setUnderline(true); },
        [](QFont& f) { f.setOverline(true); },
        [](QFont& f) { f.setStrikeOut(true); },
        [](QFont& f) { f.setPixelSize(23); },
        [](QFont& f) { f.setWeight(QFont::Black); },
        [](QFont& f) { f.setStretch(150); },
        [](QFont& f) { f.setStyle(QFont::StyleItalic); },
        [](QFont& f) { f.setLetterSpacing(QFont::PercentageSpacing, 150.0); },
        [](QFont& f) { f.setLetterSpacing(QFont::AbsoluteSpacing, 3.0); },
        [](QFont& f) { f.setWordSpacing(9.0); },
        [](QFont& f) { f.setCapitalization(QFont::AllUppercase); },
        [](QFont& f) { f.setKerning(false); },
        [](QFont& f) { f.setFamily("DejaVu Serif"); },
    };
    for (const Entry entry : kAllEntries)
    {
        Label label;
        label.text = L"AVA Wavy\nfj i";
        const TXRefPtr<TXFont> font = MakeFont(label.font);
        Twins twins;
        twins.Surface().SelectFont(font);
        for (const auto& change : changes)
        {
            // The host's own hand, on the font behind the interface.
            change(*static_cast<QFont*>(font->GetInternalObject()));
            twins.Wipe();
            Draw(twins.Surface(), entry, label);
            const QImage kept = twins.Actual().copy();
            twins.Wipe();
            size.Empty();
            Draw(twins.Surface(), entry, label);
            ASSERT_TRUE(SamePixels(kept, twins.Actual())) << NameOf(entry) << ' ' << (&change - changes);
            // The next change meets what was kept of this state.
        }
    }
}

} // namespace
