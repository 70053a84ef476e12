#pragma once

#include "TestSupport.h"
#include "cli/Actions.h"
#include "pdf/PageContent.h"

#include <cstdlib>
#include <functional>
#include <utility>

namespace linealis::test {

struct ShownText {
    std::string text;
    Point at{};
    int font = 0;
    double size = 0.0;
    PageColor color;
};

/// What a page shows, by PageContent.
struct Page : PageSink {
    std::string content;
    std::vector<ShownText> texts;
    std::size_t strokes = 0;
    std::size_t verticals = 0;  ///< lines
    std::size_t horizontals = 0;

    explicit Page(std::string theContent) : content(std::move(theContent))
    {
        const PageDamage damage = ReadPage(content, *this);
        EXPECT_EQ(damage.message, "") << "line " << damage.line;
    }

    bool Scale(double, double) override { return true; }
    bool Stroke(PagePath path, const PagePen&) override
    {
        ++strokes;
        verticals += path[0].to.x == path[1].to.x ? 1U : 0U;
        horizontals += path[0].to.y == path[1].to.y ? 1U : 0U;
        return true;
    }
    bool Fill(PagePath, const PageColor&) override { return true; }
    bool FillAndStroke(PagePath, const PageColor&, const PagePen&) override { return true; }
    bool Text(const PageText& text) override
    {
        texts.push_back(
            {std::string(text.bytes), {text.matrix[4], text.matrix[5]}, text.font, text.size, text.color});
        return true;
    }
};

inline Names TextsOf(const std::vector<ShownText>& texts)
{
    Names names;
    for (const ShownText& text : texts) {
        names.push_back(text.text);
    }
    return names;
}

/// An open window of any kind, with a file for its page.
class Paper {
public:
    explicit Paper(std::string_view name, const Names& assignments = {}) : kind(*FindPaperKind(name))
    {
        Set(assignments);
    }

    /// Each CONTROL=VALUE, as the command line has it.
    void Set(const Names& assignments)
    {
        for (const std::string& assignment : assignments) {
            Do({cli::Action::Kind::Set, assignment});
        }
    }
    void Do(const cli::Action& action) { Do(std::vector{action}); }
    void Do(const std::vector<cli::Action>& actions) { cli::Apply(actions, kind, *window, platform); }

    /// Generates, and returns the content of the page.
    std::string Content()
    {
        platform.saveAnswer = file;
        window->PushButtonGenerate_Action();
        EXPECT_TRUE(platform.fileErrors.empty());
        return Inflate(StreamDataOf(ReadFile(file.Path()))).text;
    }
    Names Generate() { return Lines(Content()); }
    Page Draw(const Names& assignments = {})
    {
        Set(assignments);
        return Page(Content());
    }

    std::string Saved() const
    {
        fs::remove(settings.Path());  // a file takes longer to replace
        EXPECT_FALSE(window->SaveSettings(settings));
        return ReadFile(settings.Path());
    }
    void Load(const std::string& bytes)
    {
        WriteFile(settings.Path(), bytes);
        EXPECT_FALSE(window->LoadSettings(settings));
    }

private:
    struct ClockedPlatform : ScreenlessPlatform {
        ClockedPlatform() { clock = someTime; }
    };
    const PaperKind& kind;
    TemporaryFolder folder;
    FolderItem settings{folder / "settings"};

public:
    ClockedPlatform platform;
    FolderItem file{folder / "page.pdf"};
    std::unique_ptr<PaperWindow> window = MakeWindow(kind, platform);
    NamedForm form{window->form};
};

inline Names KindNames()
{
    Names names;
    for (const PaperKind& kind : PaperKinds()) {
        names.emplace_back(kind.name);
    }
    return names;
}

/// Expects a document to have that text. With LINEALIS_UPDATE_DOCS, writes it first.
inline void ExpectDocument(const fs::path& document, const std::string& text)
{
    if (std::getenv("LINEALIS_UPDATE_DOCS") != nullptr) {
        WriteFile(document, text);
    }
    EXPECT_TRUE(ReadFile(document) == text) << document << " is out of date: LINEALIS_UPDATE_DOCS=1 writes it anew";
}

/// Expects a document to have these tables below its introduction.
inline void ExpectTables(const fs::path& document, const std::string& tables)
{
    constexpr std::string_view startOfTables = "<!-- tables -->\n";
    const std::string text = ReadFile(document);
    const std::size_t start = text.find(startOfTables);
    ASSERT_NE(start, std::string::npos) << document << " has no line " << startOfTables;
    ExpectDocument(document, text.substr(0, start + startOfTables.size()) + tables);
}

}  // namespace linealis::test
