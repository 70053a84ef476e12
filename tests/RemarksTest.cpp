#include "PageSupport.h"

namespace linealis::test {
namespace {

/// What is remarked on a text that a person types into a field of the form, after the assignments.
std::string Remark(std::string_view kind, std::string_view field, const std::string& text,
                   const Names& assignments = {})
{
    Paper paper(kind, assignments);
    paper.form.Type(field, text);
    return paper.form.Remark(field);
}

struct RemarkCase {
    std::string_view kind;
    std::string_view field;
    std::string text;
    std::string inTheRemark;  ///< empty: there is none
    Names assignments = {};
};

void Expect(const std::vector<RemarkCase>& cases)
{
    for (const RemarkCase& each : cases) {
        const std::string remark = Remark(each.kind, each.field, each.text, each.assignments);
        const bool right =
            each.inTheRemark.empty() ? remark.empty() : remark.find(each.inTheRemark) != std::string::npos;
        EXPECT_TRUE(right) << each.kind << " " << each.field << "=" << each.text << ": “" << remark
                           << "” instead of “" << each.inTheRemark << "”";
    }
}

TEST(Remarks, OnTextsThatAreNoNumber)
{
    Expect({
        {"grid", "EditTopMargin", "abc", "“abc” is not a number and counts as 0"},
        {"grid", "EditTopMargin", "1.5 cm", "counts as 1.5"},
        {"grid", "EditTopMargin", "1.2.3", "counts as 1.2"},
        {"grid", "EditTopMargin", "1/2", "counts as 1"},
        {"grid", "EditTopMargin", "", "an empty field counts as 0"},
        {"grid", "EditTopMargin", "  ", "an empty field counts as 0"},
    });
    for (const char* const number : {"0", ".5", "1,5", "-2", "+3", " 12 ", "1e1"}) {
        EXPECT_EQ(Remark("grid", "EditTopMargin", number), "") << number;
    }
}

TEST(Remarks, OnValuesThatThePageCorrects)
{
    const Names custom = {"PopupPaperSize=Custom"};
    Expect({
        {"lined", "EditHorzSpacing", "0", "5"},
        {"engineering", "EditVertiSpacing", "-3", "5"},
        {"cornell", "EditHorzSpacing", "0.1", ""},
        {"cornell", "EditNoteWidth", "100.5", "counts as 100"},
        {"cornell", "EditNoteHeight", "-1", "counts as 0"},
        {"cornell", "EditNoteHeight", "100", ""},
        {"polar", "EditNumCircles", "0", "counts as 1"},
        {"polar", "EditNumCircles", "1", ""},
        {"lined", "EditBlankLeft", "-1", "counts as 0"},
        {"lined", "EditBlankTop", "-1", ""},
        {"graph", "EditXLineSpacing", "0", "counts as 1"},
        {"graph", "EditYAxisStep", "0", "counts as 1"},
        {"graph", "EditXAxisSpacing", "0.5", "counts as 1"},
        {"graph", "EditXAxisSpacing", "2.5", "2"},
        {"graph", "EditXMajor", "0", ""},
        {"hexagon", "EditSize", "0", "must be above 0"},
        {"hexagon", "EditSize", "0.001", ""},
        {"grid", "EditCustomWidth", "0", "10", custom},
        {"grid", "EditCustomHeight", "-8", "10", custom},
        {"grid", "EditCustomHeight", "8", "", custom},
        {"grid", "EditCustomHeight", "0.138", "10", custom},
        {"grid", "EditCustomHeight", "0.139", "", custom},
        {"grid", "EditCustomHeight", "0.35", "10", {"PopupUnits=cm", "PopupPaperSize=Custom"}},
    });
}

TEST(Remarks, OnNumberSpacingsTellWhichOnesWriteNothing)
{
    EXPECT_EQ(Remark("graph", "EditXAxisSpacing", "-0.001"), "a negative value prints no numbers");
    EXPECT_EQ(Remark("graph", "EditXAxisSpacing", "0"), "counts as 1");
    EXPECT_EQ(Remark("graph", "EditXAxisSpacing", "0.001"), "counts as 1");
}

TEST(Remarks, OnAHydraulicAxisAreWhatItDraws)
{
    const Names hydraulic = {"PopupXAxis=Hydraulic", "EditXAxisMinimum=0", "EditXAxisStep=7",
                             "PopupYAxis=Log 1 Decade"};
    Expect({{"graph", "EditXAxisStep", "0", "no grid line", hydraulic},
            {"graph", "EditXAxisStep", "", "no grid line", hydraulic},
            {"graph", "EditXAxisMinimum", "-1", "negative", hydraulic},
            {"graph", "EditXAxisSpacing", "2.5", "counts as 3", hydraulic},
            {"graph", "EditXAxisSpacing", "-2", "counts as 1", hydraulic}});
    const auto drawn = [&](const std::string& assignment) {
        Paper paper("graph", hydraulic);
        const Page page = paper.Draw({assignment, "CheckBoxShowAxes=off"});
        return std::pair(page.verticals, page.texts.size() - 1);  // but the title
    };
    using Drawn = std::pair<std::size_t, std::size_t>;
    EXPECT_EQ(drawn("EditXAxisStep=0"), Drawn(0, 0));
    EXPECT_EQ(drawn("EditXAxisStep="), Drawn(0, 0));
    EXPECT_EQ(drawn("EditXAxisSpacing=2.5"), Drawn(6, 2)) << "lines 1 and 4 have numbers";
    EXPECT_EQ(drawn("EditXAxisSpacing=-2"), Drawn(6, 6));
}

TEST(Remarks, OnNumbersThatMustBeWhole)
{
    Expect({
        {"polar", "EditNumCircles", "2.9", "counts as 2"},
        {"engineering", "EditBlankLeft", "2.9", "counts as 2"},
        {"engineering", "EditBlankTop", "-2.9", "counts as -2"},
        {"lined", "EditBlankLeft", ".9", "counts as 0"},
        {"ternary", "EditMajorDivisions", "7.0", ""},
        {"cornell", "EditTextSize", "12.5", "12"},  // the page knows whole sizes only
        {"graph", "EditTitleSize", "12.5", "12"},
        {"graph", "EditTitleSize", "12", ""},
    });
}

TEST(Remarks, OnValuesThatDrawNothing)
{
    Expect({
        {"grid", "EditHorzSpacing", "0", "0"},
        {"dots", "EditVertSpacing", "-1", "above 0"},
        {"crosses", "EditCrossWidth", "0", "no bar"},
        {"graph", "EditXLineSpacing", "-5", "no grid line"},
        {"graph", "EditTitleSize", "0.5", "nothing is printed"},
        {"hexagon", "EditSize", "0", "above 0"},
        {"isometric", "EditSize", "-.5", "above 0"},
        {"brick", "EditYScale", "0", "empty page"},
        {"polar", "EditLineThickness", "-1", "negative"},
        {"polar", "EditLineThickness", "0", ""},
        {"polar", "EditNumSpokes", "-12", "0"},
        {"ternary", "EditMinorDivisions", "-5", "counts as 1"},
        {"ternary", "EditMajorDivisions", "0", "the sides are not divided"},
        {"graph", "EditXAxisSpacing", "-1", "no numbers"},
    });
}

std::string NumberBehind(const std::string& remark)
{
    for (const std::string_view words : {"counts as ", "becomes "}) {
        const std::size_t place = remark.rfind(words);
        if (place != std::string::npos) {
            const std::size_t begin = place + words.size();
            return remark.substr(begin, remark.find(':', begin) - begin);
        }
    }
    return "";
}

class RemarksOfEveryKind : public testing::TestWithParam<std::string> {};

TEST_P(RemarksOfEveryKind, NoneWhenTheFormOpens)
{
    Paper paper(GetParam());
    for (const char* const units : {"inches", "cm", "inches"}) {
        paper.Set({std::string("PopupUnits=") + units});
        for (const ControlState& state : paper.form.Controls()) {
            if (state.kind == ControlKind::Text) {
                EXPECT_EQ(paper.form.Remark(state.name), "") << state.name << "=" << state.text << " in " << units;
            }
        }
    }
}

TEST_P(RemarksOfEveryKind, ANumberThatIsNamedIsTheOneThatThePageUses)
{
    const Paper fields(GetParam());
    int told = 0;
    for (const ControlState& state : fields.form.Controls()) {
        if (state.kind != ControlKind::Text || !state.enabled ||
            fields.window->form.Get<TextField>(state.name).MeansNow() == Meaning::Prose) {
            continue;
        }
        for (const char* const text : {"", "-1", "0", "0.5", "2.5", "150"}) {
            const std::string_view name = state.name;
            const std::string used = NumberBehind(Remark(GetParam(), name, text));
            if (used.empty()) {
                continue;
            }
            ++told;
            SCOPED_TRACE(std::string(name) + "=" + text + " told as " + used);
            EXPECT_EQ(NumberBehind(Remark(GetParam(), name, used)), "") << "which is no number to end with";
            Paper typed(GetParam()), named(GetParam());
            typed.form.Type(name, text);
            named.form.Type(name, used);
            EXPECT_TRUE(typed.Generate() == named.Generate());
        }
    }
    EXPECT_GT(told, 6) << "at least the margins and scales can be left empty";
}

INSTANTIATE_TEST_SUITE_P(Kinds, RemarksOfEveryKind, testing::ValuesIn(KindNames()),
                         [](const auto& instance) { return instance.param; });

TEST(Remarks, OnTextThatThePageCannotPrint)
{
    Expect({
        {"polar", "EditTitle", "", ""},
        {"polar", "EditTitle", "Größe – “ƒ†” (a)(b(c)) 100 %", ""},
        {"polar", "EditTitle", "2π", "“π”"},
        {"polar", "EditTitle", "Tokyo 東京", "“東”"},
        {"cornell", "EditName", "a😀b", "“😀”"},
        {"cornell", "EditTopic", "f(x", "parenthes"},
        {"cornell", "EditTopic", "x)", "parenthes"},
        {"cornell", "EditSubject", ")x(", "parenthes"},
        {"graph", "EditXAxisTitle", "a\\b", "backslash"},
    });
    const std::vector<ShownText> texts = Paper("polar").Draw({"EditTitle=Tokyo 東京"}).texts;
    EXPECT_TRUE(std::any_of(texts.begin(), texts.end(), [](const ShownText& shown) {
        return shown.text == "Tokyo ??";
    })) << "what the remark foretells";
}

TEST(Remarks, OnlyAnEmptyTitleXHasAMeaning)
{
    Expect({
        {"graph", "EditTitleX", "", ""},
        {"polar", "EditTitleX", "", ""},
        {"polar", "EditTitleX", "middle", "counts as 0"},
        {"graph", "EditTitleY", "", "counts as 0"},
        {"graph", "EditXAxisTitleX", "", "counts as 0"},
    });
}

TEST(Remarks, NoneOnWhatIsDisabled)
{
    Expect({
        {"grid", "EditCustomWidth", "wide", ""},
        {"grid", "EditCustomWidth", "wide", "not a number", {"PopupPaperSize=Custom"}},
        {"cornell", "EditName", "東", "", {"CheckBoxTopicArea=off"}},
        {"graph", "EditXHydraulicExponent", "1", ""},
        {"graph", "EditXHydraulicExponent", "1", "larger than 1", {"PopupXAxis=Hydraulic"}},
        {"graph", "EditXHydraulicExponent", "1.01", "", {"PopupXAxis=Hydraulic"}},
    });
}

}  // namespace
}  // namespace linealis::test
