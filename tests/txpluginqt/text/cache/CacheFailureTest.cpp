// What the cache of labels does when there is no memory for an entry.
#include <new>

#include <QFont>

#include <gtest/gtest.h>
#include <tests/txpluginqt/resources/AllocationFailure.h>

#include "CacheSize.h"
#include "NumbersDetail.h"

using namespace txqt;

namespace
{

struct Value
{
    static std::size_t Bytes() { return 1000; }
};

TEST(CacheFailureTest, AFailedAllocationLeavesACacheThatGoesOn)
{
    const CacheSize size(200000);
    LabelCache& cache = LabelCache::OfThread();
    QFont font;
    font.setPixelSize(20);
    const auto get = [&](int i)
    { cache.Get<Value>(font, QString::number(i), NumbersDetail{{i}}, [] { return Value(); }); };
    constexpr int kMost = 60;
    bool happened = true;
    for (int number = 1; happened; ++number)
    {
        ASSERT_LT(number, kMost);
        size.Empty();
        // Room in the index must be made at different times.
        for (int i = 0; i < number; ++i)
            get(i);
        const std::size_t before = cache.Bytes();
        happened = false;
        for (int i = 1000; i < 1030; ++i)
        {
            AllocationFailure failure(number, AllocationFailure::OnlyOne);
            try
            {
                get(i);
            }
            catch (const std::bad_alloc&)
            {
            }
            failure.Stop();
            happened = happened || failure.Happened();
        }
        EXPECT_LE(cache.Bytes(), before + 30 * 1800);
        // All that is kept can be used, put out by others, and let go of.
        for (int i = 0; i < 400; ++i)
            get(i);
        EXPECT_LE(cache.Bytes(), 200000u);
        size.Empty();
        EXPECT_EQ(cache.Bytes(), 0u);
    }
}

} // namespace
