// Fuzzes the C interface. Any calls with any texts succeed, or fail with a message and leave the form as it was.

#include "Fuzz.h"
#include "api/linealis.h"

#include <cstring>

using namespace linealis::fuzz;

namespace {

std::string FormOf(const linealis_sheet* sheet)
{
    linealis_text text;
    Require(linealis_sheet_form(sheet, &text) == LINEALIS_OK && std::strlen(text.bytes) == text.size);
    const std::string form(text.bytes, text.size);
    linealis_text_free(&text);
    return form;
}

/// Makes a pad of a few pages with a table, or with dates, if the page is one that a form begins with.
linealis_status PadOf(const linealis_sheet* sheet, const std::string& first, const std::string& second,
                      linealis_text& file)
{
    linealis_sheet* fresh = nullptr;
    Require(linealis_sheet_new(linealis_sheet_kind(sheet), &fresh) == LINEALIS_OK);
    linealis_pad_options options = LINEALIS_PAD_OPTIONS;
    options.pages = 3;
    options.up = second.size();
    options.table = first.starts_with("top-margin") ? first.c_str() : nullptr;
    options.table_size = first.size();
    options.dates = options.table == nullptr ? first.c_str() : nullptr;
    const linealis_status made = linealis_pad(&fresh, 1, &options, &file);
    linealis_sheet_free(fresh);
    return made;
}

/// Makes one call, with texts of the input.
linealis_status Call(linealis_sheet* sheet, Input& input)
{
    const std::uint8_t call = input.Byte();
    const std::string first(input.Line()), second(input.Line());
    linealis_text text = {nullptr, 0};
    linealis_table* table = nullptr;
    const auto done = [&](linealis_status status) {
        Require((status == LINEALIS_OK) == (text.bytes != nullptr || table != nullptr));
        linealis_text_free(&text);
        linealis_table_free(table);
        return status;
    };
    switch (call % 11) {
    case 0:
        return linealis_sheet_type(sheet, first.c_str(), second.c_str());
    case 1:
        return linealis_sheet_lay_over(sheet, first.data(), first.size());
    case 2:
        return linealis_sheet_load(sheet, first.data(), first.size(), nullptr);
    case 3:
        return linealis_sheet_wizard_type(sheet, first.c_str(), second.c_str());
    case 4:
        return linealis_sheet_fit(sheet, first.c_str(), second.empty() ? nullptr : second.c_str(), nullptr);
    case 5:
        return done(linealis_sheet_get(sheet, first.c_str(), &text));
    case 6:
        return done(linealis_sheet_items(sheet, first.c_str(), &table));
    case 7:
        return done(linealis_sheet_link(sheet, &text));
    case 8:
        return done(linealis_sheet_controls(sheet, &table));
    case 9:
        return done(PadOf(sheet, first, second, text));
    default:
        return linealis_sheet_set(sheet, first.c_str(), second.c_str());
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    linealis_sheet* sheet = nullptr;
    const linealis_status made = linealis_sheet_new(std::string(input.Line()).c_str(), &sheet);
    Require((made == LINEALIS_OK) == (sheet != nullptr));
    for (int calls = 0; calls < 20 && sheet != nullptr && !input.IsEmpty(); ++calls) {
        const std::string before = FormOf(sheet);
        if (Call(sheet, input) != LINEALIS_OK) {
            Require(*linealis_message() != '\0' && FormOf(sheet) == before);
        }
    }
    linealis_sheet_free(sheet);
    return 0;
}
