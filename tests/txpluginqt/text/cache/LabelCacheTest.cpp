// What the cache of labels keeps, for how long, and how much of it.
#include <algorithm>
#include <list>
#include <string>
#include <thread>
#include <unordered_map>

#include <QHash>

#include "LabelCacheTest.h"
#include <tests/support/RandomSource.h>

using namespace txqt;

namespace
{

TEST_F(LabelCacheTest, GivesTheCachedObjectWithoutMakingAnother)
{
    int made = 0;
    const auto get = [&] {
        return LabelCache::OfThread().Get<Sized>(Font(), "text", NumbersDetail{{1, 2}},
                                                 [&] {
                                                     return Sized{10, ++made};
                                                 });
    };
    const std::shared_ptr<const Sized> first = get();
    EXPECT_EQ(get(), first);
    EXPECT_EQ(get().get(), first.get());
    EXPECT_EQ(made, 1);
    EXPECT_EQ(first->number, 1);
}

TEST_F(LabelCacheTest, TellsKindsTextsAndDetailsApart)
{
    LabelCache& cache = LabelCache::OfThread();
    const auto sized = cache.Get<Sized>(Font(), "text", NumbersDetail{{1}}, [] { return Sized{8, 1}; });
    const auto other = cache.Get<OtherKind>(Font(), "text", NumbersDetail{{1}}, [] { return OtherKind{2}; });
    EXPECT_EQ(sized->number, 1);
    EXPECT_EQ(other->number, 2);
    EXPECT_TRUE(Hits("text", 8, Font(), {1}));
    EXPECT_FALSE(Hits("Text", 8, Font(), {1}));
    EXPECT_FALSE(Hits("text ", 8, Font(), {1}));
    EXPECT_FALSE(Hits("", 8, Font(), {1}));
    for (const std::vector<qint64>& details :
         {std::vector<qint64>{}, {2}, {1, 1}, {1, 0}, {0, 1}, {-1}, {qint64(1) << 32}, {(qint64(1) << 32) + 1}})
    {
        EXPECT_FALSE(Hits("text", 8, Font(), details));
        EXPECT_TRUE(Hits("text", 8, Font(), details));
    }
    EXPECT_TRUE(Hits("text", 8, Font(), {1}));
}

TEST_F(LabelCacheTest, TextsOfTheSameHashAreToldApart)
{
    SetSize(std::size_t(32) << 20);
    std::unordered_map<uint, QString> texts;
    int pairs = 0;
    RandomSource random(3);
    for (int i = 0; i < 400000 && pairs < 3; ++i)
    {
        QString text;
        for (int k = 0; k < 9; ++k)
            text += QChar(random.Int('a', 'z'));
        const auto [same, isNew] = texts.emplace(qHash(text), text);
        if (isNew)
            continue;
        ++pairs;
        EXPECT_FALSE(Hits(same->second));
        EXPECT_FALSE(Hits(text));
        EXPECT_TRUE(Hits(text));
        EXPECT_TRUE(Hits(same->second));
    }
    EXPECT_GE(pairs, 1);
}

TEST_F(LabelCacheTest, OfTwoTextsOfTheSameHashTheOneNotUsedGoes)
{
    QString first;
    QString second;
    std::unordered_map<uint, QString> texts;
    RandomSource random(3);
    while (second.isNull())
    {
        QString text;
        for (int k = 0; k < 9; ++k)
            text += QChar(random.Int('a', 'z'));
        const auto [same, isNew] = texts.emplace(qHash(text), text);
        if (isNew)
            continue;
        first = same->second;
        second = text;
    }
    // Room for both and one more, in either order: no other text is longer.
    Hits(first);
    SetSize(3 * Bytes());
    for (const bool firstIsUsed : {true, false})
    {
        Empty();
        EXPECT_FALSE(Hits(first));
        EXPECT_FALSE(Hits(second));
        EXPECT_TRUE(Hits(firstIsUsed ? first : second));
        EXPECT_FALSE(Hits("another"));
        EXPECT_FALSE(Hits("a fourth"));
        EXPECT_TRUE(Hits(firstIsUsed ? first : second));
        EXPECT_FALSE(Hits(firstIsUsed ? second : first));
    }
}

TEST_F(LabelCacheTest, WhatWasSeenBeforeIsToldApartByTextSizeAndKind)
{
    LabelCache& cache = LabelCache::OfThread();
    const auto isNew = [&](const QFont& font, const QString& text, int what)
    {
        const bool first = !cache.SeenBefore(font, text, what);
        EXPECT_TRUE(cache.SeenBefore(font, text, what)) << "it was asked for a moment ago";
        return first;
    };
    EXPECT_TRUE(isNew(Font(), "seen", 1));
    EXPECT_FALSE(isNew(Font(), "seen", 1));
    EXPECT_TRUE(isNew(Font(21), "seen", 1));
    EXPECT_TRUE(isNew(Font(), "seem", 1));
    EXPECT_TRUE(isNew(Font(), "seen", 2));
    EXPECT_FALSE(isNew(Font(), "seen", 1));
    EXPECT_EQ(cache.Bytes(), 0u);
}

TEST_F(LabelCacheTest, NothingWasSeenBeforeWhereNothingIsCached)
{
    LabelCache& cache = LabelCache::OfThread();
    SetSize(0);
    EXPECT_FALSE(cache.SeenBefore(Font(), "never kept", 1));
    EXPECT_FALSE(cache.SeenBefore(Font(), "never kept", 1));
    SetSize(10000);
    EXPECT_FALSE(cache.SeenBefore(Font(), "never kept", 1));
    EXPECT_TRUE(cache.SeenBefore(Font(), "never kept", 1));
}

TEST_F(LabelCacheTest, TextsAndDetailsThatHardlyDifferAreToldApart)
{
    // A large number of short texts, and details that may cancel in a hash.
    for (int i = 0; i < 300; ++i)
        for (int k = 0; k < 4; ++k)
            ASSERT_FALSE(Hits(QString(QChar(i + 1)), 1, Font(), {k, i}));
    for (int i = 0; i < 300; ++i)
        for (int k = 0; k < 4; ++k)
            ASSERT_TRUE(Hits(QString(QChar(i + 1)), 1, Font(), {k, i}));
}

TEST_F(LabelCacheTest, WhatWasNotUsedForTheLongestTimeGoesFirst)
{
    SetSize(4200);
    for (const char* const text : {"a", "b", "c"})
        ASSERT_FALSE(Hits(text, 600));
    ASSERT_GT(Bytes() + 600, 4200u) << "a fourth must not fit";
    ASSERT_TRUE(Hits("a", 600));
    ASSERT_FALSE(Hits("d", 600));
    EXPECT_TRUE(Hits("a", 600));
    EXPECT_TRUE(Hits("c", 600));
    EXPECT_TRUE(Hits("d", 600));
    EXPECT_FALSE(Hits("b", 600));
    // That put a out, which was used before c and d.
    EXPECT_TRUE(Hits("c", 600));
    EXPECT_TRUE(Hits("d", 600));
    EXPECT_FALSE(Hits("a", 600));
}

TEST_F(LabelCacheTest, KeepsExactlyWhatASimpleListOfTheLastUsedWouldKeep)
{
    constexpr std::size_t limit = 40000;
    SetSize(limit);
    // What an entry takes, seen from outside.
    Empty();
    Hits("x", 0);
    const std::size_t perEntry = Bytes();
    EXPECT_LE(perEntry, kMostPerEntry);
    Empty();

    struct Cached
    {
        int name;
        std::size_t bytes;
    };
    std::list<Cached> model;
    RandomSource random(5);
    for (int i = 0; i < 20000; ++i)
    {
        const int name = random.Int(0, 299);
        const std::size_t size = name % 40 == 0 ? 41000 : name * 7u;
        const QString text(1, QChar(0x4e00 + name));
        const auto found =
            std::find_if(model.begin(), model.end(), [&](const Cached& cached) { return cached.name == name; });
        ASSERT_EQ(Hits(text, size), found != model.end()) << "call " << i;
        const std::size_t needed = perEntry + size;
        if (found != model.end())
            model.splice(model.begin(), model, found);
        else if (needed <= limit)
        {
            std::size_t total = needed;
            for (const Cached& cached : model)
                total += cached.bytes;
            for (; total > limit; model.pop_back())
                total -= model.back().bytes;
            model.push_front({name, needed});
        }
        std::size_t total = 0;
        for (const Cached& cached : model)
            total += cached.bytes;
        ASSERT_EQ(Bytes(), total) << "call " << i;
        ASSERT_LE(Bytes(), limit);
    }
}

TEST_F(LabelCacheTest, CountsTextsAndDetails)
{
    Hits("", 0);
    const std::size_t plain = Bytes();
    EXPECT_GT(plain, 100u);
    Empty();
    Hits(QString(1000, 'x'), 0);
    EXPECT_EQ(Bytes(), plain + 2000);
    Empty();
    Hits("", 0, Font(), std::vector<qint64>(100));
    EXPECT_EQ(Bytes(), plain + 800);
    Empty();
    Hits("", 12345);
    EXPECT_EQ(Bytes(), plain + 12345);
}

TEST_F(LabelCacheTest, NeverHoldsMoreThanItsLimitWhateverTheLimitDoes)
{
    RandomSource random(11);
    std::size_t limit = 0;
    int hits = 0;
    for (int i = 0; i < 20000; ++i)
    {
        if (i % 500 == 0)
            SetSize(limit = random.Below(5) == 0 ? 0 : random.Below(200000u));
        const std::size_t size = random.Below(100) == 0 ? random.Below(300000u) : random.Below(3000u);
        hits += Hits(QString(random.Below(10), QChar(random.Int('a', 'z'))), size);
        ASSERT_LE(Bytes(), limit);
    }
    EXPECT_GT(hits, 1000);
}

TEST_F(LabelCacheTest, DoesNotKeepWhatIsLargerThanItsLimit)
{
    SetSize(10000);
    EXPECT_FALSE(Hits("small", 100));
    const std::size_t before = Bytes();
    EXPECT_FALSE(Hits("large", 10000));
    EXPECT_FALSE(Hits("large", 10000));
    EXPECT_EQ(Bytes(), before);
    EXPECT_TRUE(Hits("small", 100)) << "what is not kept puts nothing out";
    // What fits just so is kept, alone or beside another.
    Empty();
    Hits("", 0);
    const std::size_t perEntry = Bytes();
    Empty();
    EXPECT_FALSE(Hits("", 5000 - perEntry, Font(), {}));
    EXPECT_FALSE(Hits("", 5000 - perEntry - sizeof(qint64), Font(), {1}));
    EXPECT_EQ(Bytes(), 10000u);
    EXPECT_TRUE(Hits("", 5000 - perEntry, Font(), {}));
    Empty();
    EXPECT_FALSE(Hits("", 10000 - perEntry));
    EXPECT_TRUE(Hits("", 10000 - perEntry));
    EXPECT_EQ(Bytes(), 10000u);
    Empty();
    EXPECT_FALSE(Hits("", 10001 - perEntry));
    EXPECT_FALSE(Hits("", 10001 - perEntry));
}

TEST_F(LabelCacheTest, ASizeOfZeroKeepsNothingAndLetsGoOfAll)
{
    std::weak_ptr<const Sized> kept = LabelCache::OfThread().Get<Sized>(Font(), "a", NumbersDetail(),
                                                                        [] {
                                                                            return Sized{9, 0};
                                                                        });
    ASSERT_FALSE(kept.expired());
    SetSize(0);
    EXPECT_FALSE(LabelCache::OfThread().IsOn());
    EXPECT_TRUE(kept.expired());
    EXPECT_EQ(Bytes(), 0u);
    EXPECT_FALSE(Hits("a"));
    EXPECT_FALSE(Hits("a"));
    EXPECT_EQ(Bytes(), 0u);
    SetSize(10000);
    EXPECT_TRUE(LabelCache::OfThread().IsOn());
    EXPECT_FALSE(Hits("a"));
    EXPECT_TRUE(Hits("a"));
}

TEST_F(LabelCacheTest, ASmallerSizeLetsGoOfTheOldest)
{
    for (int i = 0; i < 100; ++i)
        Hits(QString::number(i), 1000);
    SetSize(20000);
    EXPECT_TRUE(LabelCache::OfThread().IsOn());
    EXPECT_LE(Bytes(), 20000u);
    EXPECT_GT(Bytes(), 15000u);
    EXPECT_TRUE(Hits("99", 1000));
    EXPECT_TRUE(Hits("90", 1000));
    EXPECT_FALSE(Hits("50", 1000));
    // A larger one loses nothing.
    SetSize(100000);
    EXPECT_TRUE(Hits("99", 1000));
}

TEST_F(LabelCacheTest, ValuesInUseOutliveTheCache)
{
    const auto held = LabelCache::OfThread().Get<Sized>(Font(), "a", NoDetail(), [] { return Sized{9, 42}; });
    Empty();
    EXPECT_EQ(held->number, 42);
}

TEST_F(LabelCacheTest, EveryThreadHasACacheOfItsOwn)
{
    ASSERT_FALSE(Hits("a"));
    const std::size_t before = Bytes();
    LabelCache* const mine = &LabelCache::OfThread();
    std::thread(
        [&]
        {
            EXPECT_NE(&LabelCache::OfThread(), mine);
            EXPECT_EQ(Bytes(), 0u);
            EXPECT_FALSE(Hits("a"));
            EXPECT_FALSE(Hits("b"));
            EXPECT_TRUE(Hits("a"));
        })
        .join();
    EXPECT_EQ(Bytes(), before);
    EXPECT_TRUE(Hits("a"));
    EXPECT_FALSE(Hits("b"));
}

TEST_F(LabelCacheTest, AFailureToMakeAValueLeavesTheCacheAsItWas)
{
    struct Failure
    {
    };
    ASSERT_FALSE(Hits("a"));
    const std::size_t before = Bytes();
    EXPECT_THROW(LabelCache::OfThread().Get<Sized>(Font(), "b", NumbersDetail(), []() -> Sized { throw Failure(); }),
                 Failure);
    EXPECT_EQ(Bytes(), before);
    EXPECT_TRUE(Hits("a"));
    EXPECT_FALSE(Hits("b"));
}

} // namespace
