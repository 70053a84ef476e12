// Draws a page of strokes with cairo: cairo_page STROKES PDF

#include "Strokes.h"

#include <cairo-pdf.h>
#include <cairo.h>

int main(int argc, char** argv)
{
    if (argc != 3) {
        return 2;
    }
    const others::StrokesFile page(argv[1]);
    cairo_surface_t* const surface = cairo_pdf_surface_create(argv[2], page.Head().width, page.Head().height);
    cairo_t* const context = cairo_create(surface);
    cairo_set_line_cap(context, page.Head().roundCaps != 0.0 ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
    double width = -1.0;
    for (const others::Stroke& stroke : page.Strokes()) {
        if (stroke.width != width) {
            width = stroke.width;
            cairo_set_line_width(context, width);
        }
        cairo_move_to(context, stroke.x1, page.Head().height - stroke.y1);
        cairo_line_to(context, stroke.x2, page.Head().height - stroke.y2);
        cairo_stroke(context);
    }
    cairo_destroy(context);
    cairo_surface_finish(surface);
    const bool failed = cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS;
    cairo_surface_destroy(surface);
    return failed ? 1 : 0;
}
