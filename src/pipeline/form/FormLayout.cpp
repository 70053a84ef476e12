#include "pipeline/form/FormLayout.h"

#include "pipeline/form/FieldWords.h"
#include "pipeline/form/LengthText.h"
#include "pipeline/form/SetControl.h"
#include "text/LetterCase.h"
#include "text/Numbers.h"
#include "text/ShortText.h"

#include <algorithm>

namespace linealis {

namespace {

bool IsOfTable(const Form::Row& row)
{
    return row.back()->Declared().captionAbove;
}

bool HoldsLength(const TextField& field)
{
    const Quantity quantity = FactsOf(field.Declared().meaning).quantity;
    return quantity == Quantity::Length || quantity == Quantity::CountPerUnit;
}

/// Returns the caption on one line, without its colon.
std::string CaptionWords(const Control& control)
{
    std::string words = CaptionLines(control);
    std::replace(words.begin(), words.end(), '\n', ' ');
    std::erase(words, ':');
    return words;
}

bool HasCaptionBefore(const Control& control)
{
    return !control.Caption().empty() && !control.Declared().captionAbove && control.Kind() != ControlKind::Check &&
           control.Kind() != ControlKind::Label;
}

/// Returns what the full name of a field adds to its caption: "X axis" for the caption "Title:" of "X axis title".
/// Empty if the caption is enough.
std::string RowNameOf(const Control& control)
{
    const std::string_view full = control.Declared().fullName;
    const std::string ending = " " + InSmallLetters(CaptionWords(control));
    return full.ends_with(ending) ? std::string(full.substr(0, full.size() - ending.size())) : std::string();
}

/// Returns what is said after the field at place `i` of a row that is not part of a table.
ReadoutParts ReadoutAfter(const Form& form, const Form::Row& row, std::size_t i)
{
    if (row[i]->Kind() != ControlKind::Text || IsProse(*row[i])) {
        return {};
    }
    const auto& field = static_cast<const TextField&>(*row[i]);
    const Group group = field.InGroup();
    // A label after the field shows its unit already.
    const bool isBeforeUnit = i + 1 < row.size() && row[i + 1]->Kind() == ControlKind::Label;
    const bool hasUnit = !isBeforeUnit && !(HasTables(form) && group == Group::Text);
    const bool hasLength = (group == Group::Spacing || group == Group::Lines) && HoldsLength(field);
    const bool isNeeded = hasLength || (hasUnit && !UnitWord(form, field).empty());
    return isNeeded ? ReadoutParts{hasUnit, hasLength} : ReadoutParts{};
}

LaidRow Laid(const Form& form, const Form::Row& row)
{
    LaidRow laid;
    laid.isOfTable = IsOfTable(row);
    const bool sharesLine = !HasTables(form) && std::count_if(row.begin(), row.end(), [](const Control* control) {
                                                    return IsProse(*control);
                                                }) > 1;
    for (std::size_t i = 0; i < row.size(); ++i) {
        LaidControl place{row[i]};
        if (!laid.isOfTable) {
            const Control& control = *row[i];
            place.hasCaption = HasCaptionBefore(control);
            place.rowName = place.hasCaption ? RowNameOf(control) : "";
            place.readout = ReadoutAfter(form, row, i);
            place.continuesCell = i > 0 && control.Declared().beside &&
                                  (control.Kind() == ControlKind::Label || control.Caption().empty());
            place.isShort = sharesLine && IsProse(control);
        }
        laid.places.push_back(place);
    }
    return laid;
}

}  // namespace

Form::Row LaidRow::Controls() const
{
    Form::Row controls;
    for (const LaidControl& place : places) {
        controls.push_back(place.control);
    }
    return controls;
}

std::vector<LaidGroup> LayoutOf(const Form& form)
{
    std::vector<LaidGroup> groups;
    for (const Group group : allGroups) {
        LaidGroup laid{group, {}};
        for (const Form::Row& row : form.Rows(group)) {
            laid.rows.push_back(Laid(form, row));
        }
        for (std::size_t i = 1; i < laid.rows.size(); ++i) {
            laid.rows[i].above = laid.rows[i].isOfTable && laid.rows[i - 1].isOfTable ? &laid.rows[i - 1] : nullptr;
        }
        if (!laid.rows.empty()) {
            groups.push_back(std::move(laid));
        }
    }
    return groups;
}

std::string_view TitleOf(Group group)
{
    switch (group) {
    case Group::Page:
        return "Page";
    case Group::Spacing:
        return "Spacing";
    case Group::Axes:
        return "Axes";
    case Group::Lines:
        return "Lines and Colors";
    case Group::Text:
        return "Text";
    case Group::Margins:
        return "Margins:";
    case Group::File:
        break;
    }
    return "File";
}

bool HasTables(const Form& form)
{
    return std::any_of(form.Controls().begin(), form.Controls().end(),
                       [](const Control* control) { return control->Declared().captionAbove; });
}

std::string CaptionLines(const Control& control)
{
    std::string caption = control.Caption();
    std::replace(caption.begin(), caption.end(), '\r', '\n');
    return caption;
}

std::string ReadoutText(const Form& form, const Form::Row& fields, const ReadoutParts& parts)
{
    std::string text;
    if (parts.hasUnit) {
        text = UnitWord(form, static_cast<const TextField&>(*fields.front()));
    }
    const bool isInMetricUnit = text == "cm";
    if (const std::string length = Readout(fields, form.UnitOfLengths());
        parts.hasLength && !isInMetricUnit && !length.empty()) {
        text += (text.empty() ? "" : " ") + length;
    }
    return text;
}

std::string KnownOf(const Form& form, Group group)
{
    if (group != Group::Margins || form.UnitOfLengths() != LengthUnit::Inches) {
        return {};
    }
    Form::Row fields;
    for (const Form::Row& row : form.Rows(group)) {
        fields.insert(fields.end(), row.begin(), row.end());
    }
    return Readout(fields, LengthUnit::Inches);
}

std::string RemarkWithCaption(const Form& form, const TextField& field)
{
    const auto typed = TypedNumber(field.Text(), form, field);
    std::string remark = typed ? "becomes " + Str(*typed) + " when you leave the field" : field.Remark();
    std::string caption = CaptionLines(field);
    if (remark.empty() || caption.empty()) {
        return remark;
    }
    std::replace(caption.begin(), caption.end(), '\n', ' ');
    return caption + (caption.ends_with(':') ? " " : ": ") + remark;
}

std::string ChangeWords(const Form& form, const Control& control, const ControlState& before)
{
    const auto words = [](const std::string& value) { return value.empty() ? "nothing" : Shortened(value); };
    const std::string old = ValueIn(control, before), now = ValueOf(control);
    return old == now ? "Change" : WholeName(form, control) + " " + words(old) + " → " + words(now);
}

std::string NameOfCopy(const LaidRow& row)
{
    return CaptionWords(*row.places.front().control) + " like " + CaptionWords(*row.above->places.front().control);
}

void CopyFromAbove(const Form& form, const LaidRow& row)
{
    if (row.above == nullptr) {
        return;
    }
    for (std::size_t i = 0; i < std::min(row.places.size(), row.above->places.size()); ++i) {
        const Control& target = *row.places[i].control;
        if (target.Kind() != ControlKind::Label) {
            SetControl({}, form, {target.Name(), ValueOf(*row.above->places[i].control)});
        }
    }
}

void LinkMargins(const Form& form, const Control& margin)
{
    if (margin.InGroup() != Group::Margins || margin.Kind() != ControlKind::Text) {
        return;
    }
    for (const Form::Row& row : form.Rows(Group::Margins)) {
        for (Control* const other : row) {
            if (other->Kind() == ControlKind::Text) {
                static_cast<TextField&>(*other).SetText(static_cast<const TextField&>(margin).Text());
            }
        }
    }
}

}  // namespace linealis
