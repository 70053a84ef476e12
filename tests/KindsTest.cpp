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

/// Puts something into every control that a person can set: other things in each control, and for each `seed`.
void Fill(const NamedForm& form, int seed)
{
    int number = 11 + 100 * seed;
    for (const ControlState& state : form.Controls()) {
        ++number;
        switch (state.kind) {
        case ControlKind::Text:
            form.SetText(state.name, std::to_string(number) + ",50 é");
            break;
        case ControlKind::Popup:
        case ControlKind::Radio:
            form.SetListIndex(state.name, state.items - seed);
            break;
        case ControlKind::Check:
            form.Click(state.name, state.value == (seed == 2));
            break;
        case ControlKind::Color:
            form.SetColor(state.name, {static_cast<std::uint8_t>(number), static_cast<std::uint8_t>(seed), 254});
            break;
        case ControlKind::Label:
            break;
        }
    }
}

std::string ValueOf(const ControlState& state)
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

// The fields of each file in order. A popup stands there by its index, a box as 1 or 0, or with ! as a byte, a
// color by its channels, with ~ inverse; #N is a 32-bit index and N more, =TEXT always the same, @ the output file.
const std::string head = "=1.3.0 PopupOrientation PopupPaperSize =0 =0 PopupUnits =10 EditXScale EditYScale ";
const std::string margins = "EditTopMargin EditBottomMargin EditLeftMargin EditRightMargin ";
const std::string view = margins + "CheckBoxViewGraph ";
const std::string colors = "LineColorCanvas @ ~BackgroundColorCanvas";
const std::string spacings = "EditHorzSpacing EditVertSpacing ";
const std::string weights = "EditHorzWeight EditVertWeight ~BackgroundColorCanvas";
const std::string spacingRows =
    view + "LineColorCanvas @ LinesColorCanvas CheckVertLines CheckHorzLines " + weights;
const std::string thicknesses = "EditLineThicknessHorz EditLineThicknessVert " + view;
const std::string cellSize = "LineColorCanvas @ EditSize ~BackgroundColorCanvas";
const std::string diagonals =
    head + "EditLineThickness " + view + "CheckBoxVertical CheckBoxHorizontal " + cellSize;

std::string PerAxis(const std::string& names)
{
    std::string both;
    for (const char axis : {'X', 'Y'}) {
        std::string one = names;
        std::replace(one.begin(), one.end(), '*', axis);
        both += one;
    }
    return both;
}

const std::map<std::string, std::string> fileOrder = {
    {"axonometric", diagonals},
    {"trapezoid", diagonals},
    {"hexagon", head + "EditLineThickness " + view + cellSize},
    {"isometric", head + "EditLineThickness " + view + cellSize},
    {"grid", head + spacings + view + "@ LinesColorCanvas CheckVertLines CheckHorzLines " + weights},
    {"brick", head + spacings + view + "@ LinesColorCanvas =1 =1 " + weights},
    {"dots", head + "EditDotWeight " + spacings + spacingRows},
    {"crosses", head + "EditCrossWeight " + spacings + "EditCrossHeight EditCrossWidth " + spacingRows},
    {"engineering", head + thicknesses + "EditHorzSpacing EditVertiSpacing EditBlankTop EditBlankLeft " + colors},
    {"lined",
     head + thicknesses + "EditHorzSpacing EditBlankTop EditBlankLeft " + colors + " CheckBoxDrawVertical!"},
    {"polar", head + "EditLineThickness " + view + colors +
                  " RadioButton1#-1 PopupMenuLabelSkip#1 "
                  "EditMinorLineThickness EditNumCircles EditNumSpokes EditNumMinorSpokes EditMinorStart"},
    {"ternary", head + "EditLineThickness " + view +
                    "CheckBoxFlip LineColorCanvas EditMajorDivisions "
                    "EditMinorDivisions PopupScaling EditAxisMaximum @ ~BackgroundColorCanvas"},
    {"cornell",
     head + "EditLineThicknessHorz " + margins +
         "CheckBoxViewGraph! CheckBoxTopicArea! EditName EditDate "
         "EditTopic EditSubject EditTextSize EditHorzSpacing EditLineThicknessHorz CheckGrid! EditNoteWidth "
         "EditNoteHeight CheckCueLeft! EditCueWeight CheckSummaryBottom! " +
         colors},
    {"graph",
     "=1.3.0 EditTitle EditTitleX EditTitleY EditTitleSize PopupOrientation PopupPaperSize =0 =0 PopupUnits "
     "EditXScale EditYScale " +
         PerAxis("Edit*LineSpacing Edit*LineThickness Edit*Major Edit*MajorWeight Popup*Axis ") +
         PerAxis("Edit*AxisMinimum Edit*AxisStep Edit*AxisSpacing Edit*AxisWeight Edit*AxisTextSize ") + margins +
         "CheckBoxShowAxes CheckBoxViewGraph CheckBoxMarkers LineColorCanvas MajorLineColorCanvas @ "
         "EditXAxisTitle EditYAxisTitle PopupFont1 " +
         PerAxis("Edit*AxisTitleTextSize Edit*AxisTitleX Edit*AxisTitleY ") + PerAxis("Popup*AxisType ") +
         PerAxis("Edit*HydraulicExponent ") + PerAxis("Edit*AxisMaximum ") + "~BackgroundColorCanvas " +
         PerAxis("CheckAutoPos*AxisText! ")}};

