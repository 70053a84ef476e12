#include "PageSupport.h"

#include <cstdlib>

namespace linealis::test {
namespace {

const std::string document = LINEALIS_DOCS_PATH "/settings-files.md";
constexpr std::string_view startOfTables = "<!-- tables -->\n";

/// A table for each kind, as its form has it.
std::string Tables()
{
    std::string text;
    const ScreenlessPlatform platform;
    for (const PaperKind& kind : PaperKinds()) {
        text += "\n## ." + std::string(kind.settingsType.extension) + ": " + std::string(kind.title) +
                "\n\n| No. | What it holds | How it is stored |\n| ---: | --- | --- |\n";
        const SettingsTable table = kind.makePaper(platform).settings;
        for (std::size_t i = 0; i < table.size(); ++i) {
            text += "| " + std::to_string(i + 1) + " | " + std::string(table[i].control) + " | " +
                    std::string(table[i].encoding) + " |\n";
        }
    }
    return text;
}

TEST(SettingsDocument, HasTheFieldsOfEveryKind)
{
    const std::string text = ReadFile(document);
    const std::size_t start = text.find(startOfTables);
    ASSERT_NE(start, std::string::npos) << document << " has no line " << startOfTables;
    const std::string introduction = text.substr(0, start + startOfTables.size());
    if (std::getenv("LINEALIS_UPDATE_DOCS") != nullptr) {
        WriteFile(document, introduction + Tables());
    }
    EXPECT_EQ(ReadFile(document), introduction + Tables()) << "LINEALIS_UPDATE_DOCS=1 writes it anew";
}

}  // namespace
}  // namespace linealis::test
