// Draws a page of strokes with libharu: haru_page STROKES PDF

#include "Strokes.h"

#include <hpdf.h>

int main(int argc, char** argv)
{
    if (argc != 3) {
        return 2;
    }
    const others::StrokesFile strokes(argv[1]);
    HPDF_Doc const document = HPDF_New(nullptr, nullptr);
    HPDF_SetCompressionMode(document, HPDF_COMP_ALL);  // at zlib's default level
    HPDF_Page const page = HPDF_AddPage(document);
    HPDF_Page_SetWidth(page, static_cast<HPDF_REAL>(strokes.Head().width));
    HPDF_Page_SetHeight(page, static_cast<HPDF_REAL>(strokes.Head().height));
    HPDF_Page_SetLineCap(page, strokes.Head().roundCaps != 0.0 ? HPDF_ROUND_END : HPDF_BUTT_END);
    double width = -1.0;
    for (const others::Stroke& stroke : strokes.Strokes()) {
        if (stroke.width != width) {
            width = stroke.width;
            HPDF_Page_SetLineWidth(page, static_cast<HPDF_REAL>(width));
        }
        HPDF_Page_MoveTo(page, static_cast<HPDF_REAL>(stroke.x1), static_cast<HPDF_REAL>(stroke.y1));
        HPDF_Page_LineTo(page, static_cast<HPDF_REAL>(stroke.x2), static_cast<HPDF_REAL>(stroke.y2));
        HPDF_Page_Stroke(page);
    }
    const bool failed = HPDF_SaveToFile(document, argv[2]) != HPDF_OK;
    HPDF_Free(document);
    return failed ? 1 : 0;
}
