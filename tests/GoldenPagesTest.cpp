#include "PageSupport.h"

namespace linealis::test {
namespace {

// pages/KIND/CASE.form holds the actions of the command line that make a form, one a line, and CASE.page the page
// that comes of it, one operator a line. LINEALIS_UPDATE_PAGES=1 writes the pages anew, for a diff that is read.

class GoldenPages : public testing::TestWithParam<std::string> {};

cli::Action ActionOf(const std::string& line)
{
    const bool typed = line.starts_with("--type ");
    EXPECT_TRUE(typed || line.starts_with("--set ")) << line;
    return {typed ? cli::Action::Kind::Type : cli::Action::Kind::Set, line.substr(line.find(' ') + 1)};
}

std::string FirstDifference(const Names& page, const Names& expected)
{
    const auto [at, wanted] = std::mismatch(page.begin(), page.end(), expected.begin(), expected.end());
    if (at == page.end() && wanted == expected.end()) {
        return "";
    }
    return "line " + std::to_string(at - page.begin() + 1) + "\n  is       " +
           (at == page.end() ? "missing" : *at) + "\n  expected " +
           (wanted == expected.end() ? "nothing" : *wanted) + "\n  after    " +
           (at == page.begin() ? "nothing" : *(at - 1));
}

TEST_P(GoldenPages, AreAsTheyWere)
{
    int cases = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(fs::path(LINEALIS_PAGES_PATH) / GetParam())) {
        fs::path path = entry.path();
        if (path.extension() != ".form") {
            continue;
        }
        ++cases;
        Paper paper(GetParam());
        for (const std::string& line : Lines(ReadFile(path), '\n')) {
            paper.Do(ActionOf(line));
        }
        const Names page = paper.Generate();
        EXPECT_EQ(FirstDifference(paper.Generate(), page), "") << path << " made again";
        path.replace_extension(".page");
        if (std::getenv("LINEALIS_UPDATE_PAGES") != nullptr) {
            std::string text;
            for (const std::string& line : page) {
                text += line + '\n';
            }
            WriteFile(path, text);
        }
        EXPECT_EQ(FirstDifference(page, Lines(ReadFile(path), '\n')), "") << path;
    }
    EXPECT_GE(cases, 2);
}

INSTANTIATE_TEST_SUITE_P(Kinds, GoldenPages, testing::ValuesIn(KindNames()),
                         [](const auto& instance) { return instance.param; });

}  // namespace
}  // namespace linealis::test
