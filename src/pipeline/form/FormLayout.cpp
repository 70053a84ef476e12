#include "pipeline/form/FormLayout.h"

#include "pipeline/form/FieldWords.h"
#include "pipeline/form/LengthText.h"
#include "pipeline/form/SetControl.h"
#include "text/LetterCase.h"
#include "text/ShortText.h"

#include <algorithm>

namespace linealis {

namespace {

std::string_view NameOf(Group group)
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

/// Returns a caption. The colon at its end is not part of the text to translate.
Message WithColon(std::string_view caption)
{
    return caption.ends_with(':') ? Message("%1:", Message::Listed(caption.substr(0, caption.size() - 1)))
                                  : Message::Listed(caption);
}

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

Message TitleOf(Group group)
{
    return WithColon(NameOf(group));
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

Message CaptionOf(const Control& control)
{
    return WithColon(CaptionLines(control));
}

Message ReadoutText(const Form& form, const Form::Row& fields, const ReadoutParts& parts)
{
    const std::string_view unit =
        parts.hasUnit ? UnitWord(form, static_cast<const TextField&>(*fields.front())) : std::string_view();
    const bool isInMetricUnit = unit == "cm";
    const Message length = parts.hasLength && !isInMetricUnit ? Readout(fields, form.UnitOfLengths()) : Message();
    return Message::Joined({Message::Listed(unit), length}, " ");
}

Message KnownOf(const Form& form, Group group)
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

Message RemarkWithCaption(const Form& form, const TextField& field)
{
    const auto typed = TypedNumber(field.Text(), form, field);
    const Message remark = typed ? Message("becomes %1 when you leave the field", *typed) : field.Remark();
    const std::string caption = CaptionWords(field);
    return remark.IsEmpty() || caption.empty() ? remark : Message("%1: %2", Message::Listed(caption), remark);
}

Message ChangeWords(const Form& form, const Control& control, const ControlState& before)
{
    const bool isChosen = control.Kind() != ControlKind::Text && control.Kind() != ControlKind::Color;
    const auto words = [isChosen](const std::string& value) {
        return value.empty() ? Message("nothing")
               : isChosen    ? Message::Listed(value)
                             : Message::Verbatim(Shortened(value));
    };
    const std::string old = ValueIn(control, before), now = ValueOf(control);
    return old == now ? Message("Change")
                      : Message("%1 %2 \u2192 %3", WholeName(form, control), words(old), words(now));
}

Message NameOfCopy(const LaidRow& row)
{
    return Message("%1 like %2", Message::Listed(CaptionWords(*row.places.front().control)),
                   Message::Listed(CaptionWords(*row.above->places.front().control)));
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
