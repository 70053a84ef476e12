// The reply of the web server: whatever it says, the user is asked about a short word of digits and points, or
// nothing.

#include "Fuzz.h"
#include "services/VersionCheckThread.h"

using namespace linealis;
using namespace linealis::fuzz;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ScreenlessPlatform platform;
    platform.buttonAnswer = MessageDialog::Button::Alternate;
    std::int64_t skipped = 0;
    VersionCheckThread check(platform, {1, 0, 0}, "http://server", 0,
                             [&](std::int64_t version) { skipped = version; });
    check.ParseResults(std::string(Input(data, size).All()));
    Require(platform.dialogs.size() <= 1 && skipped >= 0);
    constexpr std::size_t longest = 200;
    for (const MessageDialog& dialog : platform.dialogs) {
        Require(dialog.message.size() < longest);
    }
    return 0;
}
