#include "desktop/dialogs/TablePages.h"

#include "exchange/TableReader.h"
#include "kinds/PadSheet.h"
#include "pipeline/form/NearestInput.h"
#include "pipeline/form/SetControl.h"
#include "platform/BinaryStream.h"
#include "platform/ScreenlessPlatform.h"

namespace linealis::desktop {

namespace {

std::string TextOf(const FolderItem& file)
{
    constexpr std::size_t longest = std::size_t{64} << 20U;
    BinaryStream stream = file.OpenAsBinaryFile();
    std::string text = stream.ReadRest(longest);
    if (stream.Error()) {
        throw TableError{Message("%1: %2", file.Name(), stream.Error().message())};
    }
    if (text.size() > longest) {
        throw TableError{Message("%1: has more than %2 bytes", file.Name(), longest)};
    }
    return text;
}

}  // namespace

Message TablePages::NameOf(std::size_t row) const
{
    return Message("%1, row %2", name, std::to_string(row + 1));
}

TablePages ReadTablePages(const FolderItem& file, const PaperKind& kind, const PaperWindow& window, Turns& turns)
{
    TablePages table{file.Name(), TextOf(file), {}};
    ScreenlessPlatform unseen;
    const auto copy = MakeWindow(kind, unseen);
    copy->ChooseMarkerFile(window.ChosenMarkerFile());
    const WindowState state = window.State();
    TableReader reader(table.name, BinaryStream::FromMemory(table.csv), copy->form);
    while (const std::optional<TableRow> row = reader.Next()) {
        if (table.pages.size() == mostPadPages) {
            throw TableError{TableIsTooLong(table.name, mostPadPages)};
        }
        copy->Restore(state);
        for (const CellValue& cell : row->values) {
            try {
                SetControl(kind.name, copy->form, {cell.control, cell.value});
            } catch (const UnknownInput& unknown) {
                throw TableError{Message("%1: %2", table.NameOf(table.pages.size()),
                                         UnknownMessage(unknown.what, unknown.given, unknown.possible))};
            }
        }
        table.pages.push_back(copy->ReadPage());
        turns.RuntimeBackgroundTask(Turns::linesPerYield);
    }
    if (table.pages.empty()) {
        throw TableError{TableIsEmpty(table.name)};
    }
    return table;
}

}  // namespace linealis::desktop
