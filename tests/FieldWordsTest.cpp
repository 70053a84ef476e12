#include "pipeline/form/FieldWords.h"

#include "PageSupport.h"
#include "pdf/PageHit.h"
#include "pipeline/form/LengthText.h"
#include "pipeline/form/Stepping.h"
#include "text/Numbers.h"

#include <map>
#include <set>

namespace linealis::test {
namespace {

TEST(TypedNumber, IsInTheFieldsOwnUnit)
{
    struct Case {
        const char* typed;
        const char* becomes;
        Quantity quantity = Quantity::Length;
        LengthUnit unit = LengthUnit::Inches;
    };
    for (const Case& each : std::vector<Case>{{"5mm", "0.1968504"},
                                              {" 5 MM ", "0.1968504"},
                                              {"1/4in", "0.25"},
                                              {"1/4\"", "0.25"},
                                              {"2.54 cm", "1"},
                                              {"2,54cm", "1"},
                                              {"1 1/2 inches", "1.5"},
                                              {"12pt", "0.1666667"},
                                              {"1/4", "0.25"},
                                              {"-1/8", "-0.125"},
                                              {"0.5in", "0.5"},
                                              {".3\u2033", "0.3"},
                                              {"5mm", "0.5", Quantity::Length, LengthUnit::Centimeters},
                                              {"1/4in", "0.635", Quantity::Length, LengthUnit::Centimeters},
                                              {"0.1cm", "0.1", Quantity::Centimeters},
                                              {"7mm", "3.628571", Quantity::CountPerUnit},
                                              {"7mm", "1.428571", Quantity::CountPerUnit, LengthUnit::Centimeters},
                                              {"7/2", "3.5", Quantity::CountPerUnit},
                                              {"0.1mm", "0.2834646", Quantity::Points},
                                              {"0.5pt", "0.5", Quantity::Points, LengthUnit::None},
                                              {"1/4", "0.25", Quantity::None, LengthUnit::None}}) {
        const auto number = TypedNumber(each.typed, each.quantity, each.unit);
        ASSERT_TRUE(number) << each.typed;
        EXPECT_EQ(Str(*number), each.becomes) << each.typed;
    }
    for (const char* const other : {"", "5", " .25", "-3", "mm", "5 m m", "1/0", "1/0in", "1 2", "1 1/", "/4",
                                    "1//4", "5 apples", "1e400in", "5mm5", "1.2.3mm", "\u215B in", "--5mm"}) {
        EXPECT_FALSE(TypedNumber(other, Quantity::Length, LengthUnit::Inches)) << other;
    }
    EXPECT_FALSE(TypedNumber("5mm", Quantity::None, LengthUnit::Inches));
    EXPECT_FALSE(TypedNumber("5mm", Quantity::Length, LengthUnit::None));
    EXPECT_FALSE(TypedNumber("0mm", Quantity::CountPerUnit, LengthUnit::Inches));
}

TEST(Stepped, FitsWhatTheFieldMeans)
{
    const auto inches = [](Meaning meaning, const char* text, double steps) {
        return Stepped(meaning, text, steps, LengthUnit::Inches);
    };
    EXPECT_EQ(inches(Meaning::Length, ".25", 1.0), "0.3");
    EXPECT_EQ(inches(Meaning::Length, "0.125", 1.0), "0.175");
    EXPECT_EQ(Stepped(Meaning::Spacing, "0.5", -1.0, LengthUnit::Centimeters), "0.4");
    EXPECT_EQ(inches(Meaning::Spacing, "0.05", -10.0), "0");
    EXPECT_EQ(inches(Meaning::Length, "0", -1.0), "-0.05");
    EXPECT_EQ(inches(Meaning::Weight, ".1", 10.0), "1.1");
    EXPECT_EQ(inches(Meaning::Count, "7", -1.0), "6");
    EXPECT_EQ(inches(Meaning::AxisStep, "0.005", 1.0), "0.006");
    EXPECT_EQ(inches(Meaning::AxisValue, "-35", 10.0), "-25");
    EXPECT_EQ(inches(Meaning::Weight, "x", 1.0), "0.1");
    EXPECT_EQ(inches(Meaning::Prose, "7", 1.0), "7");
    EXPECT_EQ(inches(Meaning::Length, "1e307", 1.0), "1e307") << "as far as numbers go";
}

TEST(FieldWords, SayLengthsInMillimeters)
{
    Paper lined("lined");
    const Form& form = lined.window->form;
    const auto readout = [&](std::vector<std::string_view> names) {
        std::vector<Control*> fields;
        for (const std::string_view name : names) {
            fields.push_back(form.Find(name));
        }
        return Readout(fields, form.UnitOfLengths()).English();
    };
    EXPECT_EQ(readout({"EditTopMargin", "StaticHorzUnit", "EditBlankLeft"}), "= 12.7, 25.4 mm");
    EXPECT_EQ(readout({"EditHorzSpacing"}), "= 5.08 mm");
    lined.Set({"PopupUnits=cm", "EditHorzSpacing=0"});
    EXPECT_EQ(readout({"EditHorzSpacing"}), "= 2.0 mm") << "as the page has it";
    EXPECT_EQ(readout({"EditXScale", "EditLineThicknessHorz"}), "");
}

/// Looks for each role of a page where it is drawn.
struct HitTest : PageSink {
    const DrawnPage& page;
    Turns turns{[] {}};
    Role role;
    double xScale = 1.0, yScale = 1.0;
    std::set<Role> drawn, found;

