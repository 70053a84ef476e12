#pragma once

#include "TestSupport.h"

#include <unistd.h>

#include <string>

namespace linealis::test {

/// How many pages a test of load makes: LINEALIS_LOAD_PAGES of the environment, or a few.
inline int PagesOfLoad()
{
    constexpr int few = 280;
    const char* const pages = std::getenv("LINEALIS_LOAD_PAGES");
    return pages == nullptr ? few : std::atoi(pages);
}

/// What the process holds.
struct Held {
    std::size_t descriptors = 0;
    double mebibytes = 0.0;  ///< of memory; 0 under the sanitizers, which give nothing back

    static Held Now()
    {
        Held held;
        held.descriptors = static_cast<std::size_t>(std::distance(fs::directory_iterator("/proc/self/fd"), {}));
#ifndef __SANITIZE_ADDRESS__
        std::size_t size = 0, resident = 0;
        std::ifstream("/proc/self/statm") >> size >> resident;
        held.mebibytes =
            static_cast<double>(resident * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE))) / (1 << 20);
#endif
        return held;
    }
};

/// Makes pages by `makePage`, which is given their number; after a tenth of them the process holds no more.
template <typename MakePage>
void CheckLoad(MakePage makePage)
{
    constexpr double someMebibytes = 8.0;
    const int pages = PagesOfLoad();
    Held early;
    for (int page = 0; page < pages; ++page) {
        makePage(page);
        if (page == pages / 10) {
            early = Held::Now();
        }
    }
    const Held late = Held::Now();
    EXPECT_EQ(late.descriptors, early.descriptors);
    EXPECT_LT(late.mebibytes, early.mebibytes + someMebibytes);
    testing::Test::RecordProperty("MebibytesMore", std::to_string(late.mebibytes - early.mebibytes));
}

}  // namespace linealis::test
