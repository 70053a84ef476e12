#include "Pages.h"

#include "kinds/PaperKinds.h"
#include "text/Numbers.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace linealis::bench {

namespace fs = std::filesystem;

namespace {

std::vector<Setting> Spacing(const char* paper, const std::string& inches)
{
    return {{"PopupPaperSize", paper}, {"EditVertSpacing", inches}, {"EditHorzSpacing", inches}};
}

fs::path MakeScratchFolder()
{
    std::string name = (fs::temp_directory_path() / "linealis-bench-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
        std::perror(name.c_str());
        std::exit(1);
    }
    return name;
}

}  // namespace

std::vector<Page> DefaultPages()
{
    std::vector<Page> pages;
    for (const PaperKind& kind : PaperKinds()) {
        pages.push_back({std::string(kind.name), std::string(kind.name), {}});
    }
    return pages;
}

std::vector<Page> HeavyPages()
{
    return {
        {"dots of 0.05 in on A0", "dots", Spacing("A0", ".05")},
        {"dots of 0.01 in on A4", "dots", Spacing("A4", ".01")},
        {"grid of 0.01 in on A0", "grid", Spacing("A0", ".01")},
        {"hexagons of 0.02 in on A2", "hexagon", {{"PopupPaperSize", "A2"}, {"EditSize", ".02"}}},
        {"crosses of 0.05 in on A2", "crosses", Spacing("A2", ".05")},
        {"graph with 100 lines per unit on A0",
         "graph",
         {{"PopupPaperSize", "A0"}, {"EditXLineSpacing", "100"}, {"EditYLineSpacing", "100"}}},
    };
}

Page PageOfDots(int dots)
{
    constexpr int dotsOfARow = 1000;
    constexpr double spacing = 0.0512345;  // inches; not a round number, so that coordinates have all digits
    constexpr double bothMargins = 1.0;
    // Leave half a spacing to spare, so that rounding removes no dot.
    const auto size = [](int count) { return Str((count - 0.5) * spacing + bothMargins); };
    return {std::to_string(dots) + " dots",
            "dots",
            {{"PopupPaperSize", "Custom"},
             {"EditCustomWidth", size(dotsOfARow)},
             {"EditCustomHeight", size(std::max(dots / dotsOfARow, 1))},
             {"EditVertSpacing", Str(spacing)},
             {"EditHorzSpacing", Str(spacing)}}};
}

void Apply(const std::vector<Setting>& settings, const Form& form)
{
    for (const Setting& setting : settings) {
        if (auto* const popup = form.Find<Popup>(setting.control)) {
            const auto item = std::find(popup->Items().begin(), popup->Items().end(), setting.value);
            popup->SetListIndex(item - popup->Items().begin());
        } else {
            form.Get<TextField>(setting.control).SetText(setting.value);
        }
    }
}

const fs::path& ScratchFolder()
{
    struct Folder {
        fs::path path = MakeScratchFolder();
        Folder() = default;
        Folder(const Folder&) = delete;
        Folder& operator=(const Folder&) = delete;
        ~Folder()
        {
            std::error_code ignored;
            fs::remove_all(path, ignored);
        }
    };
    static const Folder folder;
    return folder.path;
}

OpenPage::OpenPage(const Page& page)
    : kind(*FindPaperKind(page.kind)), paper(kind.makePaper(platform)), window(MakeWindow(kind, platform))
{
    Apply(page.settings, *paper.form);
    Apply(page.settings, window->form);
    window->form.CheckBoxViewGraph.SetValue(false);
    platform.saveAnswer = FolderItem(ScratchFolder() / "page.pdf");
}

OpenPage::~OpenPage()
{
    platform.saveAnswer.Delete();
}

void OpenPage::Generate()
{
    window->PushButtonGenerate_Action();
    drawn = &window->Pdf();
}

void OpenPage::Draw()
{
    DrawContent(paper.readPage(), pdf, turns, {});
    drawn = &pdf;
}

double OpenPage::Width() const
{
    return static_cast<double>(paper.readPage().frame.paperWidth);
}

double OpenPage::Height() const
{
    return static_cast<double>(paper.readPage().frame.paperHeight);
}

std::size_t CountStrokes(std::string_view stream)
{
    constexpr std::string_view stroke = "\rS\r";
    std::size_t count = 0;
    for (std::size_t at = stream.find(stroke); at != std::string_view::npos; at = stream.find(stroke, at + 2)) {
        ++count;
    }
    return count;
}

}  // namespace linealis::bench
