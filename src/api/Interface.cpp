#include "api/Pad.h"
#include "api/Sheet.h"
#include "api/linealis.h"
#include "exchange/FormLink.h"
#include "exchange/FormSchema.h"
#include "pipeline/form/NearestInput.h"
#include "pipeline/form/SetControl.h"
#include "platform/Version.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

// The functions of linealis.h. Each does its work inside Guarded, so that no exception leaves the library.

using namespace linealis;
using namespace linealis::api;

namespace {

/// The message of the last failed call on this thread.
std::string& LastMessage()
{
    thread_local std::string message;
    return message;
}

linealis_status Failed(linealis_status status, std::string message)
{
    LastMessage() = std::move(message);
    return status;
}

/// Runs the work of a function and turns what it throws into a status and a message.
template <typename Work>
linealis_status Guarded(Work work) noexcept
{
    try {
        try {
            work();
            return LINEALIS_OK;
        } catch (const BadInput& bad) {
            return Failed(LINEALIS_BAD_INPUT, bad.what());
        } catch (const UnknownInput& unknown) {
            return Failed(LINEALIS_BAD_INPUT, UnknownText(unknown.what, unknown.given, unknown.possible));
        } catch (const FormError& error) {
            return Failed(LINEALIS_BAD_INPUT, error.message.English());
        } catch (const PageGivenUp& givenUp) {
            return Failed(LINEALIS_FAILED, std::string(givenUp.reason.Text()));
        } catch (const std::bad_alloc&) {
            return Failed(LINEALIS_NO_MEMORY, "not enough memory");  // short enough to need none
        } catch (const std::exception& error) {
            return Failed(LINEALIS_FAILED, error.what());
        }
    } catch (...) {
        return LINEALIS_FAILED;
    }
}

/// Throws BadInput if the pointer is null.
template <typename Type>
Type& Given(Type* pointer, const char* what)
{
    if (pointer == nullptr) {
        throw BadInput(std::string("the ") + what + " is null");
    }
    return *pointer;
}

std::string_view TextGiven(const char* text, const char* what)
{
    return &Given(text, what);
}

std::string_view BytesGiven(const char* bytes, std::size_t size)
{
    return size == 0 ? std::string_view() : std::string_view(&Given(bytes, "text"), size);
}

/// Gives the caller a copy of the bytes, which free() releases.
void Give(std::string_view bytes, linealis_text& text)
{
    char* const copy = static_cast<char*>(std::malloc(bytes.size() + 1));
    if (copy == nullptr) {
        throw std::bad_alloc();
    }
    std::memcpy(copy, bytes.data(), bytes.size());
    copy[bytes.size()] = '\0';
    text = {copy, bytes.size()};
}

/// Runs `work`, which returns a text, and gives that to the caller.
template <typename Work>
linealis_status GiveText(linealis_text* text, Work work) noexcept
{
    return Guarded([&] {
        linealis_text& place = Given(text, "place for the result");
        place = {nullptr, 0};
        Give(work(), place);
    });
}

/// Runs `work`, which returns a new object, and gives that to the caller.
template <typename Type, typename Work>
linealis_status GiveObject(Type** object, Work work) noexcept
{
    return Guarded([&] {
        Type*& place = Given(object, "place for the result");
        place = nullptr;
        place = new Type(work());
    });
}

std::optional<std::string> OptionGiven(const char* text)
{
    return text == nullptr ? std::nullopt : std::optional<std::string>(text);
}

PadOptions OptionsGiven(const linealis_pad_options& how)
{
    PadOptions options;
    options.pages = how.pages == 0 ? std::nullopt : std::optional(how.pages);
    options.up = how.up;
    options.hasNumbers = how.numbers != 0;
    options.firstDate = OptionGiven(how.dates);
    options.isBooklet = how.booklet != 0;
    options.creep = OptionGiven(how.creep);
    options.poster = OptionGiven(how.poster);
    options.overlap = OptionGiven(how.overlap);
    options.copies = how.copies;
    return options;
}

FormFile FormGiven(const char* bytes, std::size_t size)
{
    return ParseForm("the form", BytesGiven(bytes, size));
}

}  // namespace

