#include "cli/PageJobs.h"

#include "cli/Errors.h"
#include "platform/Process.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace linealis::cli {

namespace {

using MakePage = std::function<void(const PageJob& job, const std::atomic<bool>& stop)>;

/// Distributes the pages to worker threads and collects the results in order.
class PageJobs {
public:
    PageJobs(PageList& thePages, const MakePage& theMakePage) : pages(thePages), makePage(theMakePage) {}

    void Run(std::size_t workers)
    {
        if (!RunOnThreads(std::clamp<std::size_t>(workers, 1, pages.Count()))) {
            Work();  // on this thread, where a signal ends the program at once
        }
        ShowStatus("");
        if (failure) {
            std::rethrow_exception(failure);
        }
    }

private:
    /// The outcome of a page.
    struct End {
        std::string complaints;
        std::exception_ptr failure;
    };

    /// Makes the pages on new threads. Returns false if the system provides no thread at all.
    bool RunOnThreads(std::size_t workers)
    {
        const EndingSignalsHeld held;  // also in the workers, which inherit the signal mask
        std::vector<std::thread> threads;
        threads.reserve(workers);
        try {
            while (threads.size() < workers) {
                threads.emplace_back([this] { Work(); });
            }
        } catch (const std::exception&) {  // the threads that exist do the work
        }
        WatchOver(threads.size(), held);
        for (std::thread& thread : threads) {
            thread.join();
        }
        return !threads.empty();
    }

    /// Makes pages until none is left or the work has been stopped. Runs on each worker.
    void Work()
    {
        while (MakeNext()) {
        }
        const std::lock_guard lock(mutex);
        ++ended;
        oneEnded.notify_one();
    }

    /// Makes the next page. Returns false if there is none or the work has been stopped.
    bool MakeNext()
    {
        std::size_t page = 0;
        End end;
        const ComplaintsKept kept;
        try {
            const std::optional<PageJob> job = Take(page);
            if (!job) {
                return false;
            }
            makePage(*job, stop);
        } catch (...) {
            end.failure = std::current_exception();
        }
        end.complaints = kept.Text();
        HandIn(page, std::move(end));
        return true;
    }

    /// Returns the next page to make and its number, from 0.
    std::optional<PageJob> Take(std::size_t& page)
    {
        const std::lock_guard lock(mutex);
        page = taken++;
        return stop ? std::nullopt : pages.Next();
    }

    /// Stores the outcome of a page. Prints the complaints of all pages that have no unfinished page before them.
    void HandIn(std::size_t page, End end)
    {
        const std::lock_guard lock(mutex);
        stop = stop || end.failure;
        ends.emplace(page, std::move(end));
        for (auto first = ends.find(made); first != ends.end(); first = ends.find(made)) {
            PrintComplaints(first->second.complaints);
            failure = failure ? failure : first->second.failure;
            ends.erase(first);
            ++made;
        }
    }

    /// Waits until all workers have ended. Meanwhile stops them if a signal arrives, and updates the progress.
    void WatchOver(std::size_t workers, const EndingSignalsHeld& held)
    {
        constexpr std::chrono::milliseconds look(50);
        std::unique_lock lock(mutex);
        while (!oneEnded.wait_for(lock, look, [&] { return ended == workers; })) {
            if (held.OneHasArrived()) {
                stop = true;
            }
            ShowStatus(std::to_string(made) + " of " + std::to_string(pages.Count()) + " pages");
        }
    }

    PageList& pages;
    const MakePage& makePage;
    std::atomic<bool> stop = false;
    std::mutex mutex;
    std::condition_variable oneEnded;
    std::map<std::size_t, End> ends;  ///< of finished pages after the first unfinished one
    std::exception_ptr failure;       ///< of the first page that failed, in page order
    std::size_t taken = 0;            ///< the number of pages handed out
    std::size_t made = 0;             ///< the number of finished pages with none unfinished before them
    std::size_t ended = 0;            ///< the number of workers that have ended
};

}  // namespace

void MakePages(PageList& pages, std::size_t workers,
               const std::function<void(const PageJob& job, const std::atomic<bool>& stop)>& makePage)
{
    PageJobs(pages, makePage).Run(workers);
}

}  // namespace linealis::cli
