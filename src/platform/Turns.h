#pragma once

#include <cstdint>
#include <functional>
#include <utility>

namespace linealis {

/// Thrown by a turn when the user has stopped the page that is being made. Passes through everything that draws and
/// ends in MakePage.
struct PageStopped {};

/// Thrown when a page is given up. Ends where PageStopped does.
struct PageGivenUp {
    const char* reason;  ///< as a message has it: "the page would ..., so it was given up"
};

/// The same, of a page with more drawing than there is place for.
struct PageTooLarge : PageGivenUp {};

/// The yield of every long loop: its turns for whatever else waits, and the limit of its rounds.
class Turns {
public:
    static constexpr int linesPerYield = 100;

    /// Even a page of the largest size, all of the shortest strokes, takes fewer rounds than this.
    static constexpr std::int64_t mostRounds = std::int64_t{1} << 28U;

    /// `theYield` lets pending events run. It may throw PageStopped.
    explicit Turns(std::function<void()> theYield, std::int64_t theLimit = mostRounds)
        : yield(std::move(theYield)), limit(theLimit)
    {}

    /// A new page begins.
    void Restart() { rounds = 0; }

    /// Ends a round. Costs next to nothing when called for every line: only each hundredth line's worth of work
    /// reaches the yield. Work between two calls that takes longer than drawing a line says so. Throws PageGivenUp
    /// after more rounds than the limit.
    void RuntimeBackgroundTask(int linesWorth = 1)
    {
        if (++rounds > limit) {
            throw PageGivenUp{"the page would take too many drawing steps, so it was abandoned"};
        }
        linesBeforeYield -= linesWorth;
        if (linesBeforeYield <= 0) {
            linesBeforeYield = linesPerYield;
            yield();
        }
    }

private:
    std::function<void()> yield;
    std::int64_t limit;
    std::int64_t rounds = 0;
    int linesBeforeYield = linesPerYield;
};

}  // namespace linealis
