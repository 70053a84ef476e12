#include "PageSupport.h"
#include "check/PageCheck.h"
#include "cli/Errors.h"
#include "pipeline/form/FieldWords.h"
#include "pipeline/form/SetControl.h"

namespace linealis::test {
namespace {

/// What enables the fields of a kind that are off when it opens.
Names Enabling(const std::string& kind)
{
    Names settings = {"PopupPaperSize=Custom"};
    if (kind == "ternary") {
        settings.emplace_back("PopupScaling=Axis");
    } else if (kind == "dots" || kind == "crosses") {
        settings.insert(settings.end(), {"CheckVertLines=on", "CheckHorzLines=on"});
    }
    return settings;
}

std::vector<const TextField*> NumberFields(const Form& form)
{
    std::vector<const TextField*> fields;
    for (const Control* const control : form.Controls()) {
        if (control->Kind() == ControlKind::Text && control->State().meaning != Meaning::Prose) {
            fields.push_back(static_cast<const TextField*>(control));
        }
    }
    return fields;
}

std::string WithBars(std::string text)
{
    for (std::size_t bar = text.find('|'); bar != std::string::npos; bar = text.find('|', bar + 2)) {
        text.insert(bar, 1, '\\');
    }
    return text;
}

/// What is said of a field that is set to the value, without the field's name.
std::string SaidOnStandardError(const std::string& kind, std::string_view field, const std::string& value)
{
    Names settings = Enabling(kind);
    if (field.ends_with("HydraulicExponent")) {
        settings.push_back(field.starts_with("EditX") ? "PopupXAxis=Hydraulic" : "PopupYAxis=Hydraulic");
    }
    Paper paper(kind, settings);
    paper.Set({std::string(field) + "=" + value});
    const PaperForm& form = paper.window->form;
    std::string said = form.Get<TextField>(field).Text() == value ? "" : "is " + form.Get<TextField>(field).Text();
    for (const PageWarning& warning : paper.window->ReadPage().warnings) {
        if (const std::string text = warning.text.English();
            warning.control == field && warning.id != "custom-size") {
            const std::string name = WholeName(form, form.Get<TextField>(field)).English() + ": ";
            said += (said.empty() ? "" : "; ") + (text.starts_with(name) ? text.substr(name.size()) : text);
        }
    }
    return WithBars(said);
}

std::string WarningTables()
{
    std::string text;
    for (const std::string& kind : KindNames()) {
        text += "\n## " + kind +
                "\n\n| Field | `abc` | empty | `0` | `-1` | `1e9` | `5mm` |\n"
                "| --- | --- | --- | --- | --- | --- | --- |\n";
        const Paper paper(kind);
        for (const TextField* const field : NumberFields(paper.window->form)) {
            text += "| " + std::string(field->Alias()) + " |";
            for (const char* const value : {"abc", "", "0", "-1", "1e9", "5mm"}) {
                text += " " + SaidOnStandardError(kind, field->Name(), value) + " |";
            }
            text += "\n";
        }
    }
    return text;
}

TEST(EveryField, SaysWhatItsDocumentHas)
{
    ExpectTables(LINEALIS_DOCS_PATH "/field-warnings.md", WarningTables());
}

/// A row a field of the command line's table, in which that field alone is no number.
TEST(EveryField, ThatIsNoNumberIsWarnedOfByTheCommandLine)
{
    for (const std::string& kind : KindNames()) {
        const TemporaryFolder folder;
        Names arguments = {LINEALIS_CLI_PATH, "generate",      kind, "--table", folder / "t.csv",
                           "--output-dir",    folder / "pages"};
        fs::create_directory(folder / "pages");
        Names settings = Enabling(kind);
        if (kind == "graph") {
            settings.insert(settings.end(), {"PopupXAxis=Hydraulic", "PopupYAxis=Hydraulic"});
        }
        for (const std::string& setting : settings) {
            arguments.insert(arguments.end(), {"--set", setting});
        }
        Paper paper(kind, settings);
        const PaperForm& form = paper.window->form;
        std::string head, rows;
        Names expected;
        const std::vector<const TextField*> fields = NumberFields(form);
        for (std::size_t i = 0; i < fields.size(); ++i) {
            head += (head.empty() ? "" : ",") + std::string(fields[i]->Name());
            rows += std::string(i, ',') + "abc" + std::string(fields.size() - 1 - i, ',') + "\n";
            expected.push_back("row " + std::to_string(i + 1) + ": " + WholeName(form, *fields[i]).English() +
                               ": \u201Cabc\u201D is not a number");
        }
        WriteFile(folder / "t.csv", head + "\n" + rows);
        const Finished made = Execute(arguments);
        for (const std::string& line : expected) {
            EXPECT_NE(made.errors.find(line), std::string::npos) << kind << ": " << line;
        }
    }
}

/// States of a form in which fields count for nothing, each an assignment.
Names StatesOf(const PaperForm& form)
{
    Names states = {"PopupUnits=inches"};
    for (const Control* const control : form.Controls()) {
        const std::string name(control->Name());
        if (control->Kind() == ControlKind::Check && control->InGroup() != Group::File) {
            states.insert(states.end(), {name + "=on", name + "=off"});
        } else if (name == "PopupXAxis" || name == "PopupYAxis" || name == "PopupScaling" ||
                   name == "RadioButton1") {
            for (const std::string_view item : static_cast<const Choice*>(control)->Items()) {
                states.push_back(name + "=" + std::string(item));
            }
        }
    }
    return states;
}

/// Other things that the control could hold.
Names OthersFor(Control& control)
{
    switch (control.Kind()) {
    case ControlKind::Text:
        return {"0.3", "1.7", "6"};
    case ControlKind::Check:
        return {ValueOf(control) == "on" ? "off" : "on"};
    case ControlKind::Color:
        return {"#123456"};
    default:
        return {"#0", "#1", "#2"};
    }
}

/// All that is to be seen of a content, as a text.
struct Painted : PageSink {
    std::ostringstream seen;