std::string FourBytes(std::int64_t value)
{
    return {static_cast<char>(value >> 24), static_cast<char>(value >> 16), static_cast<char>(value >> 8),
            static_cast<char>(value)};
}

/// The field as the file must have it.
std::string FieldBytes(const std::string& field, const Paper& paper)
{
    if (field == "@") {
        const std::string path = paper.file.Path().string();
        return FourBytes(static_cast<std::int64_t>(path.size())) + path;
    }
    if (field[0] == '=') {
        return Fields({field.substr(1)});
    }
    const std::size_t mark = field.find_first_of("#!");
    const bool inverse = field[0] == '~';
    const ControlState state = paper.form[field.substr(inverse ? 1 : 0, mark)];
    const auto channel = [&](int value) { return std::to_string(inverse ? 255 - value : value); };
    switch (state.kind) {
    case ControlKind::Check:
        return mark != std::string::npos ? std::string(1, state.value ? '\1' : '\0')
                                         : Fields({state.value ? "1" : "0"});
    case ControlKind::Color:
        return Fields({channel(state.color.red), channel(state.color.green), channel(state.color.blue)});
    case ControlKind::Text:
        return Fields({state.text});
    default:
        return mark == std::string::npos ? Fields({std::to_string(state.listIndex)})
                                         : FourBytes(state.listIndex + std::stoi(field.substr(mark + 1)));
    }
}

class EveryKind : public testing::TestWithParam<std::string> {};

