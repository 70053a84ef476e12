// Fuzzes pads made from a settings file, a table and any number of paper kinds, with all options. The result is a
// file that gives its first form back, whole or damaged, or an error message.

#include "Fuzz.h"
#include "cli/Errors.h"
#include "cli/Pad.h"
#include "exchange/FormJson.h"
#include "pipeline/page/PageJob.h"

#include <unistd.h>

#include <algorithm>
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

/// Reads the options of a pad. The bits of a byte tell which there are; each text is a line.
PadOptions OptionsIn(Input& input)
{
    PadOptions options{.dashes = "--"};
    const unsigned given = input.Byte();
    const auto has = [given](unsigned bit) { return (given >> bit & 1U) != 0; };
    const auto textIf = [&](bool isGiven) {
        return isGiven ? std::optional(std::string(input.Line())) : std::nullopt;
    };
    options.pages = has(0) ? std::optional(std::size_t{1} + input.Byte() % 9) : std::nullopt;
    options.up = input.Byte() % 6;
    options.hasNumbers = has(1);
    options.firstDate = textIf(has(2));
    options.isBooklet = has(3);
    options.creep = textIf(has(4));
    options.poster = textIf(has(5));
    options.overlap = textIf(has(6));
    options.copies = has(7) ? input.Byte() % 4U : 1U;
    return options;
}

/// Requires that the file of a pad gives its form back, and damage at any place no more than an error.
void CheckForms(const std::string& pad, const std::string& kind, std::size_t place)
{
    Require(pad.starts_with("%PDF-1.4") && ParseForm("pad", pad).kind == kind);
    std::string damaged = pad;
    damaged[place % std::min<std::size_t>(damaged.size(), 2000)] ^= 1;
    for (const std::string_view bytes :
         {std::string_view(damaged), std::string_view(pad).substr(0, place % pad.size())}) {
        try {
            ParseForm("pad", bytes);
        } catch (const FormError& error) {
            Require(!error.message.IsEmpty());
        }
    }
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
    request.options = OptionsIn(input);
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
    if (const std::size_t rows = input.Byte() % 5; rows > 0) {
        request.table = folder + "/table.csv";
        std::string table = "file,background-color\n";  // a row must not make a heavy page of a light one
        for (std::size_t row = 1; row < rows; ++row) {
            table.append(input.Line()).append("\n");
        }
        std::ofstream(*request.table, std::ios::binary) << table;
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
        constexpr std::size_t largest = std::size_t{1} << 24U;
        CheckForms(output.OpenAsBinaryFile().ReadRest(largest), std::string(KindOf(request.sources.front()).name),
                   size * 7919);
    } catch (const cli::WorkError& error) {
        Require(!error.message.empty());
    } catch (const cli::UsageError& error) {
        Require(!error.message.empty() && !output.Exists());
    }
    FolderItem(file).Delete();
    return 0;
}
