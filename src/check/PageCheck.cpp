#include "check/PageCheck.h"

#include "platform/BinaryStream.h"

namespace linealis {

PageWarnings MarkerWarnings(const PaperForm& form, const FolderItem& file)
{
    const auto* const box = form.Find<CheckBox>("CheckBoxMarkers");
    if (box == nullptr || file.IsEmpty()) {
        return {};
    }
    PageWarnings warnings;
    const auto warnIf = [&](bool isWrong, const char* text) {
        if (isWrong) {
            warnings.push_back({"markers", std::string(box->Name()), text});
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
    return warnings;
}

}  // namespace linealis
