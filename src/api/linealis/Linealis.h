#pragma once

// The C++ interface of Linealis: classes over the C interface, without a line of compiled code of its own.

#include <linealis.h>

#include <cstddef>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace linealis {

namespace detail {

/// Throws if a call has failed: std::invalid_argument for bad input, std::bad_alloc, or std::runtime_error.
inline void Check(linealis_status status)
{
    switch (status) {
    case LINEALIS_OK:
        return;
    case LINEALIS_BAD_INPUT:
        throw std::invalid_argument(linealis_message());
    case LINEALIS_NO_MEMORY:
        throw std::bad_alloc();
    case LINEALIS_FAILED:
        break;
    }
    throw std::runtime_error(linealis_message());
}

/// Returns the text that a call gives.
template <typename Call>
std::string TextOf(Call call)
{
    struct Owned : linealis_text {
        Owned() : linealis_text{nullptr, 0} {}
        Owned(const Owned&) = delete;
        Owned& operator=(const Owned&) = delete;
        ~Owned() { linealis_text_free(this); }
    } text;
    Check(call(static_cast<linealis_text*>(&text)));
    return std::string(text.bytes, text.size);
}

/// Calls `take` with each row of the table that a call gives, as a function from the name of a column to the cell.
template <typename Call, typename Take>
void ForEachRow(Call call, Take take)
{
    linealis_table* table = nullptr;
    Check(call(&table));
    const std::unique_ptr<linealis_table, void (*)(linealis_table*)> owned(table, linealis_table_free);
    for (std::size_t row = 0; row < linealis_table_rows(table); ++row) {
        take([&](const char* column) { return std::string(linealis_table_cell(table, row, column)); });
    }
}

/// Returns one column of the table that a call gives.
template <typename Call>
std::vector<std::string> ColumnOf(Call call, const char* column)
{
    std::vector<std::string> cells;
    ForEachRow(call, [&](auto cell) { cells.push_back(cell(column)); });
    return cells;
}

}  // namespace detail

/// A control of a form; linealis_sheet_controls documents the texts.
struct ControlInfo {
    std::string name;
    std::string alias;
    std::string type;
    std::string caption;
    std::string title;
    std::string value;
    bool isEnabled;
    std::string remark;
};

/// A likely problem of a page; linealis_sheet_warnings documents the texts.
struct Warning {
    std::string id;
    std::string control;
    std::string text;
};

/// A sheet of printable paper: a form whose controls are set by name, and the page that the form describes.
///
/// Every control has a name, such as EditTopMargin, and an alias, such as top-margin; all functions accept both.
/// Lengths are in the unit that the control PopupUnits shows; line weights and text sizes are always in points
/// (1/72 inch).
///
/// Functions that cannot take what they are given throw std::invalid_argument; the message lists what is possible,
/// nearest first. The sheet is then as it was.
///
/// Sheets share no state, so different threads can use different sheets at the same time. A sheet that was moved
/// from can only be destroyed or assigned to.
class Sheet {
public:
    /// Returns the names of the kinds of paper, such as "grid".
    static std::vector<std::string> Kinds() { return detail::ColumnOf(linealis_kinds, "name"); }
    /// Returns the names of the presets, such as "squares-5mm".
    static std::vector<std::string> Presets() { return detail::ColumnOf(linealis_presets, "name"); }
    /// Returns the names of the formats that Write knows, such as "svg".
    static std::vector<std::string> Formats() { return detail::ColumnOf(linealis_formats, "name"); }

    /// Creates a sheet with the values of a new form of a kind, of a preset, or of a link.
    explicit Sheet(std::string_view source)
    {
        linealis_sheet* made = nullptr;
        detail::Check(linealis_sheet_new(std::string(source).c_str(), &made));
        sheet.reset(made);
    }

    /// Creates a sheet from a form that names its kind: JSON, a page as SVG or PNG, or a pad as PDF.
    static Sheet FromForm(std::string_view form)
    {
        linealis_sheet* made = nullptr;
        detail::Check(linealis_sheet_from_form(form.data(), form.size(), &made));
        return Sheet(made);
    }

