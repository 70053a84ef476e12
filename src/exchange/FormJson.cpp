#include "exchange/FormJson.h"

#include "exchange/CarriedText.h"
#include "pipeline/FieldWords.h"
#include "pipeline/SetControl.h"

namespace linealis {

namespace {

const char* TypeName(ControlKind kind)
{
    switch (kind) {
    case ControlKind::Text:
        return "text";
    case ControlKind::Popup:
        return "popup";
    case ControlKind::Check:
        return "check";
    case ControlKind::Radio:
        return "radio";
    case ControlKind::Color:
        return "color";
    case ControlKind::Label:
        return "label";
    }
    return "";
}

/// What a control holds, and what else there is to know of it.
struct ControlDescriber {
    Json& json;

    void operator()(const TextField& field) const
    {
        json["value"] = field.Text();
        if (std::string remark = field.Remark(); !remark.empty()) {
            json["remark"] = std::move(remark);
        }
    }
    void operator()(const Choice& choice) const
    {
        json["value"] = choice.Selected();
        json["index"] = choice.ListIndex();
        json["items"] = choice.Items();
    }
    void operator()(const CheckBox& box) const { json["value"] = box.Value(); }
    void operator()(Swatch& swatch) const { json["value"] = ValueOf(swatch); }
    void operator()(const Label& label) const { json["value"] = label.Caption(); }
};

/// Objects and lists within each other that a form needs no more than; what goes deeper wants to exhaust the stack.
constexpr int deepestForm = 8;

/// Throws FormError.
Json ParseJson(const std::string& name, std::string_view text)
{
    const auto limitDepth = [&](int depth, Json::parse_event_t, const Json&) {
        if (depth > deepestForm) {
            throw FormError{name + ": is no form: it has lists or objects more than " +
                            std::to_string(deepestForm) + " deep"};
        }
        return true;
    };
    try {
        return Json::parse(text, limitDepth);
    } catch (const Json::parse_error& error) {
        throw FormError{name + ": is no JSON: byte " + std::to_string(error.byte)};
    } catch (const Json::out_of_range&) {
        throw FormError{name + ": is no form: it has a number beyond 1.8e308; a text can hold it"};
    }
}

/// As JSON, cut after what a message has room for.
std::string ShortText(const Json& json)
{
    constexpr std::size_t longest = 60;
    const std::string text = json.dump(-1, ' ', true);
    return text.size() <= longest ? text : text.substr(0, longest) + "...";
}

/// What SetControl takes for a control of the file.
std::string GivenValue(const FormFile& file, const std::string& control, const Json& given)
{
    if (given.is_object()) {
        const auto value = given.find("value");
        if (value == given.end()) {
            throw FormError{file.name + ": " + control + " has no \"value\""};
        }
        return GivenValue(file, control, *value);
    }
    if (given.is_boolean()) {
        return given.get<bool>() ? "on" : "off";
    }
    if (given.is_string()) {
        return given.get<std::string>();
    }
    if (given.is_number()) {
        return given.dump();
    }
    throw FormError{file.name + ": " + control + " is a text, a number, true or false, not " + ShortText(given)};
}

/// Whether the other controls' values do not depend on this one.
bool IsPlainValue(const Control& control)
{
    return control.Kind() == ControlKind::Text || control.Kind() == ControlKind::Color;
}

}  // namespace

Json ControlJson(Control& control)
{
    Json json = {{"type", TypeName(control.Kind())}, {"caption", control.Caption()}};
    Visit(control, ControlDescriber{json});
    json["enabled"] = control.IsEnabled();
    return json;
}

Json KindJson(const PaperKind& kind)
{
    return {{"kind", kind.name}, {"title", kind.title}, {"extension", kind.settingsType.extension}};
}

Json FormJson(const PaperKind& kind, const Form& form)
{
    Json json = KindJson(kind);
    json["controls"] = Json::object();
    for (Control* const control : form.Controls()) {
        json["controls"][std::string(control->Name())] = ControlJson(*control);
    }
    json["aliases"] = Json::object();
    for (const Control* const control : form.Controls()) {
        if (control->Kind() != ControlKind::Label) {
            json["aliases"][std::string(control->Alias())] = control->Name();
        }
    }
    return json;
}

FormFile ParseForm(std::string name, std::string_view text)
{
    FormFile file{std::move(name), "", Json::object()};
    const std::optional<std::string> carried = TextInPicture(text);
    if (carried && carried->empty()) {
        throw FormError{file.name + ": is a picture that carries no form"};
    }
    Json json = ParseJson(file.name, carried ? *carried : text);
    if (!json.is_object() || !json.contains("controls") || !json["controls"].is_object()) {
        throw FormError{file.name + ": is no form: it has no object \"controls\""};
    }
    if (json.contains("kind") && json["kind"].is_string()) {
        file.kind = json["kind"];
    }
    file.controls = std::move(json["controls"]);
    return file;
}

FormFile ReadFormFile(const FolderItem& file)
{
    BinaryStream stream = file.OpenAsBinaryFile();
    const std::string text = stream.ReadRest(longestFormFile);
    if (stream.Error()) {
        throw FormError{file.Name() + ": " + stream.Error().message()};
    }
    if (text.size() > longestFormFile) {
        throw FormError{file.Name() + ": is larger than any form"};
    }
    return ParseForm(file.Name(), text);
}

std::string CarriedForm(const PaperKind& kind, const Form& form)
{
    Json json = {{"kind", kind.name}, {"controls", Json::object()}};
    for (Control* const control : form.Controls()) {
        if (control->Kind() != ControlKind::Label) {
            json["controls"][std::string(control->Name())] = ValueOf(*control);
        }
    }
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

void LayOver(const FormFile& file, const PaperKind& kind, const Form& form)
{
    if (!file.kind.empty() && file.kind != kind.name) {
        throw FormError{"the form in " + file.name + " is of " + file.kind + ", not of " + std::string(kind.name)};
    }
    for (const bool plainValues : {false, true}) {
        for (const auto& [name, given] : file.controls.items()) {
            Control* const control = FindByNameOrAlias(form, name);
            if (given.is_null() || form.Find<Label>(name) || (control && IsPlainValue(*control) != plainValues)) {
                continue;
            }
            const std::string value = GivenValue(file, name, given);
            if (control == nullptr || ValueOf(*control) != value) {  // setting the same again may do something
                SetControl(kind.name, form, {name, value});
            }
        }
    }
}

}  // namespace linealis
