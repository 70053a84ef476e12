// The reply of the web server: whatever it says, the user is asked once at most, and about a word of it.

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
    Require(platform.dialogs.size() <= 1 && (platform.dialogs.size() == 1 || skipped == 0));
    for (const MessageDialog& dialog : platform.dialogs) {
        Require(dialog.message.size() < size + 200);
    }
    return 0;
}