const char* linealis_version(void)
{
    return versionText;
}

const char* linealis_message(void)
{
    return LastMessage().c_str();
}

void linealis_text_free(linealis_text* text)
{
    if (text != nullptr) {
        std::free(text->bytes);
        *text = {nullptr, 0};
    }
}

size_t linealis_table_rows(const linealis_table* table)
{
    return table == nullptr ? 0 : table->rows.size();
}

const char* linealis_table_cell(const linealis_table* table, size_t row, const char* column)
{
    if (table == nullptr || column == nullptr || row >= table->rows.size()) {
        return nullptr;
    }
    for (std::size_t i = 0; i < table->columns.size(); ++i) {
        if (table->columns[i] == column) {
            return table->rows[row][i].c_str();
        }
    }
    return nullptr;
}

void linealis_table_free(linealis_table* table)
{
    delete table;
}

linealis_status linealis_kinds(linealis_table** table)
{
    return GiveObject(table, TableOfKinds);
}

linealis_status linealis_presets(linealis_table** table)
{
    return GiveObject(table, TableOfPresets);
}

linealis_status linealis_formats(linealis_table** table)
{
    return GiveObject(table, TableOfFormats);
}

linealis_status linealis_schema(const char* kind, linealis_text* json)
{
    return GiveText(json, [&] {
        if (kind == nullptr) {
            return JsonText(FormSchema());
        }
        if (const PaperKind* const found = FindPaperKind(kind)) {
            return JsonText(FormSchema(*found));
        }
        throw UnknownInput{"kind", kind, ColumnOf(TableOfKinds(), "name")};
    });
}

linealis_status linealis_sheet_new(const char* source, linealis_sheet** sheet)
{
    return Guarded([&] {
        linealis_sheet*& place = Given(sheet, "place for the result");
        place = nullptr;
        place = new linealis_sheet(TextGiven(source, "source"));
    });
}

linealis_status linealis_sheet_from_form(const char* bytes, size_t size, linealis_sheet** sheet)
{
    return Guarded([&] {
        linealis_sheet*& place = Given(sheet, "place for the result");
        place = nullptr;
        place = new linealis_sheet(FormGiven(bytes, size));
    });
}

void linealis_sheet_free(linealis_sheet* sheet)
{
    delete sheet;
}

const char* linealis_sheet_kind(const linealis_sheet* sheet)
{
    return sheet == nullptr ? nullptr : sheet->Kind().name.data();  // a literal
}

linealis_status linealis_sheet_controls(const linealis_sheet* sheet, linealis_table** table)
{
    return GiveObject(table, [&] { return TableOfControls(Given(sheet, "sheet").Form()); });
}

linealis_status linealis_sheet_items(const linealis_sheet* sheet, const char* control, linealis_table** table)
{
    return GiveObject(
        table, [&] { return TableOfItems(Given(sheet, "sheet").ControlNamed(TextGiven(control, "control"))); });
}

linealis_status linealis_sheet_get(const linealis_sheet* sheet, const char* control, linealis_text* value)
{
    return GiveText(value,
                    [&] { return ValueOf(Given(sheet, "sheet").ControlNamed(TextGiven(control, "control"))); });
}

linealis_status linealis_sheet_set(linealis_sheet* sheet, const char* control, const char* value)
{
    return Guarded([&] { Given(sheet, "sheet").Set(TextGiven(control, "control"), TextGiven(value, "value")); });
}

linealis_status linealis_sheet_type(linealis_sheet* sheet, const char* control, const char* text)
{
    return Guarded([&] { Given(sheet, "sheet").Type(TextGiven(control, "control"), TextGiven(text, "text")); });
}

