#pragma once

#include "pipeline/document/Paper.h"

#include <string_view>

namespace linealis {

// The common parts of the papers with one cell size: isometric, axonometric, trapezoid, and hexagon.

/// The first fields of the form.
struct CellSizeFields {
    TextField EditSize;
    TextField EditLineThickness;

    /// `alias` is the alias of the weight and `lineWeight` its opening text. `lines` names the lines that the
    /// weight applies to, for the user; `roles` are their roles.
    CellSizeFields(PaperForm& form, std::string_view alias, std::string_view lineWeight, std::string_view lines,
                   const RoleSet& roles);
};

/// The second weight of forms that have one.
struct MinorWeightField {
    TextField EditMinorLineThickness;

    /// `lines` names the lines that the weight applies to, for the user; `roles` are their roles.
    MinorWeightField(PaperForm& form, std::string_view alias, std::string_view lines, const RoleSet& roles);
};

/// The last fields of the form.
struct CellFrameFields {
    CheckBox CheckBoxFrame;
    Swatch LineColorCanvas;
    Swatch BackgroundColorCanvas;
    ShiftClickNote note;

    explicit CellFrameFields(PaperForm& form);
};

/// Returns the fields of the settings file. `boxes` come after CheckBoxViewGraph. The minor weight and the frame
/// are not stored.
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

/// Returns the area between the margins.
Area UsableArea(const PageFrame& frame);

/// Draws the outline of the area as four lines, with the current width and color.
void DrawFrame(const Area& area, MyPDFGenerator& pdf);

/// Draws the part of the line that is inside the area.
void Clip(const Area& area, double x1, double y1, double x2, double y2, MyPDFGenerator& pdf);

}  // namespace linealis
