#include "cli/PageJobs.h"

#include "cli/Errors.h"
#include "platform/Process.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace linealis::cli {

namespace {

/// Hands out the pages to its workers.
class PageJobs {
public:
    using MakePage = std::function<bool(std::size_t index, const std::atomic<bool>& stop)>;

    PageJobs(std::size_t theCount, const MakePage& theMakePage) : count(theCount), makePage(theMakePage) {}

    bool Run(std::size_t workers)
    {
        const EndingSignalsHeld held;  // by the workers too, which are started within it
        std::vector<std::thread> threads(std::clamp<std::size_t>(workers, 1, count));
        for (std::thread& thread : threads) {
            thread = std::thread([this] { Work(); });
        }
        WatchOver(threads.size(), held);
        for (std::thread& thread : threads) {
            thread.join();
        }
        ShowStatus("");
        return !failed;
    }

private:
    void Work()
    {
        for (std::size_t index = next++; index < count && !stop; index = next++) {
            if (!makePage(index, stop)) {
                failed = true;
                stop = true;
            }
            ++made;
        }
        const std::lock_guard lock(mutex);
        ++ended;
        oneEnded.notify_one();
    }

    void WatchOver(std::size_t workers, const EndingSignalsHeld& held)
    {
        constexpr std::chrono::milliseconds look(50);
        std::unique_lock lock(mutex);
        while (!oneEnded.wait_for(lock, look, [&] { return ended == workers; })) {
            if (held.OneHasArrived()) {
                stop = true;
            }
            ShowStatus(std::to_string(made) + " of " + std::to_string(count) + " pages");
        }
    }

    const std::size_t count;
    const MakePage& makePage;
    std::atomic<std::size_t> next = 0;
    std::atomic<std::size_t> made = 0;
    std::atomic<bool> stop = false;
    std::atomic<bool> failed = false;
    std::mutex mutex;
    std::condition_variable oneEnded;
    std::size_t ended = 0;
};

}  // namespace

bool MakePages(std::size_t count, std::size_t workers,
               const std::function<bool(std::size_t index, const std::atomic<bool>& stop)>& makePage)
{
    return PageJobs(count, makePage).Run(workers);
}

}  // namespace linealis::cli