    /// Returns the name of the kind.
    std::string Kind() const { return linealis_sheet_kind(sheet.get()); }

    /// Returns the names of the controls, in the order of the form. Labels are not included.
    std::vector<std::string> Controls() const
    {
        return detail::ColumnOf([&](linealis_table** table) { return linealis_sheet_controls(sheet.get(), table); },
                                "name");
    }

    /// Returns all controls with what a window shows of them.
    std::vector<ControlInfo> ControlInfos() const
    {
        std::vector<ControlInfo> controls;
        detail::ForEachRow([&](linealis_table** table) { return linealis_sheet_controls(sheet.get(), table); },
                           [&](auto cell) {
                               controls.push_back({cell("name"), cell("alias"), cell("type"), cell("caption"),
                                                   cell("title"), cell("value"), cell("enabled") == "on",
                                                   cell("remark")});
                           });
        return controls;
    }

    /// Returns the items of a popup or radio group; none for other controls.
    std::vector<std::string> Items(std::string_view control) const
    {
        const std::string name(control);
        return detail::ColumnOf(
            [&](linealis_table** table) { return linealis_sheet_items(sheet.get(), name.c_str(), table); }, "item");
    }

    /// Returns the value of a control, written as Set accepts it.
    std::string Get(std::string_view control) const
    {
        const std::string name(control);
        return detail::TextOf(
            [&](linealis_text* value) { return linealis_sheet_get(sheet.get(), name.c_str(), value); });
    }

    /// Sets a control as a user would; linealis_sheet_set documents the values.
    void Set(std::string_view control, std::string_view value)
    {
        detail::Check(linealis_sheet_set(sheet.get(), std::string(control).c_str(), std::string(value).c_str()));
    }

    /// Types a text into a text field, so that what follows from it is worked out anew.
    void Type(std::string_view control, std::string_view text)
    {
        detail::Check(linealis_sheet_type(sheet.get(), std::string(control).c_str(), std::string(text).c_str()));
    }

    /// Applies a form, or a part of one, of the same kind: JSON, a page as SVG or PNG, or a pad as PDF.
    void LayOver(std::string_view form)
    {
        detail::Check(linealis_sheet_lay_over(sheet.get(), form.data(), form.size()));
    }

    /// Returns the texts of the likely problems of the page; linealis_sheet_warnings documents them.
    std::vector<std::string> Warnings() const
    {
        std::vector<std::string> texts;
        for (Warning& warning : Check()) {
            texts.push_back(std::move(warning.text));
        }
        return texts;
    }

    /// Returns the likely problems of the page.
    std::vector<Warning> Check() const
    {
        std::vector<Warning> warnings;
        detail::ForEachRow([&](linealis_table** table) { return linealis_sheet_warnings(sheet.get(), table); },
                           [&](auto cell) {
                               warnings.push_back({cell("id"), cell("control"), cell("text")});
                           });
        return warnings;
    }

    /// Returns the whole form as JSON.
    std::string Form() const { return TextOf(linealis_sheet_form); }
    /// Returns the form as a link: the part of an address from "#" on.
    std::string Link() const { return TextOf(linealis_sheet_link); }
    /// Returns what the page holds, in words.
    std::string Summary() const { return TextOf(linealis_sheet_summary); }
    /// Returns the form as the content of a settings file.
    std::string Settings() const { return TextOf(linealis_sheet_settings); }

    /// Fills in the form from the content of a settings file of the same kind. Throws std::invalid_argument if the
    /// content is damaged or of another kind. Takes a shorter file, as early versions wrote it, and returns a
    /// sentence about what is missing; otherwise an empty text. The PDF file that the settings name is ignored.
    std::string Load(std::string_view settings)
    {
        return detail::TextOf([&](linealis_text* note) {
            return linealis_sheet_load(sheet.get(), settings.data(), settings.size(), note);
        });
    }

    /// Uses the lines of the file as markers, of graph paper whose box for markers is on.
    void UseMarkers(const std::string& path) { detail::Check(linealis_sheet_markers(sheet.get(), path.c_str())); }

