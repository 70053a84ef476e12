#pragma once

#include "pipeline/document/Paper.h"

#include <string>

namespace linealis {

/// The form of Cornell note paper: a cue column, a ruled note column, and a summary box, below a header of four
/// labeled boxes.
struct CornellForm final : PaperForm {
    Label StaticText29{*this, Group::Spacing, "StaticText29", "Note Taking Area"};
    TextField EditHorzSpacing{*this,
                              Group::Spacing,
                              "EditHorzSpacing",
                              "line-spacing",
                              "Line Spacing:",
                              "5",
                              {.label = "StaticText25", .meaning = Meaning::LinesPerUnit, .governs = {"line"}}};
    Label StaticHorzUnit{*this, Group::Spacing, "StaticHorzUnit", "-", {.beside = true}, {"per inch", "per cm"}};
    TextField EditLineThicknessHorz{*this,
                                    Group::Spacing,
                                    "EditLineThicknessHorz",
                                    "line-weight-of-the-lines-of-the-note-area",
                                    "Line Weight:",
                                    ".2",
                                    {.label = "StaticText1",
                                     .beside = true,
                                     .meaning = Meaning::Weight,
                                     .sets = "lines of the note area",
                                     .governs = {"line"},
                                     .apart = &EditHorzSpacing}};
    CheckBox CheckGrid{
        *this, Group::Spacing, "CheckGrid", "grid", "Grid", false, {.beside = true, .governs = {"line.column"}}};
    TextField EditNoteWidth{
        *this,
        Group::Spacing,
        "EditNoteWidth",
        "width",
        "Width:",
        "70",
        {.label = "StaticText27", .meaning = Meaning::Share, .governs = {"box.cue", "box.note", "line"}}};
    Label StaticText31{*this, Group::Spacing, "StaticText31", "%", {.beside = true}};
    TextField EditNoteHeight{*this,
                             Group::Spacing,
                             "EditNoteHeight",
                             "height",
                             "Height:",
                             "83",
                             {.label = "StaticText30",
                              .beside = true,
                              .meaning = Meaning::Share,
                              .governs = {"box.cue", "box.note", "box.summary", "line"}}};
    Label StaticText32{*this, Group::Spacing, "StaticText32", "%", {.beside = true}};
    CheckBox CheckCueLeft{*this,
                          Group::Spacing,
                          "CheckCueLeft",
                          "cue-area-on-left",
                          "Cue Area on Left",
                          true,
                          {.governs = {"box.cue", "box.note", "line"}}};
    CheckBox CheckSummaryBottom{*this,
                                Group::Spacing,
                                "CheckSummaryBottom",
                                "summary-area-on-bottom",
                                "Summary Area on Bottom",
                                true,
                                {.beside = true, .governs = {"box.cue", "box.note", "box.summary", "line"}}};
    TextField EditCueWeight{
        *this,
        Group::Lines,
        "EditCueWeight",
        "line-weight-of-the-boxes",
        "Line Weight:",
        ".5",
        {.label = "StaticText28", .meaning = Meaning::Weight, .sets = "boxes", .governs = {"box"}}};
    Swatch LineColorCanvas{*this,
                           Group::Lines,
                           "LineColorCanvas",
                           "line-color",
                           "Line Color",
                           black,
                           {.label = "StaticText4", .governs = {"box", "line", "text", "caption"}}};
    Swatch BackgroundColorCanvas{*this,
                                 Group::Lines,
                                 "BackgroundColorCanvas",
                                 "background-color",
                                 "Background Color",
                                 white,
                                 {.label = "StaticText33", .beside = true, .governs = {"background"}}};
    CheckBox CheckBoxTopicArea{*this,
                               Group::Text,
                               "CheckBoxTopicArea",
                               "topic-area",
                               "Topic Area",
                               true,
                               {.governs = {"box.header", "caption", "text"}}};
    TextField EditName{*this,
                       Group::Text,
                       "EditName",
                       "name",
                       "Name:",
                       "Ned Fallow",
                       {.label = "StaticName",
                        .enabledBy = &CheckBoxTopicArea,
                        .meaning = Meaning::Prose,
                        .governs = {"text.name"}}};
    TextField EditDate{*this,
                       Group::Text,
                       "EditDate",
                       "date",
                       "Date:",
                       "",
                       {.label = "StaticDate",
                        .beside = true,
                        .enabledBy = &CheckBoxTopicArea,
                        .meaning = Meaning::Prose,
                        .governs = {"text.date"}}};
    TextField EditTopic{*this,
                        Group::Text,
                        "EditTopic",
                        "topic",
                        "Topic:",
                        "English Term paper",
                        {.label = "StaticTopic",
                         .enabledBy = &CheckBoxTopicArea,
                         .meaning = Meaning::Prose,
                         .governs = {"text.topic"}}};
    TextField EditSubject{*this,
                          Group::Text,
                          "EditSubject",
                          "subject",
                          "Subject:",
                          "Writing",
                          {.label = "StaticSubject",
                           .beside = true,
                           .enabledBy = &CheckBoxTopicArea,
                           .meaning = Meaning::Prose,
                           .governs = {"text.subject"}}};
    TextField EditTextSize{*this,
                           Group::Text,
                           "EditTextSize",
                           "text-size",
                           "Text Size:",
                           "12",
                           {.label = "StaticTextSize",
                            .enabledBy = &CheckBoxTopicArea,
                            .meaning = Meaning::FontSize,
                            .governs = {"text"}}};
    ShiftClickNote note{*this, "StaticText26"};

    /// Also fills in the date, in the format of the platform.
    void Event_Open(const Platform& platform) override;
};

/// The values of a page of note paper. Lengths are in points.
struct CornellPage {
    PageFrame frame;
    double LineThicknessHorz = 0.0;  ///< of the ruled lines
    double LineThicknessCue = 0.0;   ///< of the boxes
    double lineSpace = 0.0;
    double noteWidthFraction = 0.0;   ///< of the usable width, 0 to 1
    double noteHeightFraction = 0.0;  ///< of the usable height, 0 to 1
    bool drawsGrid = false;           ///< whether the note column has vertical lines too
    bool cueIsLeft = true;
    bool summaryIsBottom = true;
    bool hasHeader = true;
    double textSize = 0.0;
    std::string name;
    std::string date;
    std::string topic;
    std::string subject;
};

// The functions of the kind that MakePaper and PageOf call.
SettingsTable Settings(CornellForm& form);
CornellPage Read(const CornellForm& form);
void Draw(const CornellPage& page, MyPDFGenerator& pdf, Turns& turns);
Message Describe(const CornellPage& page);

}  // namespace linealis
