#include "PageSupport.h"

#include <set>

namespace linealis::test {
namespace {

std::string Fields(const Names& texts)
{
    std::string bytes;
    for (const std::string& text : texts) {
        bytes += static_cast<char>(text.size()) + text;
    }
    return bytes;
}

const std::string noFile("\0\0\0\0", 4);

/// Puts something into every control that a person can set: other things in each control, and for each `seed`.
void Fill(PaperForm& form, int seed)
{
    int number = 11 + 100 * seed;
    for (std::size_t i = 0; i < form.Controls().size(); ++i) {
        const Control control = form.Controls()[i].control;
        ++number;
        switch (control.kind) {
        case ControlKind::Text:
            form.SetText(control.name, std::to_string(number) + ",50 é");
            break;
        case ControlKind::Popup:
        case ControlKind::Radio:
            form.SetListIndex(control.name, static_cast<std::int64_t>(control.items.size()) - seed);
            break;
        case ControlKind::Check:
            form.Click(control.name, control.value == (seed == 2));
            break;
        case ControlKind::Color:
            form.SetColor(control.name, {static_cast<std::uint8_t>(number), static_cast<std::uint8_t>(seed), 254});
            break;
        case ControlKind::Label:
            break;
        }
    }
}

std::string ValueOf(const PaperForm::State& state)
{
    const Color color = state.color;
    return state.text + "|" + std::to_string(state.listIndex) + "|" + std::to_string(state.value) + "|" +
           std::to_string(color.red * 65536 + color.green * 256 + color.blue);
}

/// The controls whose state is in no settings file, beside the custom size, which the paper size brings along.
const std::map<std::string_view, std::set<std::string_view>> notInTheFile = {
    {"axonometric", {"EditMinorLineThickness", "CheckBoxFrame"}},
    {"trapezoid", {"EditMinorLineThickness", "CheckBoxFrame"}},
    {"hexagon", {"EditMinorLineThickness", "CheckBoxFrame"}},
    {"isometric", {"CheckBoxFrame"}},
    {"ternary", {"EditMinorLineThickness", "CheckBoxFrame"}},
    {"polar",
     {"EditTitle", "EditTitleX", "EditTitleY", "EditTitleSize", "PopupFont1", "EditFontSize", "TextColorCanvas"}},
};

class EveryKind : public testing::TestWithParam<std::string> {};

TEST_P(EveryKind, KeepsItsFormAndMakesItsPage)
{
    Paper paper(GetParam());
    EXPECT_EQ(paper.form["StaticFileName"].caption, "Untitled");
    paper.Generate();
    EXPECT_EQ(Complaints(paper.file.Path()), "") << "the default page";
    Fill(paper.form, 1);
    const std::string saved = paper.Saved();

    Paper other(GetParam());
    Fill(other.form, 2);
    std::map<std::string_view, std::string> before;
    for (const PaperForm::State& state : other.form.Controls()) {
        before[state.control.name] = ValueOf(state);
    }
    other.Load(saved);
    EXPECT_EQ(other.Saved(), saved);
    EXPECT_EQ(other.window->OutputFile(), paper.file);
    const auto exceptions = notInTheFile.find(GetParam());
    for (const PaperForm::State& state : other.form.Controls()) {
        const std::string_view name = state.control.name;
        const bool kept = exceptions != notInTheFile.end() && exceptions->second.contains(name);
        if (state.control.kind != ControlKind::Label && !name.starts_with("EditCustom")) {
            EXPECT_EQ(ValueOf(state), kept ? before[name] : ValueOf(paper.form[name])) << name;
            EXPECT_NE(ValueOf(paper.form[name]), before[name]) << name << ": the test cannot tell them apart";
        }
    }
    other.window->PushButtonGenerate_Action();
    EXPECT_EQ(Complaints(paper.file.Path()), "") << "the page goes to the file that the settings name";
    EXPECT_FALSE(other.file.Exists());
}

TEST_P(EveryKind, LoadsAFileThatIsCutAnywhere)
{
    Paper paper(GetParam());
    paper.Generate();
    Fill(paper.form, 1);
    const std::string whole = paper.Saved();
    const std::string path = paper.file.Path().string();
    const std::size_t endOfPath = whole.find(path) + path.size();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        SCOPED_TRACE(length);
        Paper cut(GetParam());
        cut.Load(whole.substr(0, length));
        EXPECT_EQ(cut.window->OutputFile().IsEmpty(), length < endOfPath);
        const std::string saved = cut.Saved();
        EXPECT_EQ(saved.substr(0, 6), Fields({"1.3.0"}));
        cut.Load(saved);
        EXPECT_EQ(cut.Saved(), saved);
        if (length % 50 == 0) {
            cut.platform.shiftKey = true;
            cut.Generate();
            EXPECT_EQ(Complaints(cut.file.Path()), "");
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, EveryKind, testing::ValuesIn(KindNames()),
                         [](const auto& instance) { return instance.param; });

/// Each CONTROL=TEXT.
void ExpectTexts(const Paper& paper, const Names& expected)
{
    for (const std::string& text : expected) {
        const std::string name = text.substr(0, text.find('='));
        EXPECT_EQ(name + "=" + paper.form.Text(name), text);
    }
}

/// The head of a file in centimetres on A4, turned.
const std::string head = Fields({"1.3.0", "1", "7", "0", "0", "1", "10", "90", "110"});

TEST(SettingsBytes, Lined)
{
    const std::string bytes = head +
                              Fields({".3", ".6", "1", "2", "3", "4", "0", "6", "-2", "2.5", "10", "20", "30"}) +
                              noFile + Fields({"5", "55", "155"});
    Paper paper("lined");
    paper.Load(bytes + '\0');
    ExpectTexts(paper, {"EditLineThicknessHorz=.3", "EditLineThicknessVert=.6", "EditTopMargin=1",
                        "EditBottomMargin=2", "EditLeftMargin=3", "EditRightMargin=4", "EditHorzSpacing=6",
                        "EditBlankTop=-2", "EditBlankLeft=2.5"});
    EXPECT_FALSE(paper.form.Value("CheckBoxViewGraph") || paper.form.Value("CheckBoxDrawVertical"));
    EXPECT_EQ(paper.form.ColorOf("LineColorCanvas"), (Color{10, 20, 30}));
    EXPECT_EQ(paper.form.ColorOf("BackgroundColorCanvas"), (Color{250, 200, 100}));
    EXPECT_EQ(paper.form["StaticvertUnit"].caption, "per cm");
    EXPECT_EQ(paper.Saved(), bytes + '\0');
    paper.Load(bytes + '\x80');
    EXPECT_TRUE(paper.form.Value("CheckBoxDrawVertical")) << "any byte but 0";
    EXPECT_EQ(paper.Saved(), bytes + '\1');
}

TEST(SettingsBytes, Cornell)
{
    const auto bytes = [](const std::string& firstWeight, bool on) {
        const std::string yes(1, on ? '\1' : '\0'), no(1, on ? '\0' : '\1');
        return head + Fields({firstWeight, "1", "2", "3", "4"}) + yes + no +
               Fields({"Åsa", "31/1", "Topic", "", "9", "6", ".4"}) + yes + Fields({"60", "70"}) + no +
               Fields({".8"}) + yes + Fields({"10", "20", "30"}) + noFile + Fields({"5", "55", "155"});
    };
    Paper paper("cornell");
    for (const bool on : {true, false}) {
        paper.Load(bytes("7", on));
        ExpectTexts(paper,
                    {"EditTopMargin=1", "EditRightMargin=4", "EditName=Åsa", "EditDate=31/1", "EditTopic=Topic",
                     "EditSubject=", "EditTextSize=9", "EditHorzSpacing=6", "EditLineThicknessHorz=.4",
                     "EditNoteWidth=60", "EditNoteHeight=70", "EditCueWeight=.8"});
        for (const char* const box : {"CheckBoxViewGraph", "CheckGrid", "CheckSummaryBottom"}) {
            EXPECT_EQ(paper.form.Value(box), on) << box;
        }
        EXPECT_EQ(paper.form.Value("CheckBoxTopicArea"), !on);
        EXPECT_EQ(paper.form.Value("CheckCueLeft"), !on);
        EXPECT_EQ(paper.form.ColorOf("LineColorCanvas"), (Color{10, 20, 30}));
        EXPECT_EQ(paper.Saved(), bytes(".4", on)) << "the weight stands there twice; the second counts";
    }
}

TEST(SettingsBytes, Polar)
{
    const auto bytes = [](std::string_view style, std::string_view skip, const Names& last) {
        return head + Fields({".3", "1", "2", "3", "4", "1", "10", "20", "30"}) + noFile +
               Fields({"5", "55", "155"}) + std::string(style) + std::string(skip) + Fields(last);
    };
    using namespace std::string_view_literals;
    const Names last = {".7", "6", "5", "4", "3"};
    Paper paper("polar");
    const auto loaded = [&](std::string_view style, std::string_view skip) {
        paper.Load(bytes(style, skip, last));
        return std::string(paper.form.SelectedItem("RadioButton1")) + ", " +
               std::string(paper.form.SelectedItem("PopupMenuLabelSkip"));
    };
    EXPECT_EQ(loaded("\0\0\0\2"sv, "\0\0\0\7"sv), "Start At 0, 7");
    EXPECT_EQ(paper.Saved(), bytes("\0\0\0\2"sv, "\0\0\0\7"sv, last)) << "the highest byte first";
    EXPECT_EQ(loaded("\xFF\xFF\xFF\xFF"sv, "\0\0\0\x14"sv), "None, 20");
    EXPECT_EQ(paper.Saved(), bytes("\xFF\xFF\xFF\xFF"sv, "\0\0\0\x14"sv, last));
    EXPECT_EQ(loaded("\0\0\0\4"sv, "\0\0\0\0"sv), "Start At 1, 1");
    EXPECT_EQ(loaded("\x80\0\0\0"sv, "\x80\0\0\0"sv), "None, 1");
    EXPECT_EQ(loaded("\x7F\xFF\xFF\xFF"sv, "\x7F\xFF\xFF\xFF"sv), "Start At 1, 20");
    const Names numbers = {"EditMinorLineThickness=.7", "EditNumCircles=6", "EditNumSpokes=5",
                           "EditNumMinorSpokes=4", "EditMinorStart=3"};
    ExpectTexts(paper, numbers);
    for (const Names& empty : {Names{"", "", "", "", ""}, Names{}}) {
        paper.Load(bytes("\0\0\0\0"sv, "\0\0\0\1"sv, empty));
        ExpectTexts(paper, numbers);
    }
    EXPECT_EQ(paper.form.SelectedItem("RadioButton1"), "Degrees");
}

TEST(SettingsBytes, HexagonAndItsSizeMarker)
{
    const auto bytes = [](const std::string& units, const std::string& marker) {
        return Fields({"1.3.0", "1", "7", "0", "0", units, marker, "90", "110", ".4", "1", "2", "3", "4", "0", "10",
                       "20", "30"}) +
               noFile + Fields({".75", "5", "55", "155"});
    };
    for (const char* const kind : {"hexagon", "isometric"}) {  // the same fields
        Paper paper(kind);
        const auto size = [&](const std::string& units, const std::string& marker) {
            paper.Load(bytes(units, marker));
            return paper.form.Text("EditSize");
        };
        EXPECT_EQ(size("0", "10"), ".75");
        EXPECT_EQ(paper.Saved(), bytes("0", "10"));
        ExpectTexts(paper, {"EditXScale=90", "EditYScale=110", "EditLineThickness=.4", "EditTopMargin=1",
                            "EditBottomMargin=2", "EditLeftMargin=3", "EditRightMargin=4"});
        EXPECT_FALSE(paper.form.Value("CheckBoxViewGraph"));
        EXPECT_EQ(paper.form.ColorOf("BackgroundColorCanvas"), (Color{250, 200, 100}));
        EXPECT_EQ(Names({size("0", "0"), size("0", "1"), size("0", "2")}), (Names{"0.5", "0.25", "0.2"}));
        EXPECT_EQ(Names({size("1", "0"), size("1", "1"), size("1", "2")}), (Names{"0.2", "0.5", "1.0"}));
        EXPECT_EQ(Names({size("1", "3"), size("1", "-1"), size("1", "10")}), (Names{".75", ".75", ".75"}));
        size("1", "2");
        EXPECT_EQ(paper.Saved().substr(16, 3), Fields({"10"})) << "files of today have no other marker";
    }
}

}  // namespace
}  // namespace linealis::test
