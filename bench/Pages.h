#pragma once

#include "kinds/PaperKinds.h"
#include "pipeline/document/PaperWindow.h"
#include "pipeline/page/PageJob.h"
#include "platform/ScreenlessPlatform.h"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace linealis::bench {

struct Setting {
    std::string control;
    std::string value;
};

/// A page to measure: a kind of paper and what is set on its form.
struct Page {
    std::string name;
    std::string kind;
    std::vector<Setting> settings;
};

/// Each kind as its form opens.
std::vector<Page> DefaultPages();

/// The pages that take long.
std::vector<Page> HeavyPages();

/// A sheet with so many dots: all have the same pattern, a thousand dots in a row, and only the sheet grows.
Page PageOfDots(int dots);

void Apply(const std::vector<Setting>& settings, const Form& form);

/// A folder for what the benchmark writes, removed when the program ends.
const std::filesystem::path& ScratchFolder();

/// A page's form, twice: by itself, and in a window. And the steps of making the page.
class OpenPage {
public:
    explicit OpenPage(const Page& page);
    ~OpenPage();
    OpenPage(const OpenPage&) = delete;
    OpenPage& operator=(const OpenPage&) = delete;

    /// All that a press of Generate does, into a new file.
    void Generate();

    /// Reads the form and draws; neither compresses nor writes.
    void Draw();

    /// What the drawing loops call for every stroke.
    void Round() { turns.RuntimeBackgroundTask(); }

    /// The content of the page that was drawn last.
    std::string_view Stream() const { return drawn->Stream(); }
    double Width() const;  ///< points, like the height
    double Height() const;

    ScreenlessPlatform platform;

private:
    const PaperKind& kind;
    Paper paper;
    std::unique_ptr<PaperWindow> window;
    Turns turns{[] {}};
    MyPDFGenerator pdf{turns};
    const MyPDFGenerator* drawn = &pdf;
};

/// The strokes of a content stream.
std::size_t CountStrokes(std::string_view stream);

}  // namespace linealis::bench