linealis_status linealis_sheet_lay_over(linealis_sheet* sheet, const char* bytes, size_t size)
{
    return Guarded([&] { Given(sheet, "sheet").LayOver(FormGiven(bytes, size)); });
}

linealis_status linealis_sheet_form(const linealis_sheet* sheet, linealis_text* json)
{
    return GiveText(json,
                    [&] { return JsonText(FormJson(Given(sheet, "sheet").Kind(), Given(sheet, "sheet").Form())); });
}

linealis_status linealis_sheet_link(const linealis_sheet* sheet, linealis_text* link)
{
    return GiveText(link,
                    [&] { return "#" + FormLink(Given(sheet, "sheet").Kind(), Given(sheet, "sheet").Form()); });
}

linealis_status linealis_sheet_settings(const linealis_sheet* sheet, linealis_text* settings)
{
    return GiveText(settings, [&] { return Given(sheet, "sheet").Settings(); });
}

linealis_status linealis_sheet_load(linealis_sheet* sheet, const char* bytes, size_t size, linealis_text* note)
{
    const auto load = [&] { return Given(sheet, "sheet").Load(BytesGiven(bytes, size)); };
    return note == nullptr ? Guarded(load) : GiveText(note, load);
}

linealis_status linealis_sheet_markers(linealis_sheet* sheet, const char* path)
{
    return Guarded([&] { Given(sheet, "sheet").UseMarkers(path); });
}

linealis_status linealis_sheet_wizard_type(linealis_sheet* sheet, const char* field, const char* text)
{
    return Guarded(
        [&] { Given(sheet, "sheet").TypeIntoWizard(TextGiven(field, "field"), TextGiven(text, "text")); });
}

linealis_status linealis_sheet_wizard_ok(linealis_sheet* sheet)
{
    return Guarded([&] { Given(sheet, "sheet").PressOkOfWizard(); });
}

linealis_status linealis_sheet_fit(linealis_sheet* sheet, const char* x_range, const char* y_range,
                                   const char* fineness)
{
    return Guarded([&] { Given(sheet, "sheet").Fit(x_range, y_range, fineness); });
}

linealis_status linealis_sheet_summary(const linealis_sheet* sheet, linealis_text* words)
{
    return GiveText(words, [&] { return Given(sheet, "sheet").Summary(); });
}

linealis_status linealis_sheet_warnings(const linealis_sheet* sheet, linealis_table** table)
{
    return GiveObject(table, [&] { return TableOfWarnings(Given(sheet, "sheet").Warnings()); });
}

linealis_status linealis_sheet_write(const linealis_sheet* sheet, const char* format,
                                     const linealis_write_options* options, linealis_text* file)
{
    return GiveText(file, [&] {
        const linealis_write_options defaults = LINEALIS_WRITE_OPTIONS;
        const linealis_write_options& how = options == nullptr ? defaults : *options;
        if (how.size < sizeof(linealis_write_options)) {
            throw BadInput("the options are not made with LINEALIS_WRITE_OPTIONS");
        }
        return Given(sheet, "sheet").Write(TextGiven(format, "format"), how.dots_per_inch, how.transparent != 0);
    });
}

linealis_status linealis_pad(const linealis_sheet* const* sheets, size_t count, const linealis_pad_options* options,
                             linealis_text* file)
{
    return GiveText(file, [&] {
        const linealis_pad_options defaults = LINEALIS_PAD_OPTIONS;
        const linealis_pad_options& how = options == nullptr ? defaults : *options;
        if (how.size < sizeof(linealis_pad_options)) {
            throw BadInput("the options are not made with LINEALIS_PAD_OPTIONS");
        }
        for (size_t i = 0; i < count; ++i) {
            Given((&Given(sheets, "list of sheets"))[i], "sheet");
        }
        PadSheets used{{sheets, count}, how.back};
        if (how.table != nullptr) {
            used.table = BytesGiven(how.table, how.table_size);
        }
        return PadOf(used, OptionsGiven(how));
    });
}
