#include "app/PaperKinds.h"

#include "graph/MainWindow.h"
#include "papers/AxonometricWindow.h"
#include "papers/BrickWindow.h"
#include "papers/CornellWindow.h"
#include "papers/CrossWindow.h"
#include "papers/DotsWindow.h"
#include "papers/EngineeringWindow.h"
#include "papers/GridWindow.h"
#include "papers/HexagonWindow.h"
#include "papers/IsometricWindow.h"
#include "papers/LinedWindow.h"
#include "papers/PolarWindow.h"
#include "papers/TernaryWindow.h"
#include "papers/TrapezoidWindow.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string>

namespace linealis {

namespace {

template <typename Window>
std::unique_ptr<PaperWindow> Make(Platform& platform)
{
    auto window = std::make_unique<Window>(platform);
    window->Event_Open();
    return window;
}

struct MenuEntry {
    int position;
    std::string_view item;
    std::string_view text;
};

template <typename Window>
constexpr PaperKind Kind(std::string_view name, std::string_view title, std::string_view galleryTitle,
                         std::string_view picture, MenuEntry menu)
{
    return {name,      title,         galleryTitle,         picture,      menu.item,
            menu.text, menu.position, Window::settingsType, &Make<Window>};
}

// The lower case of two pictures' names is wanted: installed programs look for these files.
// clang-format off
constexpr std::array kinds = {
    Kind<MainWindow>("graph", "Linealis", "Graph Paper", "Graph.png", {1, "WindowGraphPaper", "Graph Paper"}),
    Kind<AxonometricWindow>("axonometric", "Axonometric Graph Paper", "Axonometric", "Axonometric.png", {3, "WindowAxonometric", "Axonometric"}),
    Kind<CornellWindow>("cornell", "Note Paper", "Note Paper", "Cornell.png", {11, "WindowCornell", "Note"}),
    Kind<CrossWindow>("crosses", "Cross Graph Paper", "Crosses Paper", "Crosses.png", {10, "WindowCrosses", "Crosses"}),
    Kind<DotsWindow>("dots", "Dots Graph Paper", "Dots Paper", "Dots.png", {9, "WindowDots", "Dots"}),
    Kind<EngineeringWindow>("engineering", "Engineering Paper", "Engineering", "Engineering.png", {7, "WindowEngineering", "Engineering"}),
    Kind<HexagonWindow>("hexagon", "Hexagon Graph Paper", "Hexagon", "Hexagon.png", {5, "WindowHexagon", "Hexagon"}),
    Kind<IsometricWindow>("isometric", "Isometric Graph Paper", "Isometric", "Isometric.png", {2, "WindowIsometric", "Isometric"}),
    Kind<LinedWindow>("lined", "Lined Paper", "Lined Paper", "Lined.png", {8, "WindowLined", "Lined"}),
    Kind<PolarWindow>("polar", "Polar Graph Paper", "Polar", "Polar.png", {6, "WindowPolar", "Polar"}),
    Kind<TrapezoidWindow>("trapezoid", "Trapezoid Graph Paper", "Trapezoid", "trapezoid.png", {4, "WindowTrapezoid", "Trapezoid"}),
    Kind<TernaryWindow>("ternary", "Ternary Graph Paper", "Ternary", "ternary.png", {12, "WindowTernary", "Ternary"}),
    Kind<GridWindow>("grid", "Grid Graph Paper", "Grid", "Grid.png", {13, "WindowGrid", "Grid"}),
    Kind<BrickWindow>("brick", "Brick Graph Paper", "Brick", "Brick.png", {14, "WindowBrick", "Brick"}),
};
// clang-format on

template <typename Predicate>
const PaperKind* FindKind(Predicate matches)
{
    const auto* const found = std::find_if(kinds.begin(), kinds.end(), matches);
    return found == kinds.end() ? nullptr : found;
}

}  // namespace

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
    const auto sameLetter = [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); };
    return FindKind([&](const PaperKind& kind) {
        const std::string_view own = kind.settingsType.extension;
        return std::equal(own.begin(), own.end(), extension.begin(), extension.end(), sameLetter);
    });
}

}  // namespace linealis