    explicit HitTest(const DrawnPage& thePage) : page(thePage) {}
    bool Scale(double sx, double sy) override
    {
        xScale = sx;
        yScale = sy;
        return true;
    }
    bool Stroke(PagePath path, const PagePen&) override
    {
        constexpr double t = 0.617, s = 1.0 - t;  // a part at which no other line crosses
        for (std::size_t i = 1; i < path.size(); ++i) {
            const Point &from = path[i - 1].to, &to = path[i].to, &first = path[i].control1,
                        &second = path[i].control2;
            const bool isCurve = path[i].operation == PageOperator::Curve;
            const double straight[] = {s, 0, 0, t}, curved[] = {s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t};
            const double* const part = isCurve ? curved : straight;
            Look(part[0] * from.x + part[1] * first.x + part[2] * second.x + part[3] * to.x,
                 part[0] * from.y + part[1] * first.y + part[2] * second.y + part[3] * to.y);
        }
        return path.size() > 1 || Look(path[0].to.x, path[0].to.y);
    }
    bool Fill(PagePath, const PageColor&) override { return true; }
    bool FillAndStroke(PagePath path, const PageColor&, const PagePen& pen) override { return Stroke(path, pen); }
    bool Text(const PageText& text) override { return Look(text.matrix[4] + 0.1, text.matrix[5] + 0.1); }
    void BeginRole(Role next) override { role = next; }

    bool Look(double x, double y)
    {
        drawn.insert(role);
        if (!found.contains(role)) {
            const Role there = RoleAt(page.content, page.roles, {x * xScale, y * yScale}, 0.5, turns);
            if (there == role) {
                found.insert(role);
            }
        }
        return true;
    }
};

class FieldsOfEveryKind : public testing::TestWithParam<std::string> {};

TEST_P(FieldsOfEveryKind, HaveNamesOfTheirOwn)
{
    const Paper paper(GetParam());
    std::set<std::string> names;
    for (const Control* const control : paper.window->form.Controls()) {
        if (control->Kind() != ControlKind::Label) {
            const std::string name = WholeName(paper.window->form, *control).English();
            EXPECT_GT(name.size(), 3U) << control->Name();
            EXPECT_TRUE(names.insert(name).second) << name;
        }
    }
}

TEST_P(FieldsOfEveryKind, GovernWhatIsDrawn)
{
    Paper paper(GetParam());
    paper.Set({"EditXScale=90"});
    if (GetParam() == "polar") {
        paper.Set({"EditNumMinorSpokes=13"});  // which do not cover the others
    }
    const DrawnPage page = paper.window->DrawPage();
    HitTest test(page);
    ReadPage(page.content, page.roles, test);
    EXPECT_EQ(test.found, test.drawn);
    for (const Role role : test.drawn) {
        EXPECT_NE(GovernorOf(paper.window->form, role), nullptr) << role;
    }
}

/// The lines of a width: which of them lie flat and which stand.
struct LinesOfWidth : PageSink {
    explicit LinesOfWidth(double theWidth) : width(theWidth) {}

    double width;
    std::size_t all = 0, flat = 0, upright = 0, slanted = 0;

