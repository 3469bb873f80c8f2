#include <txbase/TXLock.h>

#include <atomic>
#include <stdexcept>
#include <thread>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

using TZObjects::TXLock;
using TZObjects::TXScopedLock;

namespace
{

static_assert(std::is_default_constructible_v<TXLock>);
static_assert(!std::is_copy_constructible_v<TXLock> && !std::is_copy_assignable_v<TXLock>);
static_assert(std::is_constructible_v<TXScopedLock, TXLock&>);
static_assert(!std::is_copy_constructible_v<TXScopedLock> && !std::is_copy_assignable_v<TXScopedLock>);
// A temporary lock would protect nothing.
static_assert(!std::is_constructible_v<TXScopedLock, TXLock>);

constexpr int kThreads = 4;

template <class Work>
void OnThreads(Work work)
{
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back(work);
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace

TEST(TXLock, LetsOneThreadInAtATime)
{
    constexpr int kRounds = 2000;
    TXLock lock;
    std::atomic<int> inside{0};
    std::atomic<int> together{0};
    OnThreads(
        [&]
        {
            for (int i = 0; i < kRounds; ++i)
            {
                const TXScopedLock guard(lock);
                if (++inside > 1)
                    ++together;
                // Hands the processor over while the lock is held, which is when another thread could slip in.
                std::this_thread::yield();
                --inside;
            }
        });
    EXPECT_EQ(together, 0);
}

TEST(TXLock, MakesPlainDataSafeToShare)
{
    constexpr int kRounds = 50000;
    TXLock lock;
    long long sum = 0;
    OnThreads(
        [&]
        {
            for (int i = 0; i < kRounds; ++i)
            {
                const TXScopedLock guard(lock);
                ++sum;
            }
        });
    EXPECT_EQ(sum, static_cast<long long>(kThreads) * kRounds);
}

// Where the guard did not let go, the next one would wait for ever.
TEST(TXLock, IsFreeAgainAfterTheGuard)
{
    TXLock lock;
    for (int i = 0; i < 3; ++i)
        const TXScopedLock guard(lock);
    SUCCEED();
}

TEST(TXLock, IsFreeAgainAfterAnException)
{
    TXLock lock;
    const auto fail = [&]
    {
        const TXScopedLock guard(lock);
        throw std::runtime_error("leaves the scope");
    };
    EXPECT_THROW(fail(), std::runtime_error);
    const TXScopedLock guard(lock);
}

TEST(TXLock, LocksAreIndependent)
{
    TXLock one;
    TXLock other;
    const TXScopedLock first(one);
    const TXScopedLock second(other);
    SUCCEED();
}
