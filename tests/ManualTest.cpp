#include "PageSupport.h"
#include "pipeline/form/ColorNames.h"
#include "pipeline/form/FieldWords.h"

#include <iterator>
#include <map>
#include <regex>

namespace linealis::test {
namespace {

// The tables of the manual name their fields in comments, which the reader does not see:
//
//   <!-- fields: grid -->
//   | Field | What it does | Unit | Default | Unusual input |
//   | --- | --- | --- | --- | --- |
//   | Vertical Spacing | from one line to the next | in, cm | 0.25 | | <!-- EditVertSpacing -->
//
// Name, unit, and default come from the forms. The table of "common" has what all forms have.

const fs::path manual = LINEALIS_DOCS_PATH "/manual/manual.md";

/// Joins the texts; equal ones count once.
std::string Together(const Names& texts, const std::string& separator)
{
    std::string all;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (std::find(texts.begin(), texts.begin() + static_cast<std::ptrdiff_t>(i), texts[i]) ==
            texts.begin() + static_cast<std::ptrdiff_t>(i)) {
            all += (all.empty() ? "" : separator) + texts[i];
        }
    }
    return all;
}

/// The caption of a column, on one line and without its colon; empty if the caption is elsewhere.
std::string ColumnCaption(const Control& control)
{
    std::string caption = control.Declared().captionAbove ? control.Caption() : "";
    std::replace(caption.begin(), caption.end(), '\r', ' ');
    return caption.ends_with(':') ? caption.substr(0, caption.size() - 1) : caption;
}

std::string NameIn(const Form& form, const std::vector<const Control*>& fields)
{
    const std::string caption = ColumnCaption(*fields.front());
    const bool isColumn = fields.size() > 1 && !caption.empty() &&
                          std::all_of(fields.begin(), fields.end(),
                                      [&](const Control* field) { return ColumnCaption(*field) == caption; });
    if (isColumn) {
        return caption;
    }
    Names names;
    bool hasCommas = false;
    for (const Control* const field : fields) {
        names.push_back(WholeName(form, *field).English());
        hasCommas = hasCommas || names.back().find(',') != std::string::npos;
    }
    return Together(names, hasCommas ? "; " : ", ");
}

/// The unit of what is no length.
std::string UnitOfNumber(Meaning meaning)
{
    switch (meaning) {
    case Meaning::Count:
    case Meaning::Quantity:
    case Meaning::CountFromOne:
    case Meaning::Divisions:
        return "count";
    case Meaning::GridLines:
    case Meaning::NumberSpacing:
        return "lines";
    case Meaning::AxisValue:
    case Meaning::AxisStep:
        return "value";
    default:
        return "";
    }
}

std::string UnitIn(const Form& form, const Control& control)
{
    if (control.Kind() != ControlKind::Text) {
        return "";
    }
    const auto& field = static_cast<const TextField&>(control);
    switch (FactsOf(field.MeansNow()).quantity) {
    case Quantity::Length:
    case Quantity::Inches:
    case Quantity::Centimeters:
        return "in, cm";
    case Quantity::CountPerUnit:
        return "per in, per cm";
    default:
        break;
    }
    const std::string unit(UnitWord(form, field));
    return unit.empty() ? UnitOfNumber(field.MeansNow()) : unit;
}

std::string DefaultIn(Control& control)
{
    const auto colorName = [](Color color) {
        for (const std::string& name : ColorNames()) {
            if (ColorNamed(name) == color) {
                return name;
            }
        }
        ADD_FAILURE() << "a default color without a name";
        return std::string();
    };
    switch (control.Kind()) {
    case ControlKind::Text:
        return IsProse(control) ? "" : static_cast<TextField&>(control).Text();
    case ControlKind::Popup:
    case ControlKind::Radio:
        return std::string(static_cast<Choice&>(control).Selected());
    case ControlKind::Check:
        return static_cast<CheckBox&>(control).Value() ? "on" : "off";
    case ControlKind::Color:
        return colorName(static_cast<Swatch&>(control).Shown());
    case ControlKind::Label:
        break;
    }
    return "";
}

/// The cells of a row of a table.
Names Cells(const std::string& row)
{
    Names cells = Lines(row.substr(1), '|');
    for (std::string& cell : cells) {
        cell = std::regex_replace(cell, std::regex("^ +| +$"), "");
    }
    return cells;
}

std::string RowOf(const Names& cells)
{
    std::string row = "|";
    for (const std::string& cell : cells) {
        row += cell.empty() ? " |" : " " + cell + " |";
    }
    return row;
}

/// Fills in the tables of fields, and collects which fields they have.
class Tables {
public:
    /// A line of the manual as it should be.
    std::string Line(const std::string& line)
    {
        std::smatch match;
        if (std::regex_match(line, match, std::regex("<!-- fields: (\\w+) -->"))) {
            kind = match[1];
        } else if (line.empty()) {
            kind.clear();
        } else if (std::regex_match(line, match, std::regex("(\\|.*\\|) <!-- (.*) -->"))) {
            return Row(match[1], match[2]) + line.substr(static_cast<std::size_t>(match.length(1)));
        }
        return line;
    }