    bool Scale(double, double) override { return true; }
    bool Stroke(PagePath path, const PagePen& pen) override
    {
        all += pen.width == width ? 1U : 0U;
        if (pen.width == width && path.size() == 2) {
            const bool isFlat = path[0].to.y == path[1].to.y, isUpright = path[0].to.x == path[1].to.x;
            ++(isFlat ? flat : isUpright ? upright : slanted);
        }
        return true;
    }
    bool Fill(PagePath, const PageColor&) override { return true; }
    bool FillAndStroke(PagePath, const PageColor&, const PagePen&) override { return true; }
    bool Text(const PageText&) override { return true; }
};

/// The weight of lines stands on the row of the box that draws them.
TEST_P(FieldsOfEveryKind, StandBesideTheBoxThatEnablesThem)
{
    const Paper paper(GetParam());
    for (const Control* const control : paper.window->form.Controls()) {
        const Traits& declared = control->Declared();
        if (declared.meaning == Meaning::Weight && declared.enabledBy != nullptr) {
            EXPECT_TRUE(declared.beside) << control->Name();
        }
    }
}

TEST_P(FieldsOfEveryKind, SayWhichLinesAWeightSets)
{
    const Paper names(GetParam());
    for (const Control* const control : names.window->form.Controls()) {
        const std::string_view sets = control->Declared().sets;
        if (control->Declared().meaning != Meaning::Weight) {
            continue;
        }
        ASSERT_NE(sets, "") << control->Name();
        Paper paper(GetParam(), GetParam() == "dots" || GetParam() == "crosses"
                                    ? Names{"CheckVertLines=on", "CheckHorzLines=on"}
                                    : Names());
        paper.Set({std::string(control->Name()) + "=7.25"});
        LinesOfWidth lines(7.25);
        ReadPage(paper.Content(), lines);
        EXPECT_GT(lines.all, 0U) << control->Name();
        const auto says = [&](const char* word) { return sets.find(word) != std::string_view::npos; };
        if (says("horizontal") != says("vertical") || says("ruled") || says("slanted")) {
            EXPECT_EQ(lines.flat > 0, says("horizontal") || says("ruled")) << control->Name() << ": " << sets;
            EXPECT_EQ(lines.upright > 0, says("vertical")) << control->Name() << ": " << sets;
            EXPECT_EQ(lines.slanted > 0, says("slanted")) << control->Name() << ": " << sets;
        }
    }
}

/// Of each stroke, fill and text whether it shows a weight or a color, and whether its role is one of a set.
struct RoleMatch : PageSink {
    RoleSet governs;
    double width = 7.25;
    PageColor color{0.2, 0.4, 0.6};
    Role role = "";
    std::size_t both = 0;
    Names wrong;

    void Look(bool isSet)
    {
        const bool isGoverned = Includes(governs, role);
        both += isSet && isGoverned ? 1U : 0U;
        if (isSet != isGoverned) {
            wrong.emplace_back(role);
        }
    }
    void BeginRole(Role newRole) override { role = newRole; }
    bool Scale(double, double) override { return true; }
    bool Stroke(PagePath, const PagePen& pen) override
    {
        EXPECT_NE(role, "");
        Look(pen.width == width || pen.color == color);
        return true;
    }
    bool Fill(PagePath, const PageColor& fill) override
    {
        if (fill != PageColor{255.0, 255.0, 255.0}) {  // a box under a number
            Look(fill == color);
        }
        return true;
    }
    bool FillAndStroke(PagePath, const PageColor&, const PagePen&) override { return true; }
    bool Text(const PageText& text) override
    {
        EXPECT_NE(role, "");
        Look(text.color == color);
        return true;
    }
};

TEST_P(FieldsOfEveryKind, GovernExactlyWhatTheySet)
{
    const bool linesAreOff = GetParam() == "dots" || GetParam() == "crosses";
    const Names on = linesAreOff ? Names{"CheckVertLines=on", "CheckHorzLines=on"} : Names();
    const Paper names(GetParam(), on);
    for (const Control* const control : names.window->form.Controls()) {
        const bool isWeight = control->Declared().meaning == Meaning::Weight;
        if (control->Kind() != ControlKind::Color && !isWeight) {
            continue;
        }
        Paper paper(GetParam(), on);
        if (GetParam() == "cornell") {
            paper.Set({"CheckGrid=on"});
        }
        paper.Set({std::string(control->Name()) + (isWeight ? "=7.25" : "=#336699")});
        RoleMatch match;
        match.governs = control->Declared().governs;
        const std::string content = paper.Content();
        ReadPage(content, paper.window->Pdf().Roles(), match);
        EXPECT_GT(match.both, 0U) << control->Name();
        EXPECT_EQ(match.wrong, Names()) << control->Name();
    }
}

INSTANTIATE_TEST_SUITE_P(Fields, FieldsOfEveryKind, testing::ValuesIn(KindNames()),
                         [](const auto& tested) { return tested.param; });

}  // namespace
}  // namespace linealis::test
