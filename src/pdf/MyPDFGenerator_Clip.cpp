#include "pdf/MyPDFGenerator.h"

namespace linealis {

namespace {

enum Region : int { inside = 0, above = 1, below = 2, right = 4, left = 8 };

}  // namespace

int MyPDFGenerator::FindRegion(double x, double y) const
{
    int region = inside;
    if (y > clipMaxY) {
        region += above;
    } else if (y < clipMinY) {
        region += below;
    }
    if (x > clipMaxX) {
        region += Region::right;
    } else if (x < clipMinX) {
        region += Region::left;
    }
    return region;
}

// The line clipping of Cohen and Sutherland. Multiplication comes before division: pages depend on the last bit.
void MyPDFGenerator::ClipLine(double x1, double y1, double x2, double y2, double left, double bottom, double width,
                              double height)
{
    clipMinX = left;
    clipMinY = bottom;
    clipMaxX = left + width;
    clipMaxY = bottom + height;
    int c1 = FindRegion(x1, y1);
    int c2 = FindRegion(x2, y2);
    while ((c1 | c2) != inside) {
        if ((c1 & c2) != 0) {
            return;
        }
        const int c = c1 != inside ? c1 : c2;
        double x = 0.0;
        double y = 0.0;
        if ((c & above) != 0) {
            y = clipMaxY;
            x = x1 + (x2 - x1) * (clipMaxY - y1) / (y2 - y1);
        } else if ((c & below) != 0) {
            y = clipMinY;
            x = x1 + (x2 - x1) * (clipMinY - y1) / (y2 - y1);
        } else if ((c & Region::right) != 0) {
            x = clipMaxX;
            y = y1 + (y2 - y1) * (clipMaxX - x1) / (x2 - x1);
        } else {
            x = clipMinX;
            y = y1 + (y2 - y1) * (clipMinX - x1) / (x2 - x1);
        }
        if (c == c1) {
            x1 = x;
            y1 = y;
            c1 = FindRegion(x1, y1);
        } else {
            x2 = x;
            y2 = y;
            c2 = FindRegion(x2, y2);
        }
    }
    StrokeLine(x1, y1, x2, y2);
}

}  // namespace linealis
