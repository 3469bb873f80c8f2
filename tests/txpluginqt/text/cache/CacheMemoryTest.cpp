// How much memory the cache of labels takes, as the allocator sees it, against what the cache says of itself.
#include <atomic>
#include <thread>
#include <vector>

#if !defined(__SANITIZE_ADDRESS__)
#include <malloc.h>
#endif

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QThread>

#include <tests/support/QuietTest.h>
#include <tests/support/Twins.h>
#include <tests/txpluginqt/text/Label.h>
#include <tests/txpluginqt/text/Measures.h>
#include <txpluginqt/text/QtColumns.h>
#include <txpluginqt/text/QtTextBlock.h>

#include "CacheSize.h"
#include <tests/support/PixelFont.h>

#if defined(__SANITIZE_ADDRESS__)
// The sanitizer's own name; not every compiler has the header for it.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes(); // NOLINT(bugprone-reserved-identifier)
#endif

using namespace TZObjects;
using namespace txqt;

namespace
{

/// What the process has allocated and not freed yet.
long long AllocatedBytes()
{
#if defined(__SANITIZE_ADDRESS__)
    return static_cast<long long>(__sanitizer_get_current_allocated_bytes());
#else
    const struct mallinfo2 info = mallinfo2();
    return static_cast<long long>(info.uordblks + info.hblkhd);
#endif
}

class CacheMemoryTest : public QuietTest
{
protected:
    /// Runs @p fill, and sees that the process took hardly more memory than the cache says.
    template <class Fill>
    void ExpectToBeCounted(Fill fill)
    {
        const CacheSize size(std::size_t(256) << 20);
        // Whatever Qt keeps by itself comes first.
        fill();
        size.Empty();
        const long long before = AllocatedBytes();
        fill();
        const long long taken = AllocatedBytes() - before;
        const auto counted = static_cast<long long>(LabelCache::OfThread().Bytes());
        EXPECT_GT(counted, 1000000) << "too little to say much";
        EXPECT_LE(taken, counted + kMargin);
        EXPECT_GE(taken, counted / 3) << "much more is counted than taken";
        size.Empty();
        EXPECT_LE(AllocatedBytes() - before, kMargin);
    }

    static constexpr long long kMargin = 200000;
};

TEST_F(CacheMemoryTest, MeasuredLinesAreCounted)
{
    ExpectToBeCounted(
        []
        {
            for (int i = 0; i < 4000; ++i)
            {
                QtTextBlock::Of(QString("label number %1").arg(i), PixelFont(20));
                QtTextBlock::Of(QString("label\nnumber\n%1\nx").arg(i), PixelFont(20));
                QtTextBlock::Of(QString("\n\n%1\n\n\n").arg(i), PixelFont(20));
            }
        });
}

TEST_F(CacheMemoryTest, MeasuredColumnsAreCounted)
{
    ExpectToBeCounted(
        []
        {
            for (int i = 0; i < 4000; ++i)
            {
                QtColumns::Of(QString("label number %1").arg(i), PixelFont(20), 1.0, 2.0);
                QtColumns::Of(QString("la\nbel\nnum\nber\n%1").arg(i), PixelFont(20), 1.0, 2.0);
            }
        });
}

TEST_F(CacheMemoryTest, OutlinesAreCounted)
{
    ExpectToBeCounted(
        []
        {
            for (int i = 0; i < 1000; ++i)
                QtTextBlock::Of(QString("label\nnumber %1").arg(i), PixelFont(20))
                    ->Outlines(PixelFont(20), QPointF(0.25, 0.5), 20.0, 1, Qt::WindingFill);
        });
}

TEST_F(CacheMemoryTest, OutlinesOfTextsWithoutInkAreCounted)
{
    ExpectToBeCounted(
        []
        {
            for (int i = 0; i < 8000; ++i)
                LabelOutlines(PixelFont(20), " ", {{{i * 1.0, 0.0}, " "}}, Qt::WindingFill);
        });
}

TEST_F(CacheMemoryTest, HalosAreCounted)
{
    ExpectToBeCounted(
        []
        {
            QImage image(100, 40, QImage::Format_ARGB32_Premultiplied);
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing);
            for (int i = 0; i < 400; ++i)
                QtColumns::Of(QString("la\nbel\nnum\nber\n%1").arg(i), PixelFont(20), 1.0, 2.0)
                    ->Outlines(PixelFont(20), QPointF(0.0, 0.0), 1)
                    .Stroke(painter, QPen(Qt::red, 3.0));
        });
}

