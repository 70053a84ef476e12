#include "PageDescription.h"
#include "PageSupport.h"

namespace linealis::test {
namespace {

// pages/KIND/CASE holds what a user does to the form, and then the page that comes of it as Describe has it.
//   set CONTROL=VALUE; ...     as by the command line; so are type and wizard, which presses OK at the end
//   markers X Y TEXT / ...     the lines of the file that the user picks
// LINEALIS_UPDATE_PAGES=1 writes the pages anew, for a diff that is read.

class GoldenPages : public testing::TestWithParam<std::string> {};

struct GoldenCase {
    std::vector<cli::Action> actions;
    std::string markers, head;
    Names page;
};

GoldenCase ReadCase(const fs::path& path)
{
    using enum cli::Action::Kind;
    GoldenCase read;
    for (const std::string& line : Lines(ReadFile(path), '\n')) {
        const std::string word = line.substr(0, line.find(' '));
        if (word == "markers") {
            read.markers = line.substr(word.size() + 1);
            std::replace(read.markers.begin(), read.markers.end(), '/', '\n');
        } else if (word == "set" || word == "type" || word == "wizard") {
            for (std::string argument : Lines(line.substr(word.size()), ';')) {
                read.actions.push_back({word == "set" ? Set : word == "type" ? Type : Wizard, argument.substr(1)});
            }
        } else {
            read.page.push_back(line);
            continue;
        }
        read.head += line + '\n';
    }
    return read;
}

/// The first line of the content that the description does not have, and where.
std::string FirstDifference(const std::string& content, const Names& description)
{
    const Names is = Lines(content);
    const std::vector<ContentLine> wanted = Unfold(description);
    for (std::size_t i = 0; i < std::max(is.size(), wanted.size()); ++i) {
        if (i >= is.size() || i >= wanted.size() || is[i] != wanted[i].text) {
            return "line " + std::to_string(i + 1) + "\n  is       " + (i < is.size() ? is[i] : "missing") +
                   "\n  expected " +
                   (i < wanted.size() ? wanted[i].text + "\n  as " + wanted[i].origin : "the end");
        }
    }
    return content.empty() || content.ends_with('\r') ? "" : "no line end";
}

TEST_P(GoldenPages, AreAsTheyWere)
{
    const TemporaryFolder folder;
    const fs::path cases = fs::path(LINEALIS_PAGES_PATH) / GetParam();
    ASSERT_TRUE(fs::is_directory(cases)) << "there is no golden page of this kind: make " << cases << "/NAME";
    for (const fs::directory_entry& entry : fs::directory_iterator(cases)) {
        SCOPED_TRACE(entry.path().filename());
        const GoldenCase wanted = ReadCase(entry.path());
        Paper paper(GetParam());
        paper.Do(wanted.actions);
        WriteFile(folder / "markers", wanted.markers);
        paper.platform.openAnswer = FolderItem(folder / "markers");
        const std::string content = paper.Content();
        EXPECT_EQ(paper.Content(), content) << "made again";
        const std::string description = Describe(content);
        EXPECT_EQ(FirstDifference(content, Lines(description, '\n')), "") << "the description is not exact";
        if (std::getenv("LINEALIS_UPDATE_PAGES") != nullptr) {
            WriteFile(entry.path(), wanted.head + description);
            continue;
        }
        const std::string difference = FirstDifference(content, wanted.page);
        EXPECT_EQ(difference, "");
        EXPECT_TRUE(difference != "" || Lines(description, '\n') == wanted.page) << "described as\n" << description;
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, GoldenPages, testing::ValuesIn(KindNames()),
                         [](const auto& instance) { return instance.param; });

}  // namespace
}  // namespace linealis::test
