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

/// The name of a control and its value.
struct Setting {
    std::string control;
    std::string value;
};

/// A page to measure: a kind of paper and the settings of its form.
struct Page {
    std::string name;
    std::string kind;
    std::vector<Setting> settings;
};

/// Returns one page for each kind, as its form opens.
std::vector<Page> DefaultPages();

/// Returns pages that take long to make.
std::vector<Page> HeavyPages();

/// Returns a page with the given number of dots, a thousand per row. The pattern is always the same; only the sheet
/// grows.
Page PageOfDots(int dots);

/// Applies the settings to a form.
void Apply(const std::vector<Setting>& settings, const Form& form);

/// Returns a folder for the files of the benchmark, which is removed when the program ends.
const std::filesystem::path& ScratchFolder();

/// Holds the form of a page twice, alone and in a window, and runs the steps of making the page.
class OpenPage {
public:
    explicit OpenPage(const Page& page);
    ~OpenPage();
    OpenPage(const OpenPage&) = delete;
    OpenPage& operator=(const OpenPage&) = delete;

    /// Does everything that the Generate button does, into a new file.
    void Generate();

    /// Reads the form and draws the page without compressing or writing it.
    void Draw();

    /// Makes the call that drawing loops make for every stroke.
    void Round() { turns.RuntimeBackgroundTask(); }

    /// Returns the content of the page drawn last.
    std::string_view Stream() const { return drawn->Stream(); }
    double Width() const;   ///< in points
    double Height() const;  ///< in points

    ScreenlessPlatform platform;

private:
    const PaperKind& kind;
    Paper paper;
    std::unique_ptr<PaperWindow> window;
    Turns turns{[] {}};
    MyPDFGenerator pdf{turns};
    const MyPDFGenerator* drawn = &pdf;
};

/// Returns the number of strokes in a content stream.
std::size_t CountStrokes(std::string_view stream);

}  // namespace linealis::bench
