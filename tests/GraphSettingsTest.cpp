#include "PageSupport.h"
#include "graph/MainWindow.h"

namespace linealis::test {
namespace {

// The fields in file order: CONTROL=what it holds when the form opens, and >another value. Texts get one of their
// own. Without a control: what is always the same, or a channel of a colour. @ is the output file.
constexpr std::string_view fileOrder =
    "=1.3.0|EditTitle=A Sample Graph Paper|EditTitleX=2.6|EditTitleY=1|EditTitleSize=20|"
    "PopupOrientation=0>1|PopupPaperSize=0>12|=0|=0|PopupUnits=0>1|EditXScale=100|EditYScale=100|"
    "EditXLineSpacing=10|EditXLineThickness=.1|EditXMajor=5|EditXMajorWeight=.7|PopupXAxis=0>2|"
    "EditYLineSpacing=10|EditYLineThickness=.1|EditYMajor=5|EditYMajorWeight=.7|PopupYAxis=0>7|"
    "EditXAxisMinimum=-35|EditXAxisStep=1|EditXAxisSpacing=5|EditXAxisWeight=1.5|EditXAxisTextSize=12|"
    "EditYAxisMinimum=-45|EditYAxisStep=1|EditYAxisSpacing=5|EditYAxisWeight=1.5|EditYAxisTextSize=12|"
    "EditTopMargin=1.5|EditBottomMargin=0.5|EditLeftMargin=0.75|EditRightMargin=0.75|"
    "CheckBoxShowAxes=1>0|CheckBoxViewGraph=1>1|CheckBoxMarkers=0>1|=0>1|=0>20|=0>255|=0>9|=0>98|=0>7|@|"
    "EditXAxisTitle=X-Axis Title|EditYAxisTitle=Y-Axis Title|PopupFont1=4>11|"
    "EditXAxisTitleTextSize=16|EditXAxisTitleX=2.9|EditXAxisTitleY=6.4|"
    "EditYAxisTitleTextSize=16|EditYAxisTitleX=3.1|EditYAxisTitleY=4|PopupXAxisType=0>1|PopupYAxisType=0>0|"
    "EditXHydraulicExponent=1.85|EditYHydraulicExponent=1.85|EditXAxisMaximum=35|EditYAxisMaximum=45|"
    "=0>255|=0>155|=0>5|CheckAutoPosXAxisText=0>1|CheckAutoPosYAxisText=0>0";

/// A field as it is stored when the form opens, with another value.
struct Field {
    std::string control, value;
    std::string opening, telling;
};

std::string P(std::string_view text)
{
    return static_cast<char>(text.size()) + std::string(text);
}

Field MakeField(const std::string& row, const std::string& outputFile)
{
    const std::string noFile(4, '\0');
    if (row == "@") {
        return {"", "", noFile, std::string{0, 0, 0, static_cast<char>(outputFile.size())} + outputFile};
    }
    const std::size_t equals = row.find('='), other = row.find('>');
    const std::string control = row.substr(0, equals), opening = row.substr(equals + 1, other - equals - 1);
    if (control.starts_with("CheckAutoPos")) {
        return {control, row.substr(other + 1), std::string(1, '\0'),
                std::string(1, row.back() == '1' ? '\1' : '\0')};
    }
    if (other != std::string::npos) {
        return {control, row.substr(other + 1), P(opening), P(row.substr(other + 1))};
    }
    const std::string value = control.empty() ? opening : control + ", 5 \xC3\xA9";
    return {control, value, P(opening), P(value)};
}

class GraphSettings : public testing::Test, protected Paper {
protected:
    GraphSettings() : Paper("graph")
    {
        Generate();
        for (const std::string& row : Lines(fileOrder, '|')) {
            fields.push_back(MakeField(row, file.Path().string()));
        }
        telling = Joined(&Field::telling);
    }

    std::string Joined(std::string Field::*column) const
    {
        std::string bytes;
        for (const Field& field : fields) {
            bytes += field.*column;
        }
        return bytes;
    }

    MainWindow& graph = dynamic_cast<MainWindow&>(*window);
    std::vector<Field> fields;
    std::string telling;
};

TEST_F(GraphSettings, EveryFieldInItsPlace)
{
    ASSERT_EQ(fields.size(), 66U);
    EXPECT_EQ(Paper("graph").Saved(), Joined(&Field::opening));

    Set({"LineColorCanvas=#0114FF", "MajorLineColorCanvas=#096207", "BackgroundColorCanvas=#0064FA",
         "PopupUnits=cm"});
    for (const Field& field : fields) {
        if (field.control.starts_with("Check")) {
            form.SetValue(field.control, field.value == "1");
        } else if (!field.control.empty()) {
            Set({field.control + (field.control.starts_with("Popup") ? "=#" : "=") + field.value});
        }
    }
    EXPECT_EQ(Saved(), telling);

    Paper other("graph", {"EditCustomWidth=3"});
    other.Load(telling);
    EXPECT_EQ(other.Saved(), telling);
    EXPECT_EQ(other.form.ColorOf("BackgroundColorCanvas"), (Color{0, 100, 250})) << "stored inverse";
    EXPECT_EQ(other.window->OutputFile(), file);
    EXPECT_EQ(other.form["StaticFileName"].caption, "page.pdf");
    EXPECT_FALSE(other.form["EditXMajor"].enabled) << "the handlers of the axis popups have run";
    EXPECT_TRUE(other.form["EditYAxisMinimum"].enabled) << "that of Show Axes has not";
}

TEST_F(GraphSettings, FileKeepsItsOwnNumbersInOtherUnits)
{
    const std::string inches = Joined(&Field::opening);
    Set({"PopupUnits=cm"});
    Load(inches);
    EXPECT_EQ(form["StaticTextLinesPerUnit"].caption, "Lines/in");
    EXPECT_EQ(Saved(), inches) << "neither converted nor worked out anew";
    Load(telling);
    EXPECT_EQ(form["StaticTextLinesPerUnit"].caption, "Lines/cm");
    EXPECT_EQ(Saved(), telling);
}

TEST_F(GraphSettings, FileThatCannotBeOpenedGivesAWhitePage)
{
    const TemporaryFolder empty;
    Load(telling);
    for (const FolderItem& none : {FolderItem(empty / "missing.setg"), FolderItem()}) {
        form.SetColor("BackgroundColorCanvas", {0, 100, 250});
        graph.LoadSettings(none);
        EXPECT_EQ(form.ColorOf("BackgroundColorCanvas"), white);
    }
    form.SetColor("BackgroundColorCanvas", {0, 100, 250});
    EXPECT_EQ(Saved(), telling) << "and changes nothing else";
}

}  // namespace
}  // namespace linealis::test
