#pragma once

#include "text/Message.h"

#include <cstdint>
#include <functional>
#include <utility>

namespace linealis {

/// Thrown from a yield when the user has stopped the page that is being made. Passes through all drawing code;
/// MakePage catches it.
struct PageStopped {};

/// Thrown when a page is abandoned. Caught in the same places as PageStopped.
struct PageGivenUp {
    Phrase reason;  ///< for a message: "the page would ..., so it was abandoned"
};

/// Thrown when a page needs more drawing data than the generator allows.
struct PageTooLarge : PageGivenUp {};

/// Called by every long loop once per round: lets pending events run from time to time, and limits the number of
/// rounds of a page.
class Turns {
public:
    static constexpr int linesPerYield = 100;

    /// More rounds than any page needs, even one of the largest size filled with the shortest strokes.
    static constexpr std::int64_t mostRounds = std::int64_t{1} << 28U;

    /// `theYield` processes pending events. It may throw PageStopped.
    explicit Turns(std::function<void()> theYield, std::int64_t theLimit = mostRounds)
        : yield(std::move(theYield)), limit(theLimit)
    {}

    /// Resets the round count for a new page.
    void Restart() { rounds = 0; }

    /// Counts one round. Cheap enough to call for every line: it calls the yield only once per linesPerYield lines
    /// of work. A caller whose round takes longer than drawing a line passes the equivalent number of lines. Throws
    /// PageGivenUp when the rounds exceed the limit.
    void RuntimeBackgroundTask(int linesWorth = 1)
    {
        if (++rounds > limit) {
            throw PageGivenUp{Phrase("the page would take too many drawing steps, so it was abandoned")};
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