TEST_P(EveryKind, KeepsItsFormAndMakesItsPage)
{
    Paper paper(GetParam());
    EXPECT_EQ(paper.form["StaticFileName"].caption, "Untitled");
    paper.Generate();
    EXPECT_EQ(Complaints(paper.file.Path()), "") << "the default page";
    ASSERT_TRUE(fileOrder.contains(GetParam())) << "the table above does not have the settings file of this kind";
    Fill(paper.form, 1);
    const std::string saved = paper.Saved();
    std::string bytes;
    for (const std::string& field : Lines(fileOrder.at(GetParam()), ' ')) {
        bytes += FieldBytes(field, paper);
    }
    EXPECT_EQ(saved, bytes);

    Paper other(GetParam());
    Fill(other.form, 2);
    std::map<std::string_view, std::string> before;
    for (const ControlState& state : other.form.Controls()) {
        before[state.name] = ValueOf(state);
    }
    other.Load(saved);
    EXPECT_EQ(other.Saved(), saved);
    EXPECT_EQ(other.window->OutputFile(), paper.file);
    const auto exceptions = notInTheFile.find(GetParam());
    for (const ControlState& state : other.form.Controls()) {
        const std::string_view name = state.name;
        const bool kept = exceptions != notInTheFile.end() && exceptions->second.contains(name);
        if (state.kind != ControlKind::Label && !name.starts_with("EditCustom")) {
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

TEST(SettingsOf, CellSizesHaveAMarkerInOldFiles)
{
    for (const char* const kind : {"hexagon", "isometric"}) {
        Paper paper(kind, {"EditSize=.75"});
        const std::string saved = paper.Saved();
        const auto size = [&](const std::string& units, const std::string& marker) {
            std::string bytes = saved;
            paper.Load(bytes.replace(14, 5, Fields({units, marker})));
            return paper.form.Text("EditSize");
        };
        EXPECT_EQ(Names({size("0", "0"), size("0", "1"), size("0", "2")}), (Names{"0.5", "0.25", "0.2"}));
        EXPECT_EQ(Names({size("1", "0"), size("1", "1"), size("1", "2")}), (Names{"0.2", "0.5", "1.0"}));
        EXPECT_EQ(Names({size("1", "3"), size("1", "-1"), size("1", "10")}), (Names{".75", ".75", ".75"}));
        size("0", "2");
        EXPECT_EQ(paper.Saved().substr(14, 5), Fields({"0", "10"})) << "files of today have no other marker";
    }
}

TEST(SettingsOf, PolarAreLimitedAndKeepWhatAnOldFileLacks)
{
    Paper paper("polar");
    const std::string saved = paper.Saved();
    std::size_t integers = saved.size() - 8;
    for (const char* const name :
         {"EditMinorLineThickness", "EditNumCircles", "EditNumSpokes", "EditNumMinorSpokes", "EditMinorStart"}) {
        integers -= 1 + paper.form.Text(name).size();
    }
    const auto loaded = [&](std::string_view style, std::string_view skip, std::size_t length) {
        std::string bytes = saved.substr(0, length);
        paper.Load(bytes.replace(integers, 8, std::string(style) + std::string(skip)));
        return std::string(paper.form.Selected("RadioButton1")) + ", " +
               std::string(paper.form.Selected("PopupMenuLabelSkip"));
    };
    using namespace std::string_view_literals;
    EXPECT_EQ(loaded("\0\0\0\4"sv, "\0\0\0\0"sv, saved.size()), "Start At 1, 1");
    EXPECT_EQ(loaded("\x80\0\0\0"sv, "\x7F\xFF\xFF\xFF"sv, saved.size()), "None, 20");
    EXPECT_EQ(loaded("\0\0\0\0"sv, "\0\0\0\1"sv, integers + 8), "Degrees, 1");
    EXPECT_EQ(paper.Saved(), saved) << "what is not in the file stays";
}

TEST(SettingsOf, TheGraphKeepTheirNumbersInOtherUnits)
{
    Paper paper("graph");
    const std::string inches = paper.Saved();
    paper.Set({"PopupUnits=cm", "EditTitle=T", "BackgroundColorCanvas=#0064FA"});
    const std::string centimeters = paper.Saved();
    for (const std::string& bytes : {inches, centimeters}) {
        paper.Load(bytes);
        EXPECT_EQ(paper.form["StaticTextLinesPerUnit"].caption, bytes == inches ? "Lines/in" : "Lines/cm");
        EXPECT_EQ(paper.Saved(), bytes) << "neither converted nor worked out anew";
    }
    paper.window->LoadSettings(FolderItem());
    EXPECT_EQ(paper.form.ColorOf("BackgroundColorCanvas"), white) << "though there is no file";
    paper.Set({"BackgroundColorCanvas=#0064FA"});
    EXPECT_EQ(paper.Saved(), centimeters) << "and nothing else changes";
}

}  // namespace
}  // namespace linealis::test
