#pragma once

#include <atomic>
#include <chrono>
#include <future>

/// Stops whoever passes it first once it is armed, until it is opened.
class Gate
{
public:
    void Arm() { armed = true; }
    void Pass()
    {
        if (armed && armed.exchange(false))
        {
            entered.set_value();
            opened.get_future().wait();
        }
    }
    bool HoldsOne() { return entered.get_future().wait_for(kLongEnough) == std::future_status::ready; }
    void Open() { opened.set_value(); }

private:
    static constexpr std::chrono::seconds kLongEnough{20};

    std::atomic<bool> armed{false};
    std::promise<void> entered;
    std::promise<void> opened;
};

/// A drawing on a thread of its own.
class OtherThread
{
public:
    /// @param work draws, and says whether it did.
    template <class Work>
    explicit OtherThread(Work work)
        : result(std::async(std::launch::async,
                            [this, work]
                            {
                                started.set_value();
                                return work();
                            }))
    {
    }

    bool Drawn() { return result.get(); }
    bool Waits()
    {
        started.get_future().wait();
        return result.wait_for(kWhile) == std::future_status::timeout;
    }
    bool Ends() { return result.wait_for(kLongEnough) == std::future_status::ready; }

private:
    static constexpr std::chrono::seconds kLongEnough{20};
    static constexpr std::chrono::milliseconds kWhile{300};

    std::promise<void> started;
    std::future<bool> result;
};
