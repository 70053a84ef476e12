#include "TestSupport.h"
#include "platform/Version.h"

#include <nlohmann/json.hpp>

#include <chrono>
#include <thread>

namespace linealis::test {
namespace {

using Json = nlohmann::json;

class Cli : public testing::Test {
protected:
    static Finished Call(Names arguments)
    {
        arguments.insert(arguments.begin(), LINEALIS_CLI_PATH);
        return Execute(std::move(arguments));
    }

    static void Succeeds(const Names& arguments)
    {
        const Finished call = Call(arguments);
        EXPECT_EQ(call.status, 0) << call.errors;
        EXPECT_EQ(call.output + WithoutWarnings(call.errors), "");
    }

    /// Fails with the status and one line that has the texts in it, in their order.
    static void Fails(int status, const Names& arguments, const Names& texts)
    {
        const Finished call = Call(arguments);
        EXPECT_EQ(call.status, status) << call.errors;
        EXPECT_EQ(call.output, "");
        const std::string errors = WithoutWarnings(call.errors);
        EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
        std::size_t place = 0;
        for (const std::string& text : texts) {
            place = call.errors.find(text, place);
            EXPECT_NE(place, std::string::npos) << text << "\nin: " << call.errors;
            place = place == std::string::npos ? 0 : place + text.size();
        }
    }

    static Json Form(Names actions)
    {
        actions.insert(actions.begin(), {"form", "grid"});
        const Finished call = Call(actions);
        EXPECT_EQ(call.status, 0) << call.errors;
        return Json::parse(call.output);
    }

    std::string In(std::string_view name) const { return folder / name; }

