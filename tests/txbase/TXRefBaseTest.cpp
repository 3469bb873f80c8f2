#include <txbase/TXRefBase.h>

#include <thread>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

using TZObjects::TXRefBase;

namespace
{

static_assert(std::has_virtual_destructor_v<TXRefBase>);
static_assert(std::is_same_v<decltype(&TXRefBase::AddRef), void (TXRefBase::*)() noexcept>);
static_assert(std::is_same_v<decltype(&TXRefBase::Release), bool (TXRefBase::*)() noexcept>);

/// Says when it is destroyed.
class Mortal : public TXRefBase
{
public:
    explicit Mortal(int& deaths) : deaths(deaths) {}
    ~Mortal() override { ++deaths; }

private:
    int& deaths;
};

class Copyable : public TXRefBase
{
public:
    explicit Copyable(int& deaths) : deaths(&deaths) {}
    Copyable(const Copyable&) = default;
    Copyable& operator=(const Copyable&) = default;
    ~Copyable() override { ++*deaths; }

private:
    int* deaths;
};

} // namespace

TEST(TXRefBase, StartsWithoutAReference)
{
    int deaths = 0;
    TXRefBase* const object = new Mortal(deaths);
    object->AddRef();
    EXPECT_TRUE(object->Release());
    EXPECT_EQ(deaths, 1);
}

TEST(TXRefBase, DiesWithItsLastReference)
{
    int deaths = 0;
    TXRefBase* const object = new Mortal(deaths);
    object->AddRef();
    object->AddRef();
    object->AddRef();
    EXPECT_FALSE(object->Release());
    EXPECT_FALSE(object->Release());
    EXPECT_EQ(deaths, 0);
    EXPECT_TRUE(object->Release());
    EXPECT_EQ(deaths, 1);
}

TEST(TXRefBase, DiesOnReleaseThoughItNeverHadAReference)
{
    int deaths = 0;
    TXRefBase* const object = new Mortal(deaths);
    EXPECT_TRUE(object->Release());
    EXPECT_EQ(deaths, 1);
}

TEST(TXRefBase, MayLiveWithoutBeingCounted)
{
    int deaths = 0;
    {
        Mortal object(deaths);
        object.AddRef();
        object.AddRef();
        EXPECT_FALSE(object.Release());
    }
    EXPECT_EQ(deaths, 1);
}

TEST(TXRefBase, ACopyHasACountOfItsOwn)
{
    int deaths = 0;
    Copyable* const original = new Copyable(deaths);
    original->AddRef();
    original->AddRef();
    original->AddRef();
    Copyable* const copy = new Copyable(*original);
    copy->AddRef();
    EXPECT_TRUE(copy->Release());
    EXPECT_EQ(deaths, 1);
    EXPECT_FALSE(original->Release());
    EXPECT_FALSE(original->Release());
    EXPECT_TRUE(original->Release());
    EXPECT_EQ(deaths, 2);
}

TEST(TXRefBase, AssignmentLeavesBothCountsAlone)
{
    int deaths = 0;
    Copyable* const target = new Copyable(deaths);
    Copyable* const source = new Copyable(deaths);
    target->AddRef();
    target->AddRef();
    for (int i = 0; i < 5; ++i)
        source->AddRef();
    EXPECT_EQ(&(*target = *source), target);
    EXPECT_FALSE(target->Release());
    EXPECT_TRUE(target->Release());
    for (int i = 0; i < 4; ++i)
        EXPECT_FALSE(source->Release());
    EXPECT_TRUE(source->Release());
    EXPECT_EQ(deaths, 2);
}

TEST(TXRefBase, CountsOnManyThreadsAtOnce)
{
    constexpr int kThreads = 4;
    constexpr int kRounds = 200000;
    int deaths = 0;
    TXRefBase* const object = new Mortal(deaths);
    object->AddRef();
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back(
            [object]
            {
                for (int round = 0; round < kRounds; ++round)
                {
                    object->AddRef();
                    object->Release();
                }
                object->AddRef();
            });
    for (std::thread& thread : threads)
        thread.join();
    ASSERT_EQ(deaths, 0);
    for (int i = 0; i < kThreads; ++i)
        ASSERT_FALSE(object->Release());
    EXPECT_TRUE(object->Release());
    EXPECT_EQ(deaths, 1);
}

TEST(TXRefBase, DiesOnceWhenThreadsDropTheLastReferencesTogether)
{
    for (int i = 0; i < 500; ++i)
    {
        int deaths = 0;
        TXRefBase* const object = new Mortal(deaths);
        object->AddRef();
        object->AddRef();
        bool destroyedThere = false;
        std::thread other([&] { destroyedThere = object->Release(); });
        const bool destroyedHere = object->Release();
        other.join();
        ASSERT_NE(destroyedHere, destroyedThere);
        ASSERT_EQ(deaths, 1);
    }
}
