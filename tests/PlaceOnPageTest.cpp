#include "pipeline/form/PlaceOnPage.h"

#include "PageSupport.h"
#include "pdf/PageHit.h"

namespace linealis::test {
namespace {

TEST(PlaceOnPage, MarginsEndWhereTheyAreDragged)
{
    struct Case {
        Names set;
        Side side;
        double place;
        Grain grain;
        const char* expected;
    };
    for (const Case& test : {
             Case{{}, Side::Top, 792.0 - 91.0, Grain::Coarse, "1.25"},
             Case{{}, Side::Top, 792.0 - 91.0, Grain::Fine, "1.26"},
             Case{{}, Side::Bottom, 40.0, Grain::Coarse, "0.5625"},
             Case{{}, Side::Right, 612.0 - 54.0, Grain::Coarse, "0.75"},
             Case{{"PopupOrientation=Landscape"}, Side::Right, 792.0 - 54.0, Grain::Coarse, "0.75"},
             Case{{"PopupUnits=cm"}, Side::Left, 50.0, Grain::Coarse, "1.75"},
             Case{{"PopupUnits=cm"}, Side::Left, 50.0, Grain::Fine, "1.76"},
             Case{{"EditXScale=50"}, Side::Left, 36.0, Grain::Coarse, "1"},
             Case{{"EditYScale=50"}, Side::Top, 360.0, Grain::Coarse, "1"},
             Case{{"EditXScale=0"}, Side::Left, 36.0, Grain::Coarse, "0.5"},  // unchanged: nothing can be seen
             Case{{}, Side::Left, -5.0, Grain::Coarse, "0"},
             Case{{"EditRightMargin=2"}, Side::Left, 600.0, Grain::Coarse, "6.5"},
         }) {
        const Paper paper("grid", test.set);
        MoveMargin(paper.window->form, test.side, test.place, test.grain);
        EXPECT_EQ(MarginOf(paper.window->form, test.side).Text(), test.expected) << test.place;
    }
}

/// Every title of the page, by its role.
std::vector<TextArea> Titles(const PaperWindow& window)
{
    Turns turns([] {});
    const DrawnPage page = DrawPage(window.ReadPage(), turns);
    return TextAreas(page.content, page.roles, {"title"});
}

TEST(PlaceOnPage, TitlesBeginWhereTheyAreDragged)
{
    constexpr double halfAGrain = 0.005 * 72.0 + 1e-3;
    for (const std::string kind : {"graph", "polar"}) {
        for (const Names& set : {Names{}, Names{"EditTitleX="}, Names{"PopupUnits=cm", "EditYScale=90"},
                                 Names{"CheckAutoPosXAxisText=on", "CheckAutoPosYAxisText=on", "EditXLineSpacing=3",
                                       "EditYLineSpacing=.7"}}) {
            if (kind == "polar" && set.size() > 2) {
                continue;
            }
            const Paper paper(kind, set);
            for (const PrintedField& field : paper.window->ReadPage().printed) {
                const auto startOf = [&] {
                    for (const TextArea& title : Titles(*paper.window)) {
                        if (title.role == field.role) {
                            return title.start;
                        }
                    }
                    return Point{};
                };
                const Point from = startOf();
                MoveTitle(paper.window->form, field, {from.x + 100.0, from.y - 50.0}, Grain::Fine);
                const Point to = startOf();
                EXPECT_NEAR(to.x, from.x + 100.0, halfAGrain) << kind << " " << field.control;
                EXPECT_NEAR(to.y, from.y - 50.0, halfAGrain) << kind << " " << field.control;
            }
        }
    }
    const Paper notes("cornell");
    for (const PrintedField& field : notes.window->ReadPage().printed) {
        EXPECT_EQ(ControlsOfTitle(notes.window->form, field.role).x, nullptr) << "its texts have fixed places";
    }
}

}  // namespace
}  // namespace linealis::test