TEST_F(CacheMemoryTest, HalosOfTextsWithoutInkAreCounted)
{
    // Their places are all that is kept of them.
    ExpectToBeCounted(
        []
        {
            QImage image(10, 10, QImage::Format_ARGB32_Premultiplied);
            QPainter painter(&image);
            for (int i = 0; i < 30; ++i)
            {
                const LabelOutlines outlines(PixelFont(20), QString(1000, ' '),
                                             std::vector<PlacedText>(1000, {QPointF(i, 0.0), " "}), Qt::WindingFill);
                outlines.Stroke(painter, QPen(Qt::red, 3.0));
                outlines.Stroke(painter, QPen(Qt::red, 4.0));
            }
        });
}

TEST_F(CacheMemoryTest, MeasuresAreCounted)
{
    FontChoice choice;
    const TXRefPtr<TXFont> font = MakeFont(choice);
    ExpectToBeCounted(
        [&]
        {
            for (int i = 0; i < 4000; ++i)
                Measures(*font, TXString(L"label number " + std::to_wstring(i)), true);
        });
}

TEST_F(CacheMemoryTest, MeasuresWithFontsOfTheirOwnAreCounted)
{
    ExpectToBeCounted(
        [&]
        {
            for (int i = 0; i < 4000; ++i)
            {
                const TXRefPtr<TXFont> font = MakeFont({});
                Measures(*font, TXString(L"x" + std::to_wstring(i)), true);
            }
        });
}

TEST_F(CacheMemoryTest, ManyDifferentLabelsStayWithinTheLimit)
{
    constexpr std::size_t kLimit = std::size_t(4) << 20;
    const CacheSize size(kLimit);
    Twins twins;
    const auto draw = [&](int first, int last)
    {
        for (int i = first; i < last; ++i)
        {
            Label label;
            label.text = L"name " + std::to_wstring(i);
            label.angle = i % 2 * 30.0;
            label.font.haloWidth = 3;
            twins.Surface().SelectFont(MakeFont(label.font));
            Draw(twins.Surface(), kAllEntries[i % 8], label);
            ASSERT_LE(LabelCache::OfThread().Bytes(), kLimit);
        }
    };
    draw(0, 16);
    size.Empty();
    const long long before = AllocatedBytes();
    long long most = 0;
    for (int first = 0; first < 20000; first += 500)
    {
        draw(1000 + first, 1500 + first);
        most = std::max(most, AllocatedBytes() - before);
    }
    EXPECT_LE(most, static_cast<long long>(kLimit) + 1000000);
    EXPECT_GE(most, static_cast<long long>(kLimit) / 3);
    size.Empty();
    EXPECT_LE(AllocatedBytes() - before, 1000000);
}

TEST_F(CacheMemoryTest, ManyDifferentFontsStayWithinTheLimit)
{
    constexpr std::size_t kLimit = std::size_t(1) << 20;
    const CacheSize size(kLimit);
    QImage image(40, 40, QImage::Format_ARGB32_Premultiplied);
    const auto draw = [&](int first, int last)
    {
        for (int i = first; i < last; ++i)
        {
            QPainter painter(&image);
            const QFont font = PixelFont(10 + i);
            QtTextBlock::Of("A", font)
                ->Outlines(font, QPointF(0.0, 0.0), 20.0, 1, Qt::WindingFill)
                .Fill(painter, Qt::red);
            QtColumns::Of("A", font, 0.0, 0.0)->Outlines(font, QPointF(0.0, 0.0), 1).Fill(painter, Qt::red);
        }
    };
    draw(0, 50);
    const long long before = AllocatedBytes();
    draw(50, 3000);
    EXPECT_LE(AllocatedBytes() - before, static_cast<long long>(kLimit));
}

// AddressSanitizer tells by itself what a thread leaves behind, and keeps memory of its own.
#if !defined(__SANITIZE_ADDRESS__)
TEST_F(CacheMemoryTest, GoesWithItsThread)
{
    const CacheSize size(kUsualCacheSize);
    const auto work = []
    {
        for (int i = 0; i < 300; ++i)
            QtTextBlock::Of(QString("label number %1").arg(i), PixelFont(20))
                ->Outlines(PixelFont(20), QPointF(0.25, 0.5), 20.0, 1, Qt::WindingFill);
        EXPECT_GT(LabelCache::OfThread().Bytes(), 1000000u);
    };
    const auto onThread = [&] { std::thread(work).join(); };
    const auto onQtThread = [&]
    {
        const std::unique_ptr<QThread> thread(QThread::create(work));
        thread->start();
        thread->wait();
    };
    onThread();
    onQtThread();
    const long long before = AllocatedBytes();
    for (int i = 0; i < 3; ++i)
    {
        onThread();
        onQtThread();
    }
    EXPECT_LE(AllocatedBytes() - before, 500000);
}
#endif

} // namespace