    /// The aliases in the tables of a kind, in alphabetical order.
    Names Aliases(const std::string& ofKind) const
    {
        const auto [begin, end] = aliases.equal_range(ofKind);
        Names all;
        std::transform(begin, end, std::back_inserter(all), [](const auto& entry) { return entry.second; });
        std::sort(all.begin(), all.end());
        return all;
    }

private:
    std::string Row(const std::string& row, const std::string& controls)
    {
        Names cells = Cells(row);
        if (kind.empty() || cells.size() != 5) {
            ADD_FAILURE() << row << "\nis no row of five cells below <!-- fields: KIND -->";
            return row;
        }
        const linealis::Paper paper = FindPaperKind(kind == "common" ? "grid" : kind)->makePaper(platform);
        std::vector<const Control*> fields;
        Names units, defaults;
        for (const std::string& name : Lines(controls, ' ')) {
            Control* const field = paper.form->Find(name);
            if (field == nullptr) {
                ADD_FAILURE() << kind << " has no " << name;
                return row;
            }
            fields.push_back(field);
            units.push_back(UnitIn(*paper.form, *field));
            defaults.push_back(DefaultIn(*field));
            aliases.emplace(kind, field->Alias());
        }
        cells[0] = NameIn(*paper.form, fields);
        cells[2] = Together(units, ", ");
        cells[3] = Together(defaults, ", ");
        return RowOf(cells);
    }

    const ScreenlessPlatform platform{};
    std::string kind;  ///< of the table; empty outside of tables
    std::multimap<std::string, std::string> aliases;
};

/// The table of all kinds.
std::string Kinds()
{
    std::string rows;
    for (const PaperKind& kind : PaperKinds()) {
        rows += RowOf({std::string(kind.galleryTitle), std::string(kind.title),
                       "." + std::string(kind.settingsType.extension), "`" + std::string(kind.name) + "`"}) +
                "\n";
    }
    return rows;
}

std::string Capitalized(std::string word)
{
    word[0] = static_cast<char>(std::toupper(word[0]));
    return word;
}

/// The text with the number of kinds wherever it counts kinds in words.
std::string WithCount(std::string text)
{
    const Names words = {"ten",     "eleven",    "twelve",   "thirteen", "fourteen", "fifteen",
                         "sixteen", "seventeen", "eighteen", "nineteen", "twenty"};
    const std::string& count = words.at(PaperKinds().size() - 10);
    for (const std::string& word : words) {
        text = std::regex_replace(text, std::regex("\\b" + word + "(?= kinds)"), count);
        text = std::regex_replace(text, std::regex("\\b" + Capitalized(word) + "(?= kinds)"), Capitalized(count));
    }
    return text;
}

TEST(Manual, HasTheFieldsOfEveryKind)
{
    Tables tables;
    std::string wanted;
    for (const std::string& line : Lines(ReadFile(manual), '\n')) {
        wanted += tables.Line(line) + "\n";
    }
    const std::regex kinds("(<!-- kinds -->\n\\|.*\n\\|.*\n)(\\|.*\n)*");
    wanted = std::regex_replace(wanted, kinds, "$1" + Kinds(), std::regex_constants::format_first_only);
    ExpectDocument(manual, WithCount(wanted));

    const Names common = tables.Aliases("common");
    for (const std::string& kind : KindNames()) {
        const Paper paper(kind);
        Names own = common;
        for (const Control* const control : paper.window->form.Controls()) {
            if (std::find(common.begin(), common.end(), control->Alias()) == common.end() &&
                control->Kind() != ControlKind::Label) {
                own.emplace_back(control->Alias());
            }
        }
        Names documented = tables.Aliases(kind);
        documented.insert(documented.end(), common.begin(), common.end());
        std::sort(own.begin(), own.end());
        std::sort(documented.begin(), documented.end());
        EXPECT_EQ(documented, own) << "the fields of " << kind << " that the manual documents, and those it has";
    }
}

TEST(Manual, CountsTheKindsAsReadmeDoes)
{
    const fs::path readme = LINEALIS_DOCS_PATH "/../README.md";
    ExpectDocument(readme, WithCount(ReadFile(readme)));
}

/// Returns what a translation has in common with the manual, one entry for each line that has such a thing: the
/// level of a heading, the columns of a table, comments, pictures, and code.
Names PartsOf(const fs::path& path)
{
    const std::regex comment("<!--.*-->"), picture("images/[a-z0-9-]+\\.png");
    Names parts;
    bool isCode = false;
    for (const std::string& line : Lines(ReadFile(path), '\n')) {
        std::smatch found;
        if (line.starts_with("```")) {
            isCode = !isCode;
            parts.push_back(line);
        } else if (isCode && line.find("linealis") != std::string::npos) {
            parts.push_back(line.substr(0, line.find('#')));
        } else if (std::regex_search(line, found, comment) || std::regex_search(line, found, picture)) {
            parts.push_back(found.str());
        } else if (!isCode && line.starts_with('#')) {
            parts.push_back(line.substr(0, line.find(' ')));
        } else if (line.starts_with('|')) {
            parts.push_back(std::to_string(std::count(line.begin(), line.end(), '|')) + " bars");
        }
    }
    return parts;
}

TEST(Manual, TranslationsHaveTheSameParts)
{
    const Names wanted = PartsOf(manual);
    for (const fs::directory_entry& entry : fs::directory_iterator(manual.parent_path())) {
        if (entry.path().extension() != ".md" || entry.path() == manual) {
            continue;
        }
        const Names parts = PartsOf(entry.path());
        const auto [is, expected] = std::mismatch(parts.begin(), parts.end(), wanted.begin(), wanted.end());
        EXPECT_TRUE(is == parts.end() && expected == wanted.end())
            << entry.path() << ": after " << is - parts.begin() << " parts: " << (is == parts.end() ? "" : *is)
            << " instead of " << (expected == wanted.end() ? "nothing" : *expected);
    }
}

}  // namespace
}  // namespace linealis::test
