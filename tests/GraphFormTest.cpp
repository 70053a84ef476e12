#include "PageSupport.h"
#include "graph/AxisFunctions.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <set>

namespace linealis::test {
namespace {

using FieldNames = std::set<std::string>;

class GraphForm : public testing::Test, protected Paper {
protected:
    GraphForm() : Paper("graph") {}

    FieldNames Disabled() const
    {
        FieldNames names;
        for (const ControlState& state : form.Controls()) {
            if (!state.enabled && !state.name.starts_with("EditCustom") && state.name != "StaticBy") {
                names.emplace(state.name);
            }
        }
        return names;
    }

    Names Texts(const Names& names) const
    {
        Names texts;
        for (const std::string& name : names) {
            texts.push_back(form.Text(name));
        }
        return texts;
    }

    /// How many vertical and how many horizontal grid lines the page has.
    std::pair<std::size_t, std::size_t> GridLines()
    {
        Set({"CheckBoxShowAxes=off"});
        const Page page = Draw();
        return {page.verticals, page.horizontals};
    }
    using Counts = std::pair<std::size_t, std::size_t>;

    Wizard& easy = *window->GetWizard();
    NamedForm wizard{easy.Fields()};
    const Names linesPerUnit = {"EditXLineSpacing", "EditYLineSpacing"};
};

TEST_F(GraphForm, AxisTypesEnableTheirFields)
{
    const FieldNames exponents = {"EditXHydraulicExponent", "EditYHydraulicExponent"};
    const auto with = [](FieldNames fields, const FieldNames& more) {
        fields.insert(more.begin(), more.end());
        return fields;
    };
    EXPECT_EQ(Disabled(), exponents);
    EXPECT_TRUE(form["PopupXAxis"].items == 7 && form["PopupYAxis"].items == 8);
    Set({"PopupXAxis=Hydraulic"});
    EXPECT_EQ(Disabled(), FieldNames{"EditYHydraulicExponent"});
    const FieldNames logX = with(
        exponents, {"EditXLineSpacing", "EditXMajor", "EditXAxisMinimum", "EditXAxisStep", "EditXAxisSpacing"});
    for (int decades = 1; decades <= 5; ++decades) {
        form.SetListIndex("PopupXAxis", decades);
        EXPECT_EQ(Disabled(), logX) << decades;
    }
    Set({"PopupXAxis=Linear", "PopupYAxis=Log 5 Decades"});
    EXPECT_EQ(Disabled(), with(exponents, {"EditYLineSpacing", "EditYMajor", "EditYAxisMinimum", "EditYAxisStep",
                                           "EditYAxisSpacing"}));
    Set({"PopupYAxis=Probability"});
    EXPECT_EQ(Disabled(), exponents);
    Set({"PopupYAxis=Hydraulic"});
    EXPECT_EQ(Disabled(), FieldNames{"EditXHydraulicExponent"});

    Set({"PopupYAxis=Linear", "PopupXAxis=Log 3 Decades", "CheckBoxShowAxes=off"});
    EXPECT_EQ(Disabled(), with(logX, {"StaticText10", "StaticText11", "StaticText13", "StaticText14",
                                      "StaticText15", "EditYAxisMinimum", "EditYAxisStep", "EditYAxisSpacing"}));
    Set({"CheckBoxShowAxes=on"});
    EXPECT_EQ(Disabled(), with(exponents, {"EditXLineSpacing", "EditXMajor"})) << "whatever the axis types";
    form.SetListIndex("PopupYAxis", 0);
    EXPECT_EQ(Disabled(), logX) << "until an axis popup changes, be it to what it shows already";
}

TEST_F(GraphForm, TypingARangeRecalculatesTheLines)
{
    const Names byHand = {"3", "4"}, fitted = {"10.0001", "10.0001"};
    for (const std::string field : {"EditXAxisMaximum", "EditXAxisStep", "EditYAxisMaximum", "EditYAxisStep"}) {
        const std::string text = form.Text(field);
        window->form.focusedControl = window->form.Find("EditXMajor");
        Set({"EditXLineSpacing=3", "EditYLineSpacing=4", field + "=2", field + "=" + text});
        EXPECT_EQ(Texts(linesPerUnit), byHand) << field << " set by code";
        form.Type(field, text);
        EXPECT_EQ(Texts(linesPerUnit), fitted) << field;
        EXPECT_EQ(GridLines(), Counts(71, 91));
    }
    form.Type("EditXAxisMinimum", "0");
    form.Type("EditYAxisMinimum", "0");
    EXPECT_EQ(Texts(linesPerUnit), fitted) << "a minimum has no such handler";
    form.Type("EditXAxisStep", "3");
    EXPECT_EQ(Texts(linesPerUnit), (Names{"1.714303", "5.00005"})) << "12 whole steps for 35";
    EXPECT_EQ(GridLines(), Counts(13, 46));
    for (const char* const one : {"0", ""}) {
        form.Type("EditXAxisStep", one);
        EXPECT_EQ(form.Text("EditXLineSpacing"), "5.00005");
    }
    Set({"PopupOrientation=Landscape", "PopupUnits=cm"});
    form.Type("EditXAxisMaximum", "100");  // 9.5 by 6.5 inches of room
    EXPECT_NEAR(form.Number("EditXLineSpacing"), 100 / 24.13 * 1.00001, 1e-5);
    EXPECT_NEAR(form.Number("EditYLineSpacing"), 45 / 16.51 * 1.00001, 1e-5);
    EXPECT_EQ(GridLines(), Counts(101, 46));
}

TEST_F(GraphForm, WizardFillsTwelveFields)
{
    const Names twelve = {"EditXLineSpacing", "EditXAxisMinimum", "EditXAxisMaximum", "EditXAxisStep",
                          "EditXMajor",       "EditXAxisSpacing", "EditYLineSpacing", "EditYAxisMinimum",
                          "EditYAxisMaximum", "EditYAxisStep",    "EditYMajor",       "EditYAxisSpacing"};
    Generate();
    const std::string before = Saved();
    const Names openingTexts = Texts(twelve);
    wizard.Type("EditMinX", "-20 m");
    easy.PushButton2_Action();
    EXPECT_EQ(Saved(), before) << "Cancel";
    EXPECT_EQ(wizard.Text("EditMinX"), "-20 m") << "but it keeps what was typed";
    easy.PushButton1_Action();
    EXPECT_EQ(Texts(twelve),
              (Names{"2.857171", "-20", "20", "2", "5", "5", "7.777856", "-35", "35", "1", "10", "10"}));
    EXPECT_EQ(GridLines(), Counts(21, 71));
    Set({"CheckBoxShowAxes=on"});
    for (std::size_t i = 0; i < twelve.size(); ++i) {
        form.SetText(twelve[i], openingTexts[i]);
    }
    EXPECT_EQ(Saved(), before) << "no other field has changed";

    wizard.SetText("EditMajorXSpacing", "5");
    wizard.SetText("EditMinorYSpacing", "0");
    easy.PushButton1_Action();
    EXPECT_EQ(Texts({"EditXMajor", "EditXAxisSpacing"}), (Names{"2.5", "2.5"}));
    EXPECT_EQ(Texts({"EditYLineSpacing", "EditYMajor", "EditYAxisStep"}), (Names{"7.777856", "10", "0"}))
        << "0 counts as 1, and stays as typed";
    EXPECT_EQ(GridLines(), Counts(21, 71));
    wizard.SetText("EditMinorYSpacing", "");
    wizard.SetText("EditMaxY", "a");
    Set({"PopupUnits=cm", "PopupOrientation=Landscape"});
    easy.PushButton1_Action();
    EXPECT_NEAR(form.Number("EditXLineSpacing"), 20 / 24.13 * 1.00001, 1e-5) << "lines per cm";
    EXPECT_NEAR(form.Number("EditYLineSpacing"), 35 / 16.51 * 1.00001, 1e-5);
    EXPECT_EQ(GridLines(), Counts(21, 36));
}

TEST(GraphAxisFunctions, MultiplesOfPi)
{
    const std::vector<std::pair<double, std::string>> texts = {{-0.0, "0"},
                                                               {1, "PI"},
                                                               {-35, "-35PI"},
                                                               {-0.5, "-1PI/2"},
                                                               {0.75, "3PI/4"},
                                                               {-1.875, "-15PI/8"},
                                                               {-.0625, "-0.0625PI"},
                                                               {1.0 / 3, "0.3333333PI"},
                                                               {1e20, "100000000000000000000PI"}};
    for (const auto& [value, text] : texts) {
        EXPECT_EQ(mytrigstring(value), text) << value;
    }
}

TEST(GraphAxisFunctions, InverseOfTheNormalDistribution)
{
    const auto distribution = [](double z) { return std::erfc(-z / std::sqrt(2.0)) / 2; };
    for (const double p : {1e-9, 0.001, 0.02, 0.0243, 0.1, 0.3, 0.5, 0.7, 0.975, 0.9758, 0.98, 0.999, 1 - 1e-9}) {
        EXPECT_NEAR(distribution(ComputeInverseERF(p)) / p, 1, 1e-7) << p;
    }
    EXPECT_EQ(ComputeInverseERF(0.5), 0.0);
    // At the breakpoints the formulas of the middle and of the tails differ in the ninth digit.
    EXPECT_NEAR(ComputeInverseERF(0.02425), -1.97296104908, 1e-11);
    EXPECT_NEAR(ComputeInverseERF(0.97575), 1.97296104908, 1e-11);
    EXPECT_NEAR(ComputeInverseERF(std::nextafter(0.02425, 0)), -1.97296105353, 1e-11);
    EXPECT_NEAR(ComputeInverseERF(std::nextafter(0.97575, 1)), 1.97296105353, 1e-11);
    for (const double outside : {0.0, 1.0, -0.1, 1.1, HUGE_VAL, std::nan("")}) {
        EXPECT_EQ(ComputeInverseERF(outside), -999.0) << outside;
    }
}

TEST(GraphAxisFunctions, ErrorFunctionAndFactorial)
{
    for (const double x : {-3.0, -1.0, -0.1, 0.0, 1e-6, 0.3, 1.0, 2.0, 3.5}) {
        EXPECT_NEAR(ComputeERF(x), std::erf(x), 1e-9) << x;
    }
    EXPECT_NEAR(ComputeERF(6.0), -78.6, 1) << "so far out the sum tells how many terms it has: 86";
    EXPECT_TRUE(factorial(0) == 1 && factorial(1) == 1 && factorial(5) == 120 &&
                factorial(20) == 2432902008176640000.0);
    EXPECT_NEAR(factorial(170) / 7.257415615307994e306, 1, 1e-13);
}

class GraphCli : public testing::Test {
protected:
    static Finished Call(Names arguments)
    {
        arguments.insert(arguments.begin(), LINEALIS_CLI_PATH);
        return Execute(std::move(arguments));
    }

