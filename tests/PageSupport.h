#pragma once

#include "TestSupport.h"
#include "cli/Actions.h"
#include "pdf/Geometry.h"

#include <functional>
#include <sstream>
#include <utility>

namespace linealis::test {

/// What one painting operator paints, by the state in force.
struct Path {
    std::vector<Point> points;  ///< ends of lines and curves, not control points
    std::string paint;          ///< S, f or B
    std::string color;
    double width = 0.0;

    bool IsLine() const { return points.size() == 2; }
    bool IsHorizontal() const { return IsLine() && points[0].y == points[1].y; }
    bool IsVertical() const { return IsLine() && points[0].x == points[1].x; }
};

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
    std::vector<Path> paths;
    std::vector<ShownText> texts;
    Names operators;

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

    template <typename Predicate>
    std::vector<Path> Paths(Predicate wanted) const
    {
        std::vector<Path> found;
        std::copy_if(paths.begin(), paths.end(), std::back_inserter(found), wanted);
        return found;
    }
    std::vector<Path> Horizontals() const { return Paths(std::mem_fn(&Path::IsHorizontal)); }
    std::vector<Path> Verticals() const { return Paths(std::mem_fn(&Path::IsVertical)); }

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
        if (word == "m" || word == "l" || word == "c") {
            points.push_back(last());
        } else if (word == "S" || word == "f" || word == "B") {
            paths.push_back({std::exchange(points, {}), word, color, width});
        } else if (word == "w") {
            width = numbers.at(0);
        } else if (word == "rg") {
            color = line.substr(0, line.size() - 3);
        } else if (word == "Tf") {
            font = fontName;
            turned = false;
        } else if (word == "Tm" || (word == "Td" && !turned)) {
            at = last();
            turned = word == "Tm";
        } else {
            const Names others = {"cm", "RG", "J", "BT", "Td", "ET"};
            EXPECT_NE(std::find(others.begin(), others.end(), word), others.end()) << line;
        }
    }

    std::vector<Point> points;
    std::string color, font;
    double width = 0.0, size = 0.0;
    Point at{};
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
