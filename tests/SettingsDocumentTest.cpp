#include "PageSupport.h"

namespace linealis::test {
namespace {

/// The controls that no field holds, with their aliases.
std::string NotStored(const linealis::Paper& paper)
{
    std::string text;
    for (const Control* const control : paper.form->Controls()) {
        const bool isStored = std::any_of(paper.settings.begin(), paper.settings.end(),
                                          [&](const auto& field) { return field.control == control->Name(); });
        if (!isStored && control->Kind() != ControlKind::Label) {
            text += std::string(text.empty() ? " " : ", ") + std::string(control->Name()) + " (" +
                    std::string(control->Alias()) + ")";
        }
    }
    return text;
}

/// A table for each kind, as its form has it.
std::string AliasTables()
{
    std::string text;
    const ScreenlessPlatform platform;
    for (const PaperKind& kind : PaperKinds()) {
        text += "\n## ." + std::string(kind.settingsType.extension) + ": " + std::string(kind.title) +
                "\n\n| No. | What it holds | Alias | How it is stored |\n| ---: | --- | --- | --- |\n";
        const linealis::Paper paper = kind.makePaper(platform);
        const SettingsTable& table = paper.settings;
        for (std::size_t i = 0; i < table.size(); ++i) {
            const Control* const control = paper.form->Find(table[i].control);
            text += "| " + std::to_string(i + 1) + " | " + std::string(table[i].control) + " | " +
                    std::string(control == nullptr ? "" : control->Alias()) + " | " +
                    std::string(table[i].encoding) + " |\n";
        }
        text += "\nNot in the file:" + NotStored(paper) + ".\n";
    }
    return text;
}

TEST(SettingsDocument, HasTheFieldsOfEveryKind)
{
    ExpectTables(LINEALIS_DOCS_PATH "/settings-files.md", AliasTables());
}

}  // namespace
}  // namespace linealis::test
