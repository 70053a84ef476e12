#include "kinds/PaperKinds.h"

#include "graph/GraphPaper.h"
#include "papers/AxonometricPaper.h"
#include "papers/BrickPaper.h"
#include "papers/CornellPaper.h"
#include "papers/CrossPaper.h"
#include "papers/DotsPaper.h"
#include "papers/EngineeringPaper.h"
#include "papers/GridPaper.h"
#include "papers/HexagonPaper.h"
#include "papers/IsometricPaper.h"
#include "papers/LinedPaper.h"
#include "papers/PolarPaper.h"
#include "papers/TernaryPaper.h"
#include "papers/TrapezoidPaper.h"
#include "text/LetterCase.h"

#include <algorithm>
#include <array>

namespace linealis {

namespace {

// Two of the picture names are in lowercase because installed programs look for exactly these files.
// clang-format off
constexpr auto kinds = std::to_array<PaperKind>({
    {.name = "graph", .title = "Linealis", .galleryTitle = "Graph Paper", .picture = "Graph.png",
     .window = "MainWindow", .menuItem = "WindowGraphPaper", .menuText = "Graph Paper", .menuPosition = 1,
     .settingsType = {"Setg", "setg"}, .makePaper = &MakePaper<GraphForm>,
     .hasMarkers = true, .keepsLastSettings = true, .hasFixedSize = true, .isCommon = true},
    {.name = "axonometric", .title = "Axonometric Graph Paper", .galleryTitle = "Axonometric",
     .picture = "Axonometric.png", .window = "AxonometricWindow", .menuItem = "WindowAxonometric", .menuText = "Axonometric", .menuPosition = 3,
     .settingsType = {"Seta", "seta"}, .makePaper = &MakePaper<AxonometricForm>},
    {.name = "cornell", .title = "Note Paper", .galleryTitle = "Note Paper", .picture = "Cornell.png",
     .window = "CornellWindow", .menuItem = "WindowCornell", .menuText = "Note", .menuPosition = 11,
     .settingsType = {"Setc", "setc"}, .makePaper = &MakePaper<CornellForm>,
     .isCommon = true},
    {.name = "crosses", .title = "Cross Graph Paper", .galleryTitle = "Crosses Paper", .picture = "Crosses.png",
     .window = "CrossWindow", .menuItem = "WindowCrosses", .menuText = "Crosses", .menuPosition = 10,
     .settingsType = {"Setr", "setr"}, .makePaper = &MakePaper<CrossForm>},
    {.name = "dots", .title = "Dots Graph Paper", .galleryTitle = "Dots Paper", .picture = "Dots.png",
     .window = "DotsWindow", .menuItem = "WindowDots", .menuText = "Dots", .menuPosition = 9,
     .settingsType = {"Setd", "setd"}, .makePaper = &MakePaper<DotsForm>,
     .isCommon = true},
    {.name = "engineering", .title = "Engineering Paper", .galleryTitle = "Engineering", .picture = "Engineering.png",
     .window = "EngineeringWindow", .menuItem = "WindowEngineering", .menuText = "Engineering", .menuPosition = 7,
     .settingsType = {"Sete", "sete"}, .makePaper = &MakePaper<EngineeringForm>},
    {.name = "hexagon", .title = "Hexagon Graph Paper", .galleryTitle = "Hexagon", .picture = "Hexagon.png",
     .window = "HexagonWindow", .menuItem = "WindowHexagon", .menuText = "Hexagon", .menuPosition = 5,
     .settingsType = {"Seth", "seth"}, .makePaper = &MakePaper<HexagonForm>},
    {.name = "isometric", .title = "Isometric Graph Paper", .galleryTitle = "Isometric", .picture = "Isometric.png",
     .window = "IsometricWindow", .menuItem = "WindowIsometric", .menuText = "Isometric", .menuPosition = 2,
     .settingsType = {"Seti", "seti"}, .makePaper = &MakePaper<IsometricForm>},
    {.name = "lined", .title = "Lined Paper", .galleryTitle = "Lined Paper", .picture = "Lined.png",
     .window = "LinedWindow", .menuItem = "WindowLined", .menuText = "Lined", .menuPosition = 8,
     .settingsType = {"Setl", "setl"}, .makePaper = &MakePaper<LinedForm>,
     .isCommon = true},
    {.name = "polar", .title = "Polar Graph Paper", .galleryTitle = "Polar", .picture = "Polar.png",
     .window = "PolarWindow", .menuItem = "WindowPolar", .menuText = "Polar", .menuPosition = 6,
     .settingsType = {"Setp", "setp"}, .makePaper = &MakePaper<PolarForm>},
    {.name = "trapezoid", .title = "Trapezoid Graph Paper", .galleryTitle = "Trapezoid", .picture = "trapezoid.png",
     .window = "TrapezoidWindow", .menuItem = "WindowTrapezoid", .menuText = "Trapezoid", .menuPosition = 4,
     .settingsType = {"Sett", "sett"}, .makePaper = &MakePaper<TrapezoidForm>},
    {.name = "ternary", .title = "Ternary Graph Paper", .galleryTitle = "Ternary", .picture = "ternary.png",
     .window = "TernaryWindow", .menuItem = "WindowTernary", .menuText = "Ternary", .menuPosition = 12,
     .settingsType = {"Sety", "sety"}, .makePaper = &MakePaper<TernaryForm>},
    {.name = "grid", .title = "Grid Graph Paper", .galleryTitle = "Grid", .picture = "Grid.png",
     .window = "GridWindow", .menuItem = "WindowGrid", .menuText = "Grid", .menuPosition = 13,
     .settingsType = {"Setx", "setx"}, .makePaper = &MakePaper<GridForm>,
     .isCommon = true},
    {.name = "brick", .title = "Brick Graph Paper", .galleryTitle = "Brick", .picture = "Brick.png",
     .window = "BrickWindow", .menuItem = "WindowBrick", .menuText = "Brick", .menuPosition = 14,
     .settingsType = {"Setk", "setk"}, .makePaper = &MakePaper<BrickForm>},
});
// clang-format on

/// Whether a field has a different value in every kind.
template <typename Field>
constexpr bool AllDiffer(Field field)
{
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        for (std::size_t j = i + 1; j < kinds.size(); ++j) {
            if (field(kinds[i]) == field(kinds[j])) {
                return false;
            }
        }
    }
    return true;
}

static_assert(AllDiffer([](const PaperKind& kind) { return kind.name; }), "two kinds with one name");
static_assert(AllDiffer([](const PaperKind& kind) { return kind.window; }), "two kinds with one window");
static_assert(AllDiffer([](const PaperKind& kind) { return kind.settingsType.extension; }),
              "two kinds with one settings extension");
static_assert(AllDiffer([](const PaperKind& kind) { return kind.menuPosition; }),
              "two kinds in one place of the Graph menu");

/// Returns the first kind that matches, or null.
template <typename Predicate>
const PaperKind* FindKind(Predicate matches)
{
    const auto* const found = std::find_if(kinds.begin(), kinds.end(), matches);
    return found == kinds.end() ? nullptr : found;
}

}  // namespace

std::unique_ptr<PaperWindow> MakeWindow(const PaperKind& kind, Platform& platform)
{
    return std::make_unique<PaperWindow>(kind.makePaper(platform), kind.settingsType, platform);
}

std::span<const PaperKind> PaperKinds()
{
    return kinds;
}

const PaperKind* FindPaperKind(std::string_view name)
{
    return FindKind([&](const PaperKind& kind) { return kind.name == name; });
}

const PaperKind* FindPaperKindByExtension(std::string_view extension)
{
    return FindKind([&](const PaperKind& kind) { return IsSameText(kind.settingsType.extension, extension); });
}

const PaperKind* FindPaperKindOf(const std::filesystem::path& file)
{
    const std::string ending = file.extension().string();
    return ending.empty() ? nullptr : FindPaperKindByExtension(std::string_view(ending).substr(1));
}

}  // namespace linealis
