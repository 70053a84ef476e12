#include "check/PageCheck.h"

#include "platform/BinaryStream.h"
#include "text/Numbers.h"
#include "text/ShortText.h"

#include <utility>

namespace linealis {

namespace {

/// Returns what is wrong with a line of a marker file, or an empty text if nothing is.
std::string FaultOfMarker(std::string_view line)
{
    const MarkerFields fields(line);
    for (const std::string_view value : {fields.x, fields.y}) {
        if (!IsNumber(value)) {
            return value.empty() ? "a value is missing" : "\u201C" + Shortened(value) + "\u201D is not a number";
        }
    }
    return fields.text.empty() ? "there is no text" : "";
}

}  // namespace

std::vector<std::string> MarkerFaults(const MarkerFile& file)
{
    constexpr std::size_t mostNamed = 8;
    std::vector<std::string> faults;
    std::size_t unnamed = 0;
    const auto nextLine = file.Lines();
    std::string line;
    for (int number = 1; nextLine(line); ++number) {
        const std::string fault = line.find_first_not_of(' ') == std::string::npos ? "" : FaultOfMarker(line);
        if (!fault.empty() && faults.size() < mostNamed) {
            faults.push_back("Marker file, line " + std::to_string(number) + ": " + fault);
        } else if (!fault.empty()) {
            ++unnamed;
        }
    }
    if (unnamed > 0) {
        faults.push_back("Marker file: " + std::to_string(unnamed) + " more lines with faults");
    }
    return faults;
}

PageWarnings MarkerWarnings(const PaperForm& form, const FolderItem& file)
{
    const auto* const box = form.Find<CheckBox>("CheckBoxMarkers");
    if (box == nullptr || file.IsEmpty()) {
        return {};
    }
    PageWarnings warnings;
    const auto warn = [&](std::string text) {
        warnings.push_back({"markers", std::string(box->Name()), std::move(text)});
    };
    const auto warnIf = [&](bool isWrong, const char* text) {
        if (isWrong) {
            warn(text);
        }
    };
    warnIf(!box->Value(), "No markers are drawn: Add Markers is off");
    if (!box->Value()) {
        return warnings;
    }
    const std::string text = file.OpenAsBinaryFile().Read(BinaryStream::longestField);
    const auto has = [&](char c) { return text.find(c) != std::string::npos; };
    warnIf(has('\t'), "The marker file contains tabs; separate its fields with single spaces");
    warnIf(has(','),
           "The marker file contains commas, which count as decimal marks; separate its fields with single spaces");
    // A NUL byte or a byte order mark indicates UTF-16.
    warnIf(has('\0') || text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"),
           "The marker file is not UTF-8");
    if (warnings.empty()) {  // otherwise, all lines have the same fault
        for (std::string& fault : MarkerFaults(MarkerFile(file))) {
            warn(std::move(fault));
        }
    }
    return warnings;
}

}  // namespace linealis
