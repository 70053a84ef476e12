// Fuzzes the message from a second instance of the program to the running one. How the message is split into pieces
// makes no difference, and the received message can be sent again.

#include "Fuzz.h"
#include "desktop/system/HandOverMessage.h"

using namespace linealis::fuzz;
using linealis::desktop::HandOverMessage;
using linealis::desktop::HandOverReader;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const std::size_t length = std::size_t{1} + input.Byte();
    HandOverReader whole, inPieces;
    whole.Add(input.All());
    for (std::string_view rest = input.All(); !rest.empty(); rest.remove_prefix(std::min(length, rest.size()))) {
        inPieces.Add(rest.substr(0, length));
    }
    Require(inPieces.Request() == whole.Request() && inPieces.IsWhole() == whole.IsWhole());
    HandOverReader again;
    again.Add(HandOverMessage(whole.Request()));
    Require(again.IsWhole() && again.Request() == whole.Request());
    return 0;
}
