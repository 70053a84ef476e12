// Fuzzes settings files of every kind. A file loads, and the file saved after that loads whole and saves to the
// same bytes.

#include "Fuzz.h"
#include "pipeline/document/SettingsFile.h"

using namespace linealis;
using namespace linealis::fuzz;

namespace {

/// A form of a kind, and the PDF file that its settings name.
struct Document {
    explicit Document(const PaperKind& kind) : paper(kind.makePaper(platform)) {}

    LoadResult Load(std::string_view bytes)
    {
        paper.form->BeforeLoad();
        return LoadSettings(paper.settings, outputFile, BinaryStream::FromMemory(bytes));
    }
    std::string Saved() const
    {
        std::string bytes;
        Require(!SaveSettings(paper.settings, outputFile, BinaryStream::IntoMemory(bytes)));
        return bytes;
    }

    ScreenlessPlatform platform;
    Paper paper;
    FolderItem outputFile;
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const PaperKind& kind = input.Kind();
    Document first(kind), second(kind);
    const LoadResult loaded = first.Load(input.All());
    Require(!loaded.error && loaded.fieldsRead <= loaded.fields && loaded.impossible <= loaded.fields);
    Require(loaded.Problem().IsEmpty() ==
            (loaded.fieldsRead == loaded.fields && loaded.impossible == 0 && !loaded.goesOn));
    const std::string saved = first.Saved();
    Require(second.Load(saved).Problem().IsEmpty());
    Require(second.Saved() == saved);
    return 0;
}
