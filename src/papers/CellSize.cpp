#include "papers/CellSize.h"

namespace linealis {

CellSizeFields::CellSizeFields(PaperForm& form, std::string_view alias, std::string_view lineWeight,
                               std::string_view lines, const RoleSet& roles)
    : EditSize{form,
               Group::Spacing,
               "EditSize",
               "cell-size",
               "Cell Size:",
               "0.5",
               {.meaning = Meaning::CellSize, .unitRule = UnitRule::Length, .governs = {"grid", "cell"}}},
      EditLineThickness{form,
                        Group::Lines,
                        "EditLineThickness",
                        alias,
                        "Line Weight:",
                        lineWeight,
                        {.meaning = Meaning::Weight, .sets = lines, .governs = roles, .apart = &EditSize}}
{}

MinorWeightField::MinorWeightField(PaperForm& form, std::string_view alias, std::string_view lines,
                                   const RoleSet& roles)
    : EditMinorLineThickness{form,
                             Group::Lines,
                             "EditMinorLineThickness",
                             alias,
                             "Minor Line Weight:",
                             ".15",
                             {.meaning = Meaning::Weight, .sets = lines, .governs = roles}}
{}

CellFrameFields::CellFrameFields(PaperForm& form)
    : CheckBoxFrame{form, Group::Lines, "CheckBoxFrame", "draw-frame", "Draw Frame", true, {.governs = {"frame"}}},
      LineColorCanvas{form,
                      Group::Lines,
                      "LineColorCanvas",
                      "line-color",
                      "Line Color",
                      black,
                      {.governs = {"frame", "grid", "cell"}}},
      BackgroundColorCanvas{form,
                            Group::Lines,
                            "BackgroundColorCanvas",
                            "background-color",
                            "Background Color",
                            white,
                            {.beside = true, .governs = {"background"}}},
      note{form, "StaticTextShiftClick"}
{}

SettingsTable CellSizeSettings(PaperForm& form, CellSizeFields& fields, CellFrameFields& frame,
                               const SettingsTable& boxes)
{
    using namespace settings;
    return Concatenate({
        Head(form),
        {text(fields.EditLineThickness)},
        Margins(form),
        {box(form.CheckBoxViewGraph)},
        boxes,
        {color(frame.LineColorCanvas), fileReference(), cellSize(form, fields.EditSize),
         inverseColor(frame.BackgroundColorCanvas)},
    });
}

Area UsableArea(const PageFrame& frame)
{
    return {frame.leftMargin, frame.bottomMargin, frame.UsableWidth(), frame.UsableHeight()};
}

void DrawFrame(const Area& area, MyPDFGenerator& pdf)
{
    const double right = area.Right();
    const double top = area.Top();
    pdf.SetRole("frame");
    pdf.StrokeLine(area.left, area.bottom, right, area.bottom);
    pdf.StrokeLine(right, area.bottom, right, top);
    pdf.StrokeLine(right, top, area.left, top);
    pdf.StrokeLine(area.left, top, area.left, area.bottom);
}

void Clip(const Area& area, double x1, double y1, double x2, double y2, MyPDFGenerator& pdf)
{
    pdf.ClipLine(x1, y1, x2, y2, area.left, area.bottom, area.width, area.height);
}

}  // namespace linealis
