#include "check/PageCheck.h"

#include "pipeline/form/FieldWords.h"
#include "platform/BinaryStream.h"
#include "text/Numbers.h"
#include "text/ShortText.h"

#include <utility>

namespace linealis {

namespace {

/// Returns what is wrong with a line of a marker file, or an empty text if nothing is.
Message FaultOfMarker(std::string_view line)
{
    const MarkerFields fields(line);
    for (const std::string_view value : {fields.x, fields.y}) {
        if (!IsNumber(value)) {
            return value.empty() ? Message("a value is missing")
                                 : Message("\u201C%1\u201D is not a number", Shortened(value));
        }
    }
    return fields.text.empty() ? Message("there is no text") : Message();
}

}  // namespace

std::vector<Message> MarkerFaults(const MarkerFile& file)
{
    constexpr std::size_t mostNamed = 8;
    std::vector<Message> faults;
    std::size_t unnamed = 0;
    const auto nextLine = file.Lines();
    std::string line;
    for (int number = 1; nextLine(line); ++number) {
        const Message fault = line.find_first_not_of(' ') == std::string::npos ? Message() : FaultOfMarker(line);
        if (!fault.IsEmpty() && faults.size() < mostNamed) {
            faults.push_back(Message("Marker file, line %1: %2", number, fault));
        } else if (!fault.IsEmpty()) {
            ++unnamed;
        }
    }
    if (unnamed > 0) {
        faults.push_back(
            Message(Plural("Marker file: %1 more lines with faults", "Marker file: %1 more lines with faults"),
                    static_cast<double>(unnamed), static_cast<double>(unnamed)));
    }
    return faults;
}

void WarnIfIdle(const PaperForm& form, const Control& control, PageWarnings& warnings)
{
    if (const Message why = form.WhyIdle(control); !why.IsEmpty()) {
        warnings.push_back({"no-effect", std::string(control.Name()),
                            Message("%1 has no effect: %2", WholeName(form, control), why)});
    }
}

PageWarnings MarkerWarnings(const PaperForm& form, const FolderItem& file)
{
    const auto* const box = form.Find<CheckBox>("CheckBoxMarkers");
    if (box == nullptr || file.IsEmpty()) {
        return {};
    }
    PageWarnings warnings;
    const auto warn = [&](Message text) {
        warnings.push_back({"markers", std::string(box->Name()), std::move(text)});
    };
    const auto warnIf = [&](bool isWrong, Phrase text) {
        if (isWrong) {
            warn(Message(text));
        }
    };
    warnIf(!box->Value(), Phrase("No markers are drawn: Add Markers is off"));
    if (!box->Value()) {
        return warnings;
    }
    const std::string text = file.OpenAsBinaryFile().Read(BinaryStream::longestField);
    const auto has = [&](char c) { return text.find(c) != std::string::npos; };
    warnIf(has('\t'), Phrase("The marker file contains tabs; separate its fields with single spaces"));
    warnIf(has(','), Phrase("The marker file contains commas, which count as decimal marks; separate its fields "
                            "with single spaces"));
    // A NUL byte or a byte order mark indicates UTF-16.
    warnIf(has('\0') || text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"),
           Phrase("The marker file is not UTF-8"));
    if (warnings.empty()) {  // otherwise, all lines have the same fault
        for (Message& fault : MarkerFaults(MarkerFile(file))) {
            warn(std::move(fault));
        }
    }
    return warnings;
}

}  // namespace linealis
