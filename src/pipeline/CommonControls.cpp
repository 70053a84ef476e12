#include "pipeline/CommonControls.h"

namespace linealis {

namespace {

ControlTable CommonControls(const MarginTexts& margins)
{
    Control customUnit = unitLabel("StaticText16", "in", "cm").Beside();
    customUnit.caption = customUnit.captionInInches;
    return {
        {Group::Page,
         {
             popup("PopupPaperSize", "Paper Size:",
                   {"Letter", "Legal", "Ledger", "A0", "A1", "A2", "A3", "A4", "A5", "A6", "B5", "B (USA)",
                    "Custom"}),
             textField("EditCustomWidth", "", "8.5").Means(Meaning::CustomSize).Disabled().Beside(),
             label("StaticBy", "by").Disabled().Beside(),
             textField("EditCustomHeight", "", "11").Means(Meaning::CustomSize).Disabled().Beside(),
             customUnit,
             popup("PopupOrientation", "Orientation:", {"Portrait", "Landscape"}).Beside(),
             popup("PopupUnits", "Units:", {"inches", "cm"}),
             textField("EditXScale", "X Scale:", "100").Means(Meaning::Scale).Beside(),
             textField("EditYScale", "Y Scale:", "100").Means(Meaning::Scale).Beside(),
         }},
        {Group::Margins,
         {
             textField("EditTopMargin", "Top", margins.top).Means(Meaning::Length).Converted(UnitRule::Length),
             textField("EditBottomMargin", "Bottom", margins.bottom)
                 .Means(Meaning::Length)
                 .Converted(UnitRule::Length)
                 .Beside(),
             textField("EditLeftMargin", "Left", margins.left)
                 .Means(Meaning::Length)
                 .Converted(UnitRule::Length)
                 .Beside(),
             textField("EditRightMargin", "Right", margins.right)
                 .Means(Meaning::Length)
                 .Converted(UnitRule::Length)
                 .Beside(),
         }},
        {Group::File,
         {
             checkBox("CheckBoxViewGraph", "View Graph", true),
             label("StaticFileName", "Untitled").Beside(),
         }},
    };
}

void Append(std::vector<Control>& controls, const ControlTable& table, Group group)
{
    for (const ControlGroup& part : table) {
        if (part.group == group) {
            controls.insert(controls.end(), part.controls.begin(), part.controls.end());
        }
    }
}

}  // namespace

ControlTable WithCommonControls(const ControlTable& own, const MarginTexts& margins)
{
    const ControlTable common = CommonControls(margins);
    ControlTable whole;
    for (const Group group :
         {Group::Page, Group::Spacing, Group::Axes, Group::Lines, Group::Text, Group::Margins, Group::File}) {
        ControlGroup part{group, {}};
        Append(part.controls, common, group);
        Append(part.controls, own, group);
        whole.push_back(part);
    }
    return whole;
}

Control shiftClickNote(std::string_view name)
{
    return label(name, "(Shift click to change filename)").Beside();
}

const std::vector<std::string_view>& FontNames()
{
    static const std::vector<std::string_view> names = {
        "Courier",     "Courier Bold",   "Courier Bold Oblique",   "Courier Oblique",
        "Helvetica",   "Helvetica Bold", "Helvetica Bold Oblique", "Helvetica Oblique",
        "Times Roman", "Times Bold",     "Times Italic",           "Times Bold Italic"};
    return names;
}

}  // namespace linealis
