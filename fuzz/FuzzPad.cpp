// Fuzzes pads made from a settings file and any number of paper kinds, with or without backs. The result is a
// readable file or an error message.

#include "Fuzz.h"
#include "cli/Errors.h"
#include "cli/Pad.h"
#include "pipeline/page/PageJob.h"

#include <unistd.h>

#include <fstream>

using namespace linealis;
using namespace linealis::fuzz;

namespace {

/// Whether the page of the settings is quick to draw.
bool IsLight(const PaperKind& kind, std::string_view settings)
{
    constexpr std::int64_t mostRounds = 1000;
    ScreenlessPlatform platform;
    const auto window = MakeWindow(kind, platform);
    window->LayOver(BinaryStream::FromMemory(settings));
    Turns turns([] {}, mostRounds);
    try {
        DrawPage(window->ReadPage(), turns);
    } catch (const PageGivenUp&) {
        return false;
    }
    return true;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::string folder = "/tmp/linealis-fuzz-pad-" + std::to_string(::getpid());
    std::filesystem::create_directory(folder);
    Input input(data, size);
    const PaperKind& kind = input.Kind();
    const std::string file = folder + "/pad." + std::string(kind.settingsType.extension);
    cli::PadRequest request;
    request.options.pages = std::size_t{1} + input.Byte() % 9;
    const std::uint8_t layout = input.Byte();
    request.options.up = layout % 6;
    request.options.hasNumbers = layout / 6 % 2 == 1;
    request.output = folder + "/pad.pdf";
    const auto nameOf = [&](std::uint8_t choice) {
        return choice < PaperKinds().size() ? std::string(PaperKinds()[choice].name) : file;
    };
    if (const std::uint8_t back = input.Byte(); back % 2 == 1) {
        request.back = nameOf(back / 2);
    }
    cli::SourceOptions begin;
    for (const std::size_t sources = input.Byte() % 4; begin.names.size() < sources;) {
        begin.names.push_back(nameOf(input.Byte() % 32));
    }
    if (!IsLight(kind, input.All())) {
        return 0;
    }
    std::ofstream(file, std::ios::binary) << input.All();
    FolderItem output(request.output);
    output.Delete();
    try {
        request.sources = cli::SourcesOf(begin);
        MakePad(request);
        Require(output.OpenAsBinaryFile().ReadRest(8).starts_with("%PDF-1.4"));
    } catch (const cli::WorkError& error) {
        Require(!error.message.empty());
    } catch (const cli::UsageError& error) {
        Require(!error.message.empty() && !output.Exists());
    }
    FolderItem(file).Delete();
    return 0;
}