    explicit Painted(std::string_view content) { ReadPage(content, *this); }

    void Add(PagePath path)
    {
        for (const PathSegment& segment : path) {
            seen << segment.control1.x << ' ' << segment.to.x << ' ' << segment.to.y << ' ';
        }
    }
    void Add(const PageColor& color) { seen << color.red << ' ' << color.green << ' ' << color.blue << '\n'; }
    bool Scale(double sx, double sy) override
    {
        seen << sx << ' ' << sy << '\n';
        return true;
    }
    bool Stroke(PagePath path, const PagePen& pen) override
    {
        seen << pen.width << ' ';
        Add(path);
        Add(pen.color);
        return true;
    }
    bool Fill(PagePath path, const PageColor& color) override
    {
        Add(path);
        Add(color);
        return true;
    }
    bool FillAndStroke(PagePath path, const PageColor& color, const PagePen& pen) override
    {
        return Fill(path, color) && Stroke(path, pen);
    }
    bool Text(const PageText& text) override
    {
        seen << text.font << ' ' << text.size << ' ' << text.matrix[4] << ' ' << text.matrix[5] << text.utf8;
        Add(text.color);
        return true;
    }
};

class IdleFields : public testing::TestWithParam<std::string> {};

/// A control is said to have no effect exactly where no other content of it changes the page.
TEST_P(IdleFields, LeaveThePageAsItIs)
{
    const Paper opened(GetParam());
    for (const std::string& state : StatesOf(opened.window->form)) {
        Paper paper(GetParam(), {"PopupPaperSize=A6", "PopupOrientation=Landscape", state});
        if (GetParam() == "graph") {
            paper.Set({"EditXAxisMinimum=1", "EditYAxisMinimum=1"});  // a hydraulic axis refuses less than 0
        }
        PaperForm& form = paper.window->form;
        const std::string drawn = Painted(paper.window->DrawPage().content).seen.str();
        const WindowState before = paper.window->State();
        for (Control* const control : form.Controls()) {
            const std::string name(control->Name());
            if (control->Kind() == ControlKind::Label || control->InGroup() == Group::File ||
                name == "CheckBoxMarkers" || name == "PopupUnits") {
                continue;
            }
            bool changes = false;
            const std::string why = form.WhyIdle(*control).English();
            for (const std::string& other : OthersFor(*control)) {
                if (!other.starts_with("#") || control->Kind() == ControlKind::Color ||
                    other != "#" + std::to_string(static_cast<const Choice*>(control)->ListIndex())) {
                    try {
                        paper.Set({name + "=" + other});
                    } catch (const cli::UsageError&) {
                        continue;  // has fewer items
                    }
                    changes = changes || Painted(paper.window->DrawPage().content).seen.str() != drawn;
                    paper.window->Restore(before);
                }
            }
            EXPECT_EQ(changes, why.empty()) << state << ", " << name << ": " << why;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, IdleFields, testing::ValuesIn(KindNames()),
                         [](const auto& instance) { return instance.param; });

}  // namespace
}  // namespace linealis::test