    TemporaryFolder folder;
    const std::string page = folder / "page.pdf";
};

TEST_F(GraphCli, WizardIsFinishedAfterAllOtherActions)
{
    const Finished shown = Call({"form", "graph", "--wizard", "EditMinorXSpacing=5", "--set", "EditXMajor=99",
                                 "--wizard", "EditMaxX=80", "--set", "PopupUnits=cm", "--type", "EditXAxisStep=7"});
    ASSERT_EQ(shown.status, 0) << shown.errors;
    const auto controls = nlohmann::json::parse(shown.output)["controls"];
    const auto value = [&](const char* name) { return controls[name]["value"].get<std::string>(); };
    EXPECT_TRUE(value("EditXMajor") == "2" && value("EditXAxisStep") == "5" && value("EditXAxisMaximum") == "80");
    EXPECT_EQ(value("EditYAxisMinimum"), "-35") << "the wizard's other fields hold what it opens with";
    EXPECT_NEAR(std::stod(value("EditXLineSpacing")), 20 / 17.78 * 1.00001, 1e-5) << "in the units set behind it";

    for (const Names& wrong : {Names{"graph", "--wizard", "EditMinXX=1"},
                               {"graph", "--wizard", "EditMinX"},
                               {"graph", "--wizard", "EditTitle=1"},
                               {"grid", "--wizard", "EditMinX=1"},
                               {"grid", "--markers", page}}) {
        const Finished call = Call({"form", wrong[0], wrong[1], wrong[2]});
        EXPECT_EQ(call.status, 2) << wrong[2];
        EXPECT_TRUE(call.output.empty() && Lines(call.errors, '\n').size() == 1) << call.errors;
    }
    EXPECT_NE(Call({"form", "graph", "--wizard", "EditMinXX=1"}).errors.find("EditMinX,"), std::string::npos);
}

TEST_F(GraphCli, MarkersAreForOneCall)
{
    const std::string markers = folder / "m.txt";
    WriteFile(markers, "0 0 marked\n");
    const auto marked = [&](const Names& more, const std::string& complaint) {
        Names call = {"generate", "graph", "--set", "CheckBoxMarkers=on", "-o", page};
        call.insert(call.end(), more.begin(), more.end());
        const Finished done = Call(call);
        EXPECT_EQ(done.status, 0) << done.errors;
        EXPECT_TRUE(done.errors.find(complaint) != std::string::npos &&
                    WithoutWarnings(done.errors).empty() == complaint.empty());
        const Names lines = PageOf(page);
        return std::count(lines.begin(), lines.end(), "(marked) Tj") == 1;
    };
    EXPECT_TRUE(marked({"--markers", markers}, ""));
    EXPECT_FALSE(marked({}, ""));
    EXPECT_FALSE(marked({"--markers", folder / "missing.txt"}, "missing.txt"));
}

}  // namespace
}  // namespace linealis::test
