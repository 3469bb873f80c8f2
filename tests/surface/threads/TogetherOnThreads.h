#pragma once

#include <atomic>
#include <functional>
#include <thread>

/// Runs @p work on @p threads new threads, each with its number from 0 on. None begins before all have started. Returns
/// when all have ended.
void TogetherOnThreads(int threads, const std::function<void(int)>& work);

/// Runs @p work on @p threads new threads, each begun when the one before has ended.
void OneAfterTheOther(int threads, const std::function<void(int)>& work);

/// Calls a function again and again on a thread of its own until the scope ends, and at least once.
class Meanwhile
{
public:
    explicit Meanwhile(std::function<void()> work);
    ~Meanwhile();
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

    /// How often the function has returned so far.
    int Rounds() const { return rounds; }

private:
    std::atomic<bool> ending{false};
    std::atomic<int> rounds{0};
    std::thread thread;
};
