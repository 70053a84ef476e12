/*
 * The C interface of Linealis: forms of printable paper, and the pages that they describe.
 *
 * Texts are UTF-8 and end with a zero byte. Every control has a name, such as "EditTopMargin", and an alias, such
 * as "top-margin"; all functions accept both. Lengths are in the unit that the control "units" shows; line weights
 * and text sizes are always in points (1/72 inch).
 *
 * Ownership. The caller owns what a function returns through a pointer to a pointer or in a linealis_text, and
 * releases it with the function named at its type. A failed call stores a null pointer or an empty text there.
 * Pointers that functions return directly belong to the library, or to the object that they come from.
 *
 * Errors. A function that can fail returns a linealis_status, and linealis_message() then tells what was wrong and
 * what is possible. A failed call changes nothing else. A null pointer where it is not allowed is an error too. No
 * C++ exception leaves the library.
 *
 * Threads. Different threads can use different sheets at the same time. One sheet, or one table, must not be
 * changed or released while another thread uses it.
 *
 * The interface stays compatible as long as the number in the name of the shared library stays the same. New
 * columns of tables and new statuses can be added.
 */
#ifndef LINEALIS_H
#define LINEALIS_H

/* C++ programs include this too, but it stays C. NOLINTBEGIN(modernize-deprecated-headers, modernize-use-using) */

#include <stddef.h>

#if defined(__GNUC__)
#define LINEALIS_API __attribute__((visibility("default")))
#else
#define LINEALIS_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* The outcome of a call. */
typedef enum linealis_status {
    LINEALIS_OK = 0,
    LINEALIS_BAD_INPUT = 1, /* a name, value, file or pointer that the call cannot take */
    LINEALIS_FAILED = 2,    /* the input is fine, but the work could not be done */
    LINEALIS_NO_MEMORY = 3
} linealis_status;

/* Bytes of the given size, followed by a zero byte that does not count. Release with linealis_text_free. */
typedef struct linealis_text {
    char* bytes;
    size_t size;
} linealis_text;

/* Rows of texts. Release with linealis_table_free. */
typedef struct linealis_table linealis_table;

/* A form, whose page can be made at any time. Release with linealis_sheet_free. */
typedef struct linealis_sheet linealis_sheet;

/* Returns the version of the library, such as "1.0.0". */
LINEALIS_API const char* linealis_version(void);

/* Returns the message of the last failed call on this thread, in English; empty if none has failed. Valid until the
 * next failed call on this thread. */
LINEALIS_API const char* linealis_message(void);

/* Releases the bytes, and makes the text empty. Does nothing if `text` is null or empty. */
LINEALIS_API void linealis_text_free(linealis_text* text);

/* Returns the number of rows; 0 if `table` is null. */
LINEALIS_API size_t linealis_table_rows(const linealis_table* table);

/* Returns a cell, which belongs to the table. Rows count from 0; `column` is one of the names that the function
 * that made the table documents. Null if there is no such row or column. */
LINEALIS_API const char* linealis_table_cell(const linealis_table* table, size_t row, const char* column);

/* Does nothing if `table` is null. */
LINEALIS_API void linealis_table_free(linealis_table* table);

/* The kinds of paper, in the order of the gallery. Columns: name ("grid"), title, extension (of settings files). */
LINEALIS_API linealis_status linealis_kinds(linealis_table** table);

/* The presets. Columns: name ("squares-5mm"), kind, title. */
LINEALIS_API linealis_status linealis_presets(linealis_table** table);

/* The formats that linealis_sheet_write knows. Columns: name ("pdf"), title ("PDF"), type (its MIME type). */
LINEALIS_API linealis_status linealis_formats(linealis_table** table);

/* The JSON Schema of the forms of a kind, or, if `kind` is null, of all kinds. */
LINEALIS_API linealis_status linealis_schema(const char* kind, linealis_text* json);

/* Makes a sheet of a kind with the values of a new form, of a preset, or of a link: the address of a form, or its
 * part from "#" on. */
LINEALIS_API linealis_status linealis_sheet_new(const char* source, linealis_sheet** sheet);

