#pragma once

#include "pipeline/form/Form.h"

#include <string>
#include <string_view>
#include <vector>

namespace linealis {

// How a form is arranged and what it says beside its controls. Every front end that shows a form takes it from
// here.

/// What a label after one or more fields says.
struct ReadoutParts {
    bool hasUnit = false;    ///< the unit of a single field
    bool hasLength = false;  ///< the lengths of all fields in millimeters

    bool IsEmpty() const { return !hasUnit && !hasLength; }
};

/// A control in its place.
struct LaidControl {
    Control* control;
    bool hasCaption = false;  ///< its caption stands before it, as the first thing of a cell
    std::string rowName =
        {};  ///< stands before the caption: "X axis" before "Title:"; empty if the caption is enough
    ReadoutParts readout = {};   ///< after it
    bool continuesCell = false;  ///< stands in the same cell as the control before it
    bool isShort = false;        ///< a printed text that shares its line and gets less width
};

/// A row of controls. A row of a table has one column for each control, with the captions above the first row.
struct LaidRow {
    std::vector<LaidControl> places;
    bool isOfTable = false;
    const LaidRow* above = nullptr;  ///< the row above in the table; null for the first one

    /// Returns the controls of the row.
    Form::Row Controls() const;
};

/// A group of a form.
struct LaidGroup {
    Group group;
    std::vector<LaidRow> rows;  ///< at least one
};

/// Returns the groups of the form that have controls, from top to bottom. The result refers to the form, and its
/// rows to each other: it can be moved but not copied.
std::vector<LaidGroup> LayoutOf(const Form& form);

/// Returns the heading of the group, for users.
Message TitleOf(Group group);

/// Whether the form has tables, which make it wide.
bool HasTables(const Form& form);

/// Returns the caption of a control with line feeds between its lines.
std::string CaptionLines(const Control& control);

/// Returns the caption of a control with line feeds between its lines.
Message CaptionOf(const Control& control);

/// Returns the text of a readout: "in = 12.7 mm". Empty if there is nothing to say.
Message ReadoutText(const Form& form, const Form::Row& fields, const ReadoutParts& parts);

/// Returns what is known about a group without a look at the page, for its heading: the margins in millimeters. May
/// be empty.
Message KnownOf(const Form& form, Group group);

/// Returns the remark on a field with its caption: "Circles: counts as 1". Empty if there is none.
Message RemarkWithCaption(const Form& form, const TextField& field);

/// Describes the change of a control since an earlier state, for the name of a step: "Top margin 0.5 → 1".
Message ChangeWords(const Form& form, const Control& control, const ControlState& before);

/// Returns the name of the step that CopyFromAbove makes: "Y Axis like X Axis".
Message NameOfCopy(const LaidRow& row);

/// Sets the controls of a row of a table as those of the row above, as the user would. Does nothing in the first
/// row.
void CopyFromAbove(const Form& form, const LaidRow& row);

/// Gives all four margins the text of one of them. Does nothing if the control is no margin.
void LinkMargins(const Form& form, const Control& margin);

}  // namespace linealis
