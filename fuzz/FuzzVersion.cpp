// Fuzzes the answer of the web server to the version check. How the answer is split into pieces makes no
// difference. Whatever it contains, the user is asked at most once, in a message of limited length.

#include "Fuzz.h"
#include "desktop/system/HttpAnswer.h"
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
    Input input(data, size);
    const std::size_t length = std::size_t{1} + input.Byte();
    desktop::HttpAnswer whole, inPieces;
    whole.Add(input.All());
    for (std::string_view rest = input.All(); !rest.empty(); rest.remove_prefix(std::min(length, rest.size()))) {
        inPieces.Add(rest.substr(0, length));
        Require(!whole.IsNoPage() || !inPieces.Body(Platform::longestReply, true));
    }
    Require(inPieces.Body(Platform::longestReply, true) == whole.Body(Platform::longestReply, true));
    const std::string answer(input.All());
    check.ParseResults(whole.Body(Platform::longestReply, true).value_or(answer));
    Require(platform.dialogs.size() <= 1 && (platform.dialogs.size() == 1 || skipped == 0));
    for (const MessageDialog& dialog : platform.dialogs) {
        Require(dialog.message.English().size() < size + 200);
    }
    return 0;
}
