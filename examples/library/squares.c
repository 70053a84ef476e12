/* Writes a sheet of squares: an example of the C interface. */

#include <linealis.h>

#include <stdio.h>

int main(void)
{
    static const char *const settings[][2] = {{"paper-size", "A4"},
                                              {"units", "cm"},
                                              {"vertical-spacing", "0.5"},
                                              {"horizontal-spacing", "0.5"},
                                              {"line-color", "#6080C0"}};
    linealis_sheet *sheet;
    linealis_text page = {NULL, 0};
    linealis_status status = linealis_sheet_new("grid", &sheet);
    for (size_t i = 0; status == LINEALIS_OK && i < sizeof settings / sizeof settings[0]; ++i) {
        status = linealis_sheet_set(sheet, settings[i][0], settings[i][1]);
    }
    if (status == LINEALIS_OK) {
        status = linealis_sheet_write(sheet, "pdf", NULL, &page);
    }
    if (status == LINEALIS_OK) {
        FILE *const file = fopen("squares-0.5cm.pdf", "wb");
        if (file == NULL || fwrite(page.bytes, 1, page.size, file) != page.size || fclose(file) != 0) {
            perror("squares-0.5cm.pdf");
            status = LINEALIS_FAILED;
        }
    } else {
        fprintf(stderr, "%s\n", linealis_message());
    }
    linealis_text_free(&page);
    linealis_sheet_free(sheet);
    return status == LINEALIS_OK ? 0 : 1;
}
