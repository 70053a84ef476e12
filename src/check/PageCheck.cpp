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
    warnIf(!box->Value(), "There are no markers, since Add Markers is off");
    if (!box->Value()) {
        return warnings;
    }
    const std::string text = file.OpenAsBinaryFile().Read(BinaryStream::longestField);
    const auto has = [&](char c) { return text.find(c) != std::string::npos; };
    warnIf(has('\t'), "The marker file holds tabs; single blanks part its fields");
    warnIf(has(','), "The marker file holds commas, which are decimal marks; single blanks part its fields");
    warnIf(has('\0') || text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"),
           "The marker file is in another encoding than UTF-8");
    return warnings;
}

}  // namespace linealis
