#pragma once

#include "TestSupport.h"
#include "cli/Actions.h"
#include "pdf/Geometry.h"

#include <functional>
#include <sstream>
#include <utility>

namespace linealis::test {

struct ShownText {
    std::string text;
    Point at{};
    std::string font;
    double size = 0.0;
    std::string color;
};

/// A page as a person sees it. Every operand of it must be a number that PDF knows.
class Page {
public:
    Names operators;
    std::vector<ShownText> texts;
    std::size_t verticals = 0;  ///< lines
    std::size_t horizontals = 0;

    explicit Page(Names lines) : operators(std::move(lines))
    {
        for (const std::string& line : operators) {
            if (line.starts_with('(')) {
                texts.push_back({line.substr(1, line.rfind(')') - 1), at, font, size, color});
            } else {
                Read(line);
            }
        }
    }

private:
    void Read(const std::string& line)
    {
        std::istringstream words(line);
        std::vector<double> numbers;
        std::string word, fontName;
        while (words >> word && word.find_first_not_of("-.0123456789") == std::string::npos) {
            numbers.push_back(std::strtod(word.c_str(), nullptr));
        }
        if (word.starts_with("/F")) {
            fontName = word;
            words >> size >> word;
        }
        EXPECT_TRUE(words.peek() == std::char_traits<char>::eof()) << line;
        const auto last = [&] { return Point{numbers.at(numbers.size() - 2), numbers.back()}; };
        if (word == "m") {
            from = last();
        } else if (word == "l") {
            verticals += last().x == from.x ? 1U : 0U;
            horizontals += last().y == from.y ? 1U : 0U;
        } else if (word == "rg") {
            color = line.substr(0, line.size() - 3);
        } else if (word == "Tf") {
            font = fontName;
            turned = false;
        } else if (word == "Tm" || (word == "Td" && !turned)) {
            at = last();
            turned = word == "Tm";
        } else {
            const Names others = {"cm", "RG", "w", "J", "c", "S", "f", "B", "BT", "Td", "ET"};
            EXPECT_NE(std::find(others.begin(), others.end(), word), others.end()) << line;
        }
    }

    std::string color, font;
    double size = 0.0;
    Point from{}, at{};
    bool turned = false;
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
    void Do(const cli::Action& action) { cli::Apply({action}, kind, *window, platform); }

    Names Generate()
    {
        platform.saveAnswer = file;
        window->PushButtonGenerate_Action();
        EXPECT_TRUE(platform.fileErrors.empty());
        return PageOf(file.Path());
    }
    Page Draw(const Names& assignments = {})
    {
        Set(assignments);
        return Page(Generate());
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
    std::unique_ptr<PaperWindow> window = kind.make(platform);
    PaperForm& form = window->form;
};

inline Names KindNames()
{
    Names names;
    for (const PaperKind& kind : PaperKinds()) {
        names.emplace_back(kind.name);
    }
    return names;
}

}  // namespace linealis::test
