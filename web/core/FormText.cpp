#include "core/FormText.h"

#include "exchange/FormJson.h"
#include "pipeline/form/FieldWords.h"
#include "pipeline/form/SetControl.h"

namespace linealis::web {

namespace {

constexpr ReadoutParts lengthsOfRow{.hasLength = true};

Json StateOf(const Form& form, Control& control, const Language& language)
{
    Json json = {{"value", ValueOf(control)},
                 {"caption", CaptionOf(control).In(language)},
                 {"enabled", control.IsEnabled()}};
    if (control.Kind() == ControlKind::Text) {
        const auto& field = static_cast<const TextField&>(control);
        json["hint"] = HintOf(field).In(language);
        if (const Message remark = RemarkWithCaption(form, field); !remark.IsEmpty()) {
            json["remark"] = remark.In(language);
        }
    }
    if (control.Kind() == ControlKind::Popup || control.Kind() == ControlKind::Radio) {
        json["index"] = static_cast<const Choice&>(control).ListIndex();
    }
    return json;
}

}  // namespace

FormText::FormText(const Form& theForm, const Language& theLanguage)
    : form(theForm), language(theLanguage), groups(LayoutOf(theForm))
{
    for (const LaidGroup& group : groups) {
        for (const LaidRow& row : group.rows) {
            if (row.isOfTable) {
                readouts.push_back({row.Controls(), lengthsOfRow});
                continue;
            }
            for (const LaidControl& place : row.places) {
                if (!place.readout.IsEmpty()) {
                    readouts.push_back({{place.control}, place.readout});
                }
            }
        }
    }
}

Json FormText::DescribeControl(const LaidControl& place, std::size_t& readout) const
{
    Control& control = *place.control;
    Json json = {{"name", control.Name()}, {"type", TypeName(control.Kind())}};
    if (control.Kind() != ControlKind::Label) {
        json["wholeName"] = WholeName(form, control).In(language);
    }
    if (IsProse(control)) {
        json["isProse"] = true;
    }
    if (control.Kind() == ControlKind::Popup || control.Kind() == ControlKind::Radio) {
        for (const std::string_view item : static_cast<const Choice&>(control).Items()) {
            json["items"].push_back(Message::Listed(item).In(language));
        }
    }
    if (place.hasCaption || control.Declared().captionAbove) {
        const Label* const label = control.CaptionLabel();
        json["captionOf"] = label == nullptr ? control.Name() : label->Name();
    }
    if (!place.rowName.empty()) {
        json["rowName"] = Message::Listed(place.rowName).In(language);
    }
    if (!place.readout.IsEmpty()) {
        json["readout"] = readout++;
    }
    if (place.isShort) {
        json["isShort"] = true;
    }
    return json;
}

Json FormText::DescribeRow(const LaidRow& row, std::size_t& readout) const
{
    Json cells = Json::array();
    for (const LaidControl& place : row.places) {
        if (cells.empty() || !place.continuesCell) {
            cells.push_back(Json::array());
        }
        cells.back().push_back(DescribeControl(place, readout));
    }
    Json json = {{"cells", std::move(cells)}};
    if (row.isOfTable) {
        json["isOfTable"] = true;
        json["readout"] = readout++;
        if (row.above != nullptr) {
            json["copy"] = NameOfCopy(row).In(language);
        }
    }
    return json;
}

Json FormText::Description() const
{
    Json described = Json::array();
    std::size_t readout = 0;
    for (const LaidGroup& group : groups) {
        Json rows = Json::array();
        for (const LaidRow& row : group.rows) {
            rows.push_back(DescribeRow(row, readout));
        }
        described.push_back({{"title", TitleOf(group.group).In(language)},
                             {"isMargins", group.group == Group::Margins},
                             {"isSpacing", group.group == Group::Spacing},
                             {"isFile", group.group == Group::File},
                             {"rows", std::move(rows)}});
    }
    return {{"groups", std::move(described)}, {"hasTables", HasTables(form)}};
}

Json FormText::State(const Message& summary) const
{
    Json controls = Json::object();
    for (Control* const control : form.Controls()) {
        controls[std::string(control->Name())] = StateOf(form, *control, language);
    }
    Json texts = Json::array();
    for (const ReadoutPlace& place : readouts) {
        texts.push_back(ReadoutText(form, place.fields, place.parts).In(language));
    }
    Json known = Json::array();
    for (const LaidGroup& group : groups) {
        known.push_back((group.group == Group::Spacing ? summary : KnownOf(form, group.group)).In(language));
    }
    return {{"controls", std::move(controls)}, {"readouts", std::move(texts)}, {"known", std::move(known)}};
}

const LaidRow* FormText::RowOf(std::string_view firstControl) const
{
    for (const LaidGroup& group : groups) {
        for (const LaidRow& row : group.rows) {
            if (row.isOfTable && row.places.front().control->Name() == firstControl) {
                return &row;
            }
        }
    }
    return nullptr;
}

}  // namespace linealis::web