/* Makes a sheet from a form that names its kind: JSON, as linealis_sheet_form writes it, a page as SVG or PNG, or
 * a pad as PDF, whose first form counts. */
LINEALIS_API linealis_status linealis_sheet_from_form(const char* bytes, size_t size, linealis_sheet** sheet);

/* Does nothing if `sheet` is null. */
LINEALIS_API void linealis_sheet_free(linealis_sheet* sheet);

/* Returns the kind of the sheet; null if `sheet` is null. */
LINEALIS_API const char* linealis_sheet_kind(const linealis_sheet* sheet);

/* The controls, in the order of the form, without labels. Columns: name, alias, type ("text", "popup", "radio",
 * "check" or "color"), caption, title (a name that tells what it is for without its neighbors), value (as
 * linealis_sheet_set takes it), enabled ("on" or "off"), remark (what the page cannot use; empty if nothing). */
LINEALIS_API linealis_status linealis_sheet_controls(const linealis_sheet* sheet, linealis_table** table);

/* The items of a popup or radio group. Column: item. No rows for other controls. */
LINEALIS_API linealis_status linealis_sheet_items(const linealis_sheet* sheet, const char* control,
                                                  linealis_table** table);

/* The value of a control, as linealis_sheet_set takes it. */
LINEALIS_API linealis_status linealis_sheet_get(const linealis_sheet* sheet, const char* control,
                                                linealis_text* value);

/* Sets a control as a user would:
 * - a text field to any text; a length may have a unit, such as "5mm",
 * - a popup or radio group to the text of an item, in any case, or to #INDEX, counted from 0,
 * - a check box to on, true, yes or 1, or to off, false, no or 0,
 * - a color to #RRGGBB, #RGB, or a name, such as "gray".
 * Controls that depend on this one follow: a change of units converts the lengths. A text field accepts any text;
 * linealis_sheet_warnings reports what the page cannot use. */
LINEALIS_API linealis_status linealis_sheet_set(linealis_sheet* sheet, const char* control, const char* value);

/* Types a text into a text field, so that what follows from it is worked out anew. */
LINEALIS_API linealis_status linealis_sheet_type(linealis_sheet* sheet, const char* control, const char* text);

/* Applies a form, or a part of one, of the same kind: JSON, or a page as SVG or PNG that carries its form, or
 * a pad as PDF. */
LINEALIS_API linealis_status linealis_sheet_lay_over(linealis_sheet* sheet, const char* bytes, size_t size);

/* The whole form as JSON: kind, title, extension, controls and aliases. */
LINEALIS_API linealis_status linealis_sheet_form(const linealis_sheet* sheet, linealis_text* json);

/* The form as a link: "#", the kind, and the values that differ from those of a new form. */
LINEALIS_API linealis_status linealis_sheet_link(const linealis_sheet* sheet, linealis_text* link);

/* The form as the bytes of a settings file. */
LINEALIS_API linealis_status linealis_sheet_settings(const linealis_sheet* sheet, linealis_text* settings);

/* Fills in the form from the bytes of a settings file of the same kind. Refuses damaged content and content of
 * another kind. A shorter file, as early versions wrote it, is taken, and `note`, which may be null, then tells so;
 * its missing fields are empty. The PDF file that the settings name is ignored. */
LINEALIS_API linealis_status linealis_sheet_load(linealis_sheet* sheet, const char* bytes, size_t size,
                                                 linealis_text* note);

/* Uses the lines of a file as the markers of the page, of kinds that have markers; null: none. The file is read
 * when a page is made. The control "add-markers" of the form must be on. */
LINEALIS_API linealis_status linealis_sheet_markers(linealis_sheet* sheet, const char* path);

/* Types a text into a field of the wizard, of kinds that have one. The form follows at linealis_sheet_wizard_ok. */
LINEALIS_API linealis_status linealis_sheet_wizard_type(linealis_sheet* sheet, const char* field, const char* text);

/* Fills in the form from the wizard. */
LINEALIS_API linealis_status linealis_sheet_wizard_ok(linealis_sheet* sheet);

/* Fits the axes of the page to ranges of data, of kinds that can do so. Each range is MIN:MAX or, for a logarithmic
 * axis, MIN:MAX:log; null leaves the axis as it is, but one is needed. `fineness` is "coarse", "medium" or "fine";
 * null is "medium". */
