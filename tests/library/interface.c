/* Uses the C interface as a C program does: ownership, null pointers, and errors that leave everything as it was. */

#include <linealis.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static void require(int holds, const char *what, int line)
{
    if (!holds) {
        fprintf(stderr, "interface.c:%d: %s (last message: %s)\n", line, what, linealis_message());
        exit(1);
    }
}
#define REQUIRE(holds) require((holds), #holds, __LINE__)

/* Whether a call was refused with a message that has the text. */
static int refused(linealis_status status, const char *text)
{
    return status == LINEALIS_BAD_INPUT && strstr(linealis_message(), text) != NULL;
}

static int has_value(const linealis_sheet *sheet, const char *control, const char *value)
{
    linealis_text text;
    const int is_equal = linealis_sheet_get(sheet, control, &text) == LINEALIS_OK && strcmp(text.bytes, value) == 0;
    linealis_text_free(&text);
    return is_equal;
}

/* Settings: whole ones are taken, short ones with a note, and everything else is refused. */
static void test_settings(linealis_sheet *sheet)
{
    linealis_text settings, note;
    linealis_sheet *other;
    REQUIRE(linealis_sheet_settings(sheet, &settings) == LINEALIS_OK && settings.size > 50);
    REQUIRE(linealis_sheet_set(sheet, "top-margin", "3") == LINEALIS_OK);
    REQUIRE(linealis_sheet_load(sheet, settings.bytes, settings.size, &note) == LINEALIS_OK && note.size == 0);
    linealis_text_free(&note);
    REQUIRE(has_value(sheet, "EditTopMargin", "1.25"));
    REQUIRE(refused(linealis_sheet_load(sheet, "garbage", 7, NULL), "no settings file of grid"));
    REQUIRE(refused(linealis_sheet_load(sheet, "", 0, NULL), "ends at field 1"));
    /* The last field of a grid is a color, of three texts. */
    REQUIRE(linealis_sheet_load(sheet, settings.bytes, settings.size - 4, &note) == LINEALIS_OK);
    REQUIRE(strstr(note.bytes, "the remaining fields are empty") != NULL);
    linealis_text_free(&note);
    REQUIRE(linealis_sheet_new("graph", &other) == LINEALIS_OK);
    REQUIRE(refused(linealis_sheet_load(other, settings.bytes, settings.size, NULL), "is a whole file of grid"));
    REQUIRE(has_value(other, "top-margin", "1.5"));
    linealis_sheet_free(other);
    linealis_text_free(&settings);
}

static void test_null_pointers(linealis_sheet *sheet)
{
    linealis_text text = {NULL, 0};
    linealis_table *table;
    REQUIRE(refused(linealis_sheet_new(NULL, &sheet), "the source is null") && sheet == NULL);
    REQUIRE(refused(linealis_sheet_new("grid", NULL), "is null"));
    REQUIRE(refused(linealis_sheet_get(NULL, "units", &text), "the sheet is null"));
    REQUIRE(refused(linealis_sheet_write(NULL, "pdf", NULL, &text), "the sheet is null") && text.bytes == NULL);
    REQUIRE(refused(linealis_sheet_controls(NULL, &table), "the sheet is null") && table == NULL);
    REQUIRE(refused(linealis_sheet_from_form(NULL, 3, &sheet), "is null"));
    REQUIRE(linealis_sheet_kind(NULL) == NULL && linealis_table_rows(NULL) == 0);
    REQUIRE(linealis_table_cell(NULL, 0, "name") == NULL);
    linealis_sheet_free(NULL);
    linealis_table_free(NULL);
    linealis_text_free(NULL);
    linealis_text_free(&text);
}

static void test_errors(linealis_sheet *sheet)
{
    linealis_write_options options = LINEALIS_WRITE_OPTIONS;
    linealis_text before, after, file;
    REQUIRE(linealis_sheet_form(sheet, &before) == LINEALIS_OK);
    REQUIRE(refused(linealis_sheet_set(sheet, "top-margn", "1"), "unknown control of grid 'top-margn'; possible: top-margin"));
    REQUIRE(refused(linealis_sheet_set(sheet, "units", "miles"), "unknown"));
    REQUIRE(refused(linealis_sheet_lay_over(sheet, "{", 1), "not valid JSON"));
    REQUIRE(refused(linealis_sheet_lay_over(sheet, "{\"kind\": \"graph\", \"controls\": {}}", 33), "of graph, not of grid"));
    REQUIRE(refused(linealis_sheet_wizard_ok(sheet), "goes with graph, not with grid"));
    REQUIRE(refused(linealis_sheet_fit(sheet, "0:1", NULL, NULL), "goes with graph, not with grid"));
    REQUIRE(refused(linealis_sheet_markers(sheet, "no file"), "not with grid"));
    REQUIRE(refused(linealis_sheet_write(sheet, "gif", NULL, &file), "unknown format 'gif'; possible: pdf"));
    options.dots_per_inch = 0.0;
    REQUIRE(refused(linealis_sheet_write(sheet, "png", &options, &file), "from 1 to 9600"));
    options.dots_per_inch = 9600.0;
    REQUIRE(refused(linealis_sheet_write(sheet, "png", &options, &file), "dots per inch would fit"));
    REQUIRE(linealis_sheet_form(sheet, &after) == LINEALIS_OK);
    REQUIRE(after.size == before.size && memcmp(after.bytes, before.bytes, after.size) == 0);
    linealis_text_free(&before);
    linealis_text_free(&after);
}

static void test_pads(const linealis_sheet *sheet)
{
    linealis_pad_options options = LINEALIS_PAD_OPTIONS;
    const linealis_sheet *sheets[2] = {sheet, NULL};
    linealis_sheet *twin;
    linealis_text file;
    options.up = 2;
    options.back = sheet;
    REQUIRE(linealis_pad(sheets, 1, &options, &file) == LINEALIS_OK && memcmp(file.bytes, "%PDF-1.4", 8) == 0);
    REQUIRE(linealis_sheet_from_form(file.bytes, file.size, &twin) == LINEALIS_OK);
    REQUIRE(strcmp(linealis_sheet_kind(twin), linealis_sheet_kind(sheet)) == 0);
    linealis_sheet_free(twin);
    linealis_text_free(&file);
    REQUIRE(linealis_pad(sheets, 1, NULL, &file) == LINEALIS_OK);
    linealis_text_free(&file);
    REQUIRE(refused(linealis_pad(sheets, 2, NULL, &file), "the sheet is null") && file.bytes == NULL);
    REQUIRE(refused(linealis_pad(NULL, 1, NULL, &file), "the list of sheets is null"));
    REQUIRE(refused(linealis_pad(sheets, 1, NULL, NULL), "the place for the result is null"));
    options.size = 0;
    REQUIRE(refused(linealis_pad(sheets, 1, &options, &file), "LINEALIS_PAD_OPTIONS"));
}

int main(void)
{
    linealis_sheet *sheet;
    REQUIRE(refused(linealis_sheet_new("gird", &sheet), "unknown kind or preset 'gird'; possible: grid") && sheet == NULL);
    REQUIRE(linealis_sheet_new("#grid&top-margin=1.25", &sheet) == LINEALIS_OK);
    REQUIRE(has_value(sheet, "EditTopMargin", "1.25") && strcmp(linealis_sheet_kind(sheet), "grid") == 0);
    test_settings(sheet);
    test_errors(sheet);
    test_null_pointers(sheet);
    test_pads(sheet);
    linealis_sheet_free(sheet);
    return 0;
}
