#include "TestSupport.h"

#include <fstream>
#include <regex>

namespace linealis::test {
namespace {

/// What the commands of a block begin with, which a reader has.
const char* const whatThereIs =
    "$cli save graph -o old.setg; $cli save graph --set view-graph=off -o new.setg\n"
    "printf '1 2 A\\n' > points.txt\nprintf 'topic,subject\\nA,B\\nC,D\\n' > topics.csv\n";

/// The blocks of a text in which lines begin with linealis-cli, each a script.
Names Blocks(const std::string& text)
{
    const std::regex block("\n```\n(linealis-cli [^`]*)```");
    return {std::sregex_token_iterator(text.begin(), text.end(), block, 1), {}};
}

TEST(CliReadme, EveryCommandRunsInAFreshFolder)
{
    const Names blocks = Blocks(ReadFile(LINEALIS_DOCS_PATH "/../README.md"));
    EXPECT_GE(blocks.size(), 2U);
    for (const std::string& block : blocks) {
        const TemporaryFolder folder;
        ASSERT_EQ(RunInShell(folder, whatThereIs).errors, "");
        const std::string joined = std::regex_replace(block, std::regex("\\\\\n +"), "");
        for (const std::string& command : Lines(joined, '\n')) {
            const Finished done = RunInShell(folder, "linealis-cli() { $cli \"$@\"; }\n" + command);
            EXPECT_TRUE(done.status == 0 || (done.status == 1 && command.starts_with("linealis-cli diff ")))
                << command;
            EXPECT_EQ(WithoutWarnings(done.errors), "") << command;
        }
    }
}

}  // namespace
}  // namespace linealis::test