LINEALIS_API linealis_status linealis_sheet_fit(linealis_sheet* sheet, const char* x_range, const char* y_range,
                                                const char* fineness);

/* What the page holds, in words: "Grid, A4 portrait, 37 by 53 cells of 5 mm". */
LINEALIS_API linealis_status linealis_sheet_summary(const linealis_sheet* sheet, linealis_text* words);

/* The likely problems of the page: fields that it cannot use, lines too thin to print, numbers that overlap,
 * controls that were set without effect, fonts that this machine lacks for pictures, and more. Columns: id
 * (identifies the type of warning), control (the name of the control that causes it; empty if none does), text. The
 * drawing of a page with more than 8 MiB of it is not examined; its form is. If the page cannot be made at all, a
 * warning with the id "too-large" tells why. */
LINEALIS_API linealis_status linealis_sheet_warnings(const linealis_sheet* sheet, linealis_table** table);

/* How to write a page. Make one with LINEALIS_WRITE_OPTIONS. */
typedef struct linealis_write_options {
    size_t size;          /* of this struct, so that it can grow */
    double dots_per_inch; /* of pictures, from 1 to 9600 */
    int transparent;      /* whether pictures are without the white of the paper */
} linealis_write_options;

/* The defaults: 300 dots per inch, on white. */
#define LINEALIS_WRITE_OPTIONS                                                                                     \
    {                                                                                                              \
        sizeof(linealis_write_options), 300.0, 0                                                                   \
    }

/* The page as the bytes of a file. `format` is one of linealis_formats, in any case; `options` may be null for the
 * defaults. A PDF file is dated with the current time, or with SOURCE_DATE_EPOCH if that environment variable is
 * set. Fails if the page would have more than 1 GiB of drawing or take too many steps. */
LINEALIS_API linealis_status linealis_sheet_write(const linealis_sheet* sheet, const char* format,
                                                  const linealis_write_options* options, linealis_text* file);

/* How to make a pad. Make one with LINEALIS_PAD_OPTIONS. A null pointer leaves an option out. */
typedef struct linealis_pad_options {
    size_t size;                /* of this struct, so that it can grow */
    size_t pages;               /* on the fronts, up to 10000; 0: 50, or one per row of the table */
    size_t up;                  /* pages on each side of a sheet: 1, 2 or 4, with cut marks */
    int numbers;                /* whether the front pages are numbered, in the order of the stacks after cutting */
    const char* dates;          /* YYYY-MM-DD on the first front page, a day later on each further one */
    const linealis_sheet* back; /* the page on every back, as large as the fronts */
    size_t copies;              /* pads in the file, one after the other, up to 100 */
    const char* table;          /* CSV: a front page per row, whose cells are set in the single sheet */
    size_t table_size;          /* bytes of the table */
    int booklet;                /* whether sheets are put into each other, folded, and stapled in the fold */
    const char* creep;          /* of a booklet: the thickness of the paper, such as "0.1mm" */
    const char* poster;         /* a paper such as "A4": puts the single sheet on several sheets of it */
    const char* overlap;        /* of a poster: what neighboring sheets share, such as "10mm" */
} linealis_pad_options;

/* The defaults: 50 pages, one on each sheet, with blank backs. */
#define LINEALIS_PAD_OPTIONS                                                                                       \
    {                                                                                                              \
        sizeof(linealis_pad_options), 0, 1, 0, NULL, NULL, 1, NULL, 0, 0, NULL, NULL, NULL                         \
    }

/* The pages of `count` sheets, which take turns on the fronts, in one PDF file at their true size. The file carries
 * their forms, which linealis_sheet_from_form reads. `options` may be null for the defaults. Dated and limited as
 * in linealis_sheet_write. */
LINEALIS_API linealis_status linealis_pad(const linealis_sheet* const* sheets, size_t count,
                                          const linealis_pad_options* options, linealis_text* file);

#ifdef __cplusplus
}
#endif

/* NOLINTEND(modernize-deprecated-headers, modernize-use-using) */

#endif
