#include "TogetherOnThreads.h"

#include <condition_variable>
#include <mutex>
#include <utility>
#include <vector>

namespace
{

/// Lets nobody pass before everybody is there.
class Gate
{
public:
    explicit Gate(int expected) : missing(expected) {}

    void Pass()
    {
        std::unique_lock<std::mutex> lock(mutex);
        if (--missing == 0)
            open.notify_all();
        else
            open.wait(lock, [this] { return missing == 0; });
    }

private:
    std::mutex mutex;
    std::condition_variable open;
    int missing;
};

} // namespace

void TogetherOnThreads(int threads, const std::function<void(int)>& work)
{
    Gate gate(threads);
    std::vector<std::thread> running;
    running.reserve(static_cast<std::size_t>(threads));
    for (int i = 0; i < threads; ++i)
        running.emplace_back(
            [&, i]
            {
                gate.Pass();
                work(i);
            });
    for (std::thread& thread : running)
        thread.join();
}

void OneAfterTheOther(int threads, const std::function<void(int)>& work)
{
    for (int i = 0; i < threads; ++i)
        std::thread(work, i).join();
}

Meanwhile::Meanwhile(std::function<void()> work)
    : thread(
          [this, work = std::move(work)]
          {
              do
              {
                  work();
                  ++rounds;
                  std::this_thread::yield();
              } while (!ending);
          })
{
}

Meanwhile::~Meanwhile()
{
    ending = true;
    thread.join();
}