    TemporaryFolder folder;
};

TEST_F(Cli, ListsKinds)
{
    const Finished lines = Call({"kinds"});
    EXPECT_EQ(lines.status, 0);
    EXPECT_NE(("\n" + lines.output).find("\ngrid\tGrid Graph Paper\tsetx\n"), std::string::npos) << lines.output;
    const Json kinds = Json::parse(Call({"kinds", "--json"}).output);
    EXPECT_EQ(std::count(kinds.begin(), kinds.end(),
                         Json({{"kind", "grid"}, {"title", "Grid Graph Paper"}, {"extension", "setx"}})),
              1);
    EXPECT_EQ(kinds.size(), Lines(lines.output, '\n').size());
}

TEST_F(Cli, BeginsWithAPreset)
{
    const std::string line = "polar-radians\tpolar\tPolar in radians";
    const Names all = Lines(Call({"presets"}).output, '\n'),
                polar = Lines(Call({"presets", "--kind", "polar"}).output, '\n');
    EXPECT_EQ(std::count(all.begin(), all.end(), line), 1);
    EXPECT_EQ(std::count(polar.begin(), polar.end(), line), 1);
    EXPECT_LT(polar.size(), all.size());
    const Json listed = Json::parse(Call({"presets", "--json"}).output);
    EXPECT_EQ(listed.size(), all.size());
    EXPECT_EQ(listed[0], Json({{"preset", "squares-5mm"}, {"kind", "grid"}, {"title", "Squares 5 mm"}}));

    const Names begin = {"--preset", "squares-5mm", "--set", "EditHorzSpacing=1", "-o"};
    const auto with = [&](Names call, const std::string& output) {
        call.insert(call.end(), begin.begin(), begin.end());
        call.push_back(output);
        return call;
    };
    Succeeds(with({"generate"}, In("page.pdf")));
    Succeeds(with({"save", "grid"}, In("page.setx")));
    Succeeds({"generate", In("page.setx"), "-o", In("same.pdf")});
    EXPECT_EQ(PageOf(In("page.pdf")), PageOf(In("same.pdf")));
    Succeeds({"generate", "--preset", "squares-5mm", "--output-dir", In("")});
    EXPECT_GT(PageOf(In("squares-5mm.pdf")).size(), PageOf(In("page.pdf")).size());
    const Json form = Json::parse(Call({"form", "--preset", "polar-radians"}).output);
    EXPECT_EQ(form["kind"], "polar");
    EXPECT_EQ(form["controls"]["EditTitle"]["value"], "");

    Fails(2, with({"generate", "dots"}, In("x.pdf")), {"squares-5mm is a preset of grid", "'dots'"});
    Fails(2, with({"save", In("page.setx")}, In("x.setx")), {"squares-5mm is a preset of grid", "page.setx'"});
    Fails(2, {"form", "--preset", "squars-5mm"}, {"unknown preset 'squars-5mm'; possible: squares-5mm, "});
    Fails(2, {"presets", "--kind", "polr"}, {"unknown kind 'polr'; possible: polar, "});
    Fails(2, {"form"}, {"source is required"});
}

TEST_F(Cli, HelpAndVersion)
{
    const std::string all = Call({"--help"}).output;
    EXPECT_EQ(Call({"help"}).output, all);
    for (const std::string command : {"kinds", "presets", "form", "link", "schema", "show", "diff", "generate",
                                      "pad", "save", "calibration", "thumbnail", "help"}) {
        const Finished help = Call({"help", command});
        EXPECT_EQ(help.status, 0);
        EXPECT_EQ(help.errors, "");
        EXPECT_EQ(help.output, Call({command, "--help"}).output);
        EXPECT_NE(help.output.find("\nExit status: 0 "), std::string::npos) << command;
        EXPECT_EQ(help.output.find("different;") != std::string::npos, command == "diff");
        EXPECT_NE(all.find("\n  " + command + " "), std::string::npos);
    }
    Fails(2, {"help", "prests"}, {"unknown command 'prests'; possible: presets, "});
    EXPECT_EQ(Call({"--version"}).output, std::string("linealis-cli ") + versionText + "\n");
}

TEST_F(Cli, WritesAndReadsLinks)
{
    const std::string link = "#lined&units=cm&top-margin=2.5&line-color=%23FF0000";
    const Finished shown = Call({"link", link});
    EXPECT_EQ(shown.status, 0) << shown.errors;
    EXPECT_NE(shown.output.find("&top-margin=2.5"), std::string::npos) << shown.output;
    const std::string address = "https://linealis.invalid/" + shown.output.substr(0, shown.output.size() - 1);
    EXPECT_EQ(Call({"form", address}).output, Call({"form", link}).output);
    EXPECT_EQ(Call({"link", "grid"}).output, "#grid\n");
    EXPECT_EQ(Call({"link", "grid", "--json"}).output, "{\n  \"kind\": \"grid\",\n  \"link\": \"#grid\"\n}\n");
    // A length that is as in a new form, but would change with the unit.
    const Finished kept = Call({"link", "grid", "--set", "units=cm", "--set", "top-margin=0.5"});
    EXPECT_NE(kept.output.find("&top-margin=0.5"), std::string::npos) << kept.output;
    Fails(2, {"form", "#grid&top-margin"}, {"top-margin has no value"});
    Fails(2, {"form", "#grid&top-margin=%Z"}, {"link: is damaged at '%Z'"});
    Fails(2, {"form", "https://linealis.invalid/#gird"}, {"unknown kind 'gird'; possible: grid"});
}

TEST_F(Cli, SaysAsJsonWhatItMade)
{
    const auto answer = [&](const std::vector<std::string>& arguments, int status = 0) {
        const Finished called = Call(arguments);
        EXPECT_EQ(called.status, status) << called.errors;
        return Json::parse(called.output);
    };
    const std::string page = (folder / "p.pdf").string(), nowhere = (folder / "no" / "p.svg").string();
    const Json made = answer({"generate", "grid", "--json", "--set", "EditXScale=50", "-o", page});
    ASSERT_EQ(made.size(), 1U);
    EXPECT_EQ(made[0]["file"], page);
    EXPECT_EQ(made[0]["format"], "pdf");
    EXPECT_EQ(made[0]["kind"], "grid");
    EXPECT_EQ(made[0]["warnings"], answer({"generate", "grid", "--check", "--json", "--set", "EditXScale=50"}));
    EXPECT_EQ(answer({"generate", "grid", "--json", "-o", nowhere}, 1)[0]["error"],
              nowhere + ": No such file or directory");
    const Json pages = answer(
        {"generate", "dots", "gird.setx", "lined", "--json", "-j", "3", "--output-dir", (folder / "out").string()},
        1);
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_EQ(pages[2]["source"], "lined");
    EXPECT_TRUE(pages[1].contains("error") && !pages[0].contains("error")) << pages;
    const std::string saved = (folder / "s.setx").string();
    EXPECT_EQ(answer({"save", "grid", "--json", "--set", "EditXScale=q", "-o", saved})["warnings"][0]["id"],
              "field");
    EXPECT_EQ(answer({"thumbnail", saved, (folder / "t.png").string(), "--json"})["source"], saved);
    EXPECT_EQ(answer({"calibration", "--json", "-o", page})["paper"], "a4");
    const Json pad =
        answer({"pad", "grid", "--json", "--pages", "3", "--set", "EditXScale=50", "--back", "dots", "-o", page});
    EXPECT_EQ(pad["sides"], 6);
    EXPECT_EQ(pad["warnings"], made[0]["warnings"]);
    for (const std::string command : {"generate", "save", "pad"}) {
        Fails(2, {command, "grid", "--json", "-o", "-"}, {"--json answers on standard output"});
    }
}

TEST_F(Cli, ShowsTheForm)
{
    const Json form = Form({});
    EXPECT_EQ(form["kind"], "grid");
    EXPECT_EQ(form["title"], "Grid Graph Paper");
    EXPECT_EQ(form["extension"], "setx");
    const Json& controls = form["controls"];
    EXPECT_EQ(controls["EditCustomWidth"],
              Json({{"type", "text"}, {"caption", ""}, {"value", "8.5"}, {"enabled", false}}));
    EXPECT_EQ(controls["PopupUnits"], Json({{"type", "popup"},
                                            {"caption", "Units:"},
                                            {"value", "inches"},
                                            {"index", 0},
                                            {"items", {"inches", "cm"}},
                                            {"enabled", true}}));
    EXPECT_EQ(controls["CheckVertLines"],
              Json({{"type", "check"}, {"caption", "Vertical Lines"}, {"value", true}, {"enabled", true}}));
    EXPECT_EQ(controls["LinesColorCanvas"]["type"], "color");
    EXPECT_EQ(controls["BackgroundColorCanvas"]["value"], "#FFFFFF");
    EXPECT_EQ(controls["StaticFileName"]["type"], "label");
    EXPECT_EQ(controls["StaticFileName"]["value"], "Untitled");
}

TEST_F(Cli, ActionsAreAppliedInOrder)
{
    const auto value = [](const Json& form, const char* name) { return form["controls"][name]["value"]; };
    const Json form =
        Form({"--set",  "EditTopMargin=1",          "--set", "PopupUnits=CM",      "--set", "EditLeftMargin=1",
              "--type", "EditXScale=a=b c",         "--set", "PopupPaperSize=#11", "--set", "CheckVertLines=off",
              "--set",  "LinesColorCanvas=#0a0Bfe", "--set", "EditYScale=1",       "--set", "EditYScale=",
              "--set",  "EditVertWeight=[1,2]"});
    EXPECT_EQ(value(form, "EditTopMargin"), "2.54");
    EXPECT_EQ(value(form, "EditLeftMargin"), "1");
    EXPECT_EQ(value(form, "StaticText16"), "cm");
    EXPECT_EQ(value(form, "EditXScale"), "a=b c");
    EXPECT_EQ(value(form, "EditYScale"), "");
    EXPECT_EQ(value(form, "EditVertWeight"), "[1,2]");
    EXPECT_EQ(value(form, "PopupPaperSize"), "B (USA)");
    EXPECT_EQ(value(form, "EditCustomWidth"), "43.18");
    EXPECT_EQ(value(form, "LinesColorCanvas"), "#0A0BFE");
    EXPECT_EQ(form["controls"]["EditHorzWeight"]["enabled"], false) << "the box's handler has run";

    const Json plain = Form({"--set", "LinesColorCanvas=#89a", "--set", "background-color=LightYellow", "--set",
                             "CheckVertLines=No", "--set", "CheckHorzLines=0", "--set", "view-graph=TRUE"});
    EXPECT_EQ(value(plain, "LinesColorCanvas"), "#8899AA");
    EXPECT_EQ(value(plain, "BackgroundColorCanvas"), "#FFFFE0");
    EXPECT_EQ(value(plain, "CheckVertLines"), false);
    EXPECT_EQ(value(plain, "CheckHorzLines"), false);
    EXPECT_EQ(value(plain, "CheckBoxViewGraph"), true);

    const Json chosenAgain = Form({"--set", "PopupUnits=inches", "--set", "EditCustomWidth=3", "--set",
                                   "PopupPaperSize=Letter", "--set", "PopupPaperSize=#0"});
    EXPECT_EQ(value(chosenAgain, "EditTopMargin"), value(Form({}), "EditTopMargin")) << "nothing is converted";
    EXPECT_EQ(value(chosenAgain, "EditCustomWidth"), "3");

    Succeeds({"save", "grid", "--set", "EditXScale=33", "--set", "EditYScale=44", "-o", In("a.setx")});
    const Json loaded = Form({"--set", "EditXScale=1", "--load", In("a.setx"), "--set", "EditYScale=2"});
    EXPECT_EQ(value(loaded, "EditXScale"), "33");
    EXPECT_EQ(value(loaded, "EditYScale"), "2");
}

TEST_F(Cli, GeneratesFromSettingsFiles)
{
    Succeeds({"generate", "grid", "-o", In("old.pdf")});
    WriteFile(folder / "old.setx", std::string("\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0", 16) +
                                       std::string{0, 0, 0, static_cast<char>(In("old.pdf").size())} +
                                       In("old.pdf"));
    EXPECT_EQ(Form({"--load", In("old.setx")})["controls"]["StaticFileName"]["value"], "old.pdf");
    const std::string old = ReadFile(folder / "old.pdf");
    const Finished ended = Call({"generate", In("old.setx"), "--set", "EditXScale=25", "-o", In("new.pdf")});
    EXPECT_EQ(WithoutWarnings(ended.errors),
              "linealis-cli: old.setx ends at field 18 of 23; the remaining fields are empty\n");
    EXPECT_EQ(PageOf(folder / "new.pdf").at(0), "0.25000 0 0 0.00000  0 0 cm");
    EXPECT_EQ(ReadFile(folder / "old.pdf"), old) << "-o forgets the file that the settings brought back";

    fs::create_directory(folder / "pages");
    Succeeds({"save", "grid", "--set", "EditXScale=10", "-o", In("a.setx")});
    Succeeds({"save", "grid", "--set", "EditXScale=20", "-o", In("b.b.SETX")});
    Succeeds({"generate", In("a.setx"), In("b.b.SETX"), "--output-dir", In("pages"), "--set", "EditYScale=50"});
    EXPECT_EQ(PageOf(folder / "pages/a.pdf").at(0), "0.10000 0 0 0.50000  0 0 cm");
    EXPECT_EQ(PageOf(folder / "pages/b.b.pdf").at(0), "0.20000 0 0 0.50000  0 0 cm");
    fs::remove(folder / "pages/a.pdf");
    Fails(1, {"generate", In("missing.setx"), In("a.setx"), "--output-dir", In("pages")},
          {"missing.setx: No such file"});
    EXPECT_TRUE(fs::exists(folder / "pages/a.pdf")) << "one that fails does not stop the others";
}

TEST_F(Cli, StartsTheViewerOnlyWhenTold)
{
    WriteFile(folder / "xdg-open", "#!/bin/sh\necho \"$1\" > '" + In("viewed") + ".new' && mv '" + In("viewed") +
                                       ".new' '" + In("viewed") + "'\n");
    fs::permissions(folder / "xdg-open", fs::perms(0755));
    const std::string path = "PATH=" + In("") + ":" + std::getenv("PATH");
    const Names generate = {
        "env", path, LINEALIS_CLI_PATH, "generate", "grid", "--set", "CheckBoxViewGraph=on", "-o", In("a.pdf")};
    EXPECT_EQ(Execute(generate).status, 0);
    Names view = generate;
    view.back() = In("b.pdf");
    view.insert(view.end(), {"--set", "CheckBoxViewGraph=off", "--view"});
    EXPECT_EQ(Execute(view).status, 0);
    for (int i = 0; i < 1000 && !fs::exists(folder / "viewed"); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_EQ(ReadFile(folder / "viewed"), In("b.pdf") + "\n");
}

TEST_F(Cli, UsageErrorsNameWhatIsPossibleNearestFirst)
{
    WriteFile(folder / "page.pdf", "old");
    const auto wrong = [&](Names action, const Names& texts) {
        action.insert(action.begin(), {"generate", "grid", "-o", In("page.pdf")});
        Fails(2, action, texts);
    };
    Fails(2, {"generate", "gird", "-o", In("page.pdf")}, {"'gird'", ": grid"});
    Fails(2, {"generate", In("page.txt"), "-o", In("page.pdf")}, {"page.txt", "setx"});
    Fails(2, {"form", "grd"}, {"'grd'", ": grid"});
    Fails(2, {"form", "bricd"}, {"'bricd'", ": brick, bricks-1x2cm, "});
    Fails(2, {"form", "semi-log"},
          {"'semi-log'", ": semi-log-1, semi-log-2, semi-log-3, semi-log-4, semi-log-5 and "});
    Fails(
        2, {"form", "grid", "--set", "vertical=1"},
        {"'vertical'; possible: vertical-spacing, vertical-lines, line-weight-of-the-vertical-lines, ", " more\n"});
    Fails(2, {"form", "grid", "--set", std::string(100000, 'x') + "=1"},
          {"unknown control of grid '" + std::string(60, 'x') + "...'; "});
    wrong({"--set", "EditHorSpacing=1"}, {"'EditHorSpacing'", ": EditHorzSpacing, EditVertSpacing, "});
    wrong({"--type", "PopupUnits=cm"}, {"'PopupUnits'", ": Edit"});
    wrong({"--set", "PopupPaperSize=leter"}, {"'leter'", ": Letter, ", "B (USA)"});
    wrong({"--set", "PopupPaperSize=#13"}, {"'#13'", "#12"});
    wrong({"--set", "PopupUnits=#-1"}, {"'#-1'", "inches"});
    wrong({"--set", "CheckVertLines=offf"}, {"'offf'", ": off, on"});
    wrong({"--set", "EditXScale"}, {"'EditXScale'"});
    wrong({"--set", "LinesColorCanvas=grney"}, {"'grney'", ": grey, gray, green, ", " more\n"});
    for (const char* const color : {"#12345", "#1234567", "#12345g", "#-12345", "#+12345", "123456", "#"}) {
        wrong({"--set", std::string("LinesColorCanvas=") + color}, {std::string("'") + color + "'", "#RRGGBB"});
    }
    wrong({"--sett", "EditXScale=1"}, {"--sett", "--set"});
    wrong({"--output-dir", In("")}, {"-o", "--output-dir"});
    wrong({"--dpi", "nan"}, {"--dpi: nan is not a number"});
    wrong({"--load", In("a.setl")}, {"ending of --load for grid '.setl'; possible: .setx, none"});
    Fails(2, {"save", "grid", "-o", In("a.setl")}, {"ending of -o for grid '.setl'; possible: .setx, none"});
    Fails(2, {"calibration", "-o", In("c.svg")}, {"ending of -o '.svg'; possible: .pdf, none"});
    wrong({In("a.setx")}, {"--output-dir"});
    Fails(2, {"generate", "grid"}, {"-o"});
    Fails(2, {"save", "grid"}, {"-o"});
    Fails(2, {"generat", "grid"}, {"generat'", "generate"});
    Fails(2, {}, {});
    EXPECT_EQ(ReadFile(folder / "page.pdf"), "old");
    EXPECT_EQ(folder.Names(), Names{"page.pdf"});
}

TEST_F(Cli, FailedWorkNamesFileAndReasonAndLeavesNothing)
{
    fs::create_directory(folder / "taken.pdf");
    fs::create_directory(folder / "taken.setx");
    WriteFile(folder / "old.pdf", "old");
    for (const std::string command : {"generate", "save"}) {
        const std::string ending = command == "save" ? ".setx" : ".pdf", taken = "taken" + ending;
        Fails(1, {command, "grid", "-o", In("missing/new" + ending)}, {"missing/new", "No such file or directory"});
        Fails(1, {command, "grid", "-o", In(taken)}, {taken, "Is a directory"});
        Fails(1, {command, "grid", "-o", "/dev/full"}, {"/dev/full", "No space left"});
        Fails(1, {command, "grid", "--load", In("missing.setx"), "-o", In("old.pdf")},
              {"missing.setx", "No such file"});
        const std::string call = std::string(LINEALIS_CLI_PATH) + " " + command + " grid -o - > /dev/full";
        const Finished full = Execute({"sh", "-c", call});
        EXPECT_EQ(full.status, 1);
        EXPECT_NE(full.errors.find("No space left"), std::string::npos) << full.errors;
    }
    Fails(1, {"form", In("missing.setx")}, {"missing.setx", "No such file"});
    EXPECT_EQ(Execute({"sh", "-c", LINEALIS_CLI_PATH " kinds > /dev/full"}).status, 1);
    EXPECT_EQ(ReadFile(folder / "old.pdf"), "old");
    EXPECT_EQ(folder.Names(), (Names{"old.pdf", "taken.pdf", "taken.setx"}));
}

TEST_F(Cli, BadInputEndsInOrder)
{
    Names fields;
    const Json form = Form({});
    for (const auto& [name, control] : form["controls"].items()) {
        if (control["type"] == "text") {
            fields.push_back(name);
        }
    }
    ASSERT_EQ(fields.size(), 12U);
    for (const std::string& field : fields) {
        for (const std::string& text : {std::string(), std::string("abc"), std::string("-1"), std::string("1e308"),
                                        std::string("nan"), std::string(10000, '7')}) {
            SCOPED_TRACE(field + "=" + text.substr(0, 20));
            WriteFile(folder / "page.pdf", "old");
            Names call = {"generate", "grid",         "--set",  "PopupPaperSize=Custom",
                          "-o",       In("page.pdf"), "--type", field + "=" + text};
            if (field.starts_with("EditCustom")) {  // with spacings that make a page of few lines
                call.insert(call.end(), {"--set", "EditVertSpacing=1e30", "--set", "EditHorzSpacing=1e30"});
            }
            const Finished done = Call(call);
            ASSERT_EQ(done.status, 0) << done.errors;
            EXPECT_EQ(done.output + WithoutWarnings(done.errors), "");
            // No digit of a huge number is lost on the page, and qpdf reads integers of 64 bits only.
            const std::string complaints = Complaints(folder / "page.pdf");
            EXPECT_TRUE(complaints.empty() || complaints.starts_with("ERROR: overflow/underflow converting 1"))
                << complaints;
            for (const std::string& line : PageOf(folder / "page.pdf")) {
                EXPECT_TRUE(line.find("nan") == std::string::npos && line.find("inf") == std::string::npos);
            }
            EXPECT_EQ(folder.Names(), Names{"page.pdf"});
        }
    }
}

}  // namespace
}  // namespace linealis::test
