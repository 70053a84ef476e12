#pragma once

#include "pipeline/document/Paper.h"

#include <string_view>

namespace linealis {

// What the papers with one cell size share: isometric, axonometric, trapezoid and hexagon.

/// The first fields of such a form.
struct CellSizeFields {
    TextField EditSize;
    TextField EditLineThickness;

    /// `alias` is that of the weight, `lines` are what it sets, `roles` are theirs.
    CellSizeFields(PaperForm& form, std::string_view alias, std::string_view lineWeight, std::string_view lines,
                   const RoleSet& roles);
};

struct MinorWeightField {
    TextField EditMinorLineThickness;

    /// `lines` are what it sets, `roles` are theirs.
    MinorWeightField(PaperForm& form, std::string_view alias, std::string_view lines, const RoleSet& roles);
};

/// The last fields of such a form.
struct CellFrameFields {
    CheckBox CheckBoxFrame;
    Swatch LineColorCanvas;
    Swatch BackgroundColorCanvas;
    ShiftClickNote note;

    explicit CellFrameFields(PaperForm& form);
};

/// The settings file of such a kind; the boxes stand behind CheckBoxViewGraph. The minor weight and the frame are
/// not in the file.
SettingsTable CellSizeSettings(PaperForm& form, CellSizeFields& fields, CellFrameFields& frame,
                               const SettingsTable& boxes = {});

/// A rectangle on the page, in points.
struct Area {
    double left = 0.0;
    double bottom = 0.0;
    double width = 0.0;
    double height = 0.0;

    double Right() const { return left + width; }
    double Top() const { return bottom + height; }
};

/// The room between the margins.
Area UsableArea(const PageFrame& frame);

/// Four lines about the area.
void DrawFrame(const Area& area, MyPDFGenerator& pdf);

/// A line, cut at the edges of the area.
void Clip(const Area& area, double x1, double y1, double x2, double y2, MyPDFGenerator& pdf);

}  // namespace linealis
