// Fuzzes settings files of every kind. A file loads, and the file saved after that loads and saves to the same
// bytes.

#include "Fuzz.h"

using namespace linealis;
using namespace linealis::fuzz;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const PaperKind& kind = input.Kind();
    ScreenlessPlatform platform;
    const auto window = MakeWindow(kind, platform);
    window->LayOver(BinaryStream::FromMemory(input.All()));
    const std::string saved = window->SettingsBytes();
    const auto second = MakeWindow(kind, platform);
    second->LayOver(BinaryStream::FromMemory(saved));
    Require(second->SettingsBytes() == saved);
    return 0;
}