    /// Fills in the form of graph paper from the fields of its wizard: names or aliases, and texts.
    void UseWizard(const std::vector<std::pair<std::string, std::string>>& fields)
    {
        for (const auto& [field, text] : fields) {
            detail::Check(linealis_sheet_wizard_type(sheet.get(), field.c_str(), text.c_str()));
        }
        detail::Check(linealis_sheet_wizard_ok(sheet.get()));
    }

    /// Fits the axes of graph paper to ranges of data, MIN:MAX or MIN:MAX:log. `fineness` is coarse, medium or
    /// fine.
    void Fit(const std::optional<std::string>& xRange, const std::optional<std::string>& yRange,
             const std::string& fineness = "medium")
    {
        detail::Check(linealis_sheet_fit(sheet.get(), xRange ? xRange->c_str() : nullptr,
                                         yRange ? yRange->c_str() : nullptr, fineness.c_str()));
    }

    /// Returns the page as the content of a PDF 1.4 file, dated with the current time, or with SOURCE_DATE_EPOCH if
    /// that environment variable is set. Throws std::runtime_error if the page would have more than 1 GiB of
    /// drawing or take too many drawing steps.
    std::string Page() const { return Write("pdf"); }

    /// Returns the page as the content of a file; `format` is one of Formats(). Resolution, from 1 to 9600, and
    /// transparency apply to pictures.
    std::string Write(std::string_view format, double dotsPerInch = 300.0, bool isTransparent = false) const
    {
        linealis_write_options options = LINEALIS_WRITE_OPTIONS;
        options.dots_per_inch = dotsPerInch;
        options.transparent = isTransparent ? 1 : 0;
        const std::string name(format);
        return detail::TextOf(
            [&](linealis_text* file) { return linealis_sheet_write(sheet.get(), name.c_str(), &options, file); });
    }

    /// Returns the object of the C interface, which belongs to this sheet.
    const linealis_sheet* Get() const { return sheet.get(); }

private:
    explicit Sheet(linealis_sheet* made) : sheet(made) {}

    std::string TextOf(linealis_status (*call)(const linealis_sheet*, linealis_text*)) const
    {
        return detail::TextOf([&](linealis_text* text) { return call(sheet.get(), text); });
    }

    struct Free {
        void operator()(linealis_sheet* freed) const { linealis_sheet_free(freed); }
    };
    std::unique_ptr<linealis_sheet, Free> sheet;
};

/// How to make a pad; linealis_pad_options documents the members. Empty texts and null leave an option out.
struct PadOptions {
    std::size_t pages = 0;
    std::size_t up = 1;
    bool hasNumbers = false;
    std::string firstDate = {};
    const Sheet* back = nullptr;
    std::size_t copies = 1;
    std::optional<std::string> table = {};
    bool isBooklet = false;
    std::string creep = {};
    std::string poster = {};
    std::string overlap = {};
};

/// Returns a PDF file with the pages of the sheets, which take turns on the fronts, at their true size. It carries
/// their forms, which Sheet::FromForm reads. Throws as Sheet::Write does.
inline std::string Pad(const std::vector<const Sheet*>& sheets, const PadOptions& options = {})
{
    std::vector<const linealis_sheet*> fronts;
    for (const Sheet* const sheet : sheets) {
        fronts.push_back(sheet == nullptr ? nullptr : sheet->Get());
    }
    const auto given = [](const std::string& text) { return text.empty() ? nullptr : text.c_str(); };
    linealis_pad_options how = LINEALIS_PAD_OPTIONS;
    how.pages = options.pages;
    how.up = options.up;
    how.numbers = options.hasNumbers ? 1 : 0;
    how.dates = given(options.firstDate);
    how.back = options.back == nullptr ? nullptr : options.back->Get();
    how.copies = options.copies;
    how.table = options.table ? options.table->data() : nullptr;
    how.table_size = options.table ? options.table->size() : 0;
    how.booklet = options.isBooklet ? 1 : 0;
    how.creep = given(options.creep);
    how.poster = given(options.poster);
    how.overlap = given(options.overlap);
    return detail::TextOf(
        [&](linealis_text* file) { return linealis_pad(fronts.data(), fronts.size(), &how, file); });
}

}  // namespace linealis
