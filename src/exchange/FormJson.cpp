#include "exchange/FormJson.h"

#include "exchange/CarriedText.h"
#include "exchange/PageFormats.h"
#include "pipeline/form/FieldWords.h"
#include "pipeline/form/SetControl.h"
#include "text/MacRoman.h"
#include "text/ShortText.h"

#include <array>
#include <cstdio>
#include <optional>
#include <utility>

namespace linealis {

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

namespace {

/// Adds the value of a control and related properties to its JSON object.
struct ControlDescriber {
    Json& json;

    void operator()(const TextField& field) const
    {
        json["value"] = field.Text();
        if (const Message remark = field.Remark(); !remark.IsEmpty()) {
            json["remark"] = remark.English();
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

/// Whether a terminal obeys the character, although JSON does not escape it: DEL, and the C1 controls U+0080 to
/// U+009F.
bool CommandsTerminal(std::string_view character)
{
    return character == "\x7F" || (character >= "\xC2\x80" && character <= "\xC2\x9F");
}

/// Returns the JSON escape of a character below U+0100. Its last UTF-8 byte is enough: the controls of
/// CommandsTerminal are one byte, or 0xC2 and a byte equal to their code.
std::string JsonEscape(std::string_view character)
{
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "\\u00%02X",
                  static_cast<unsigned>(static_cast<unsigned char>(character.back())));
    return text.data();
}

/// Returns the error for a file that should carry a form. Nobody expects one of a PDF file, unless told so.
FormError CarriesNoForm(const std::string& file, std::string_view bytes)
{
    return {IsPdf(bytes) ? Message("%1: carries no form; of PDF files, only those of pads do", file)
                         : Message("%1: is a picture that carries no form", file)};
}

/// The deepest nesting of objects and lists that is accepted. A form needs less.
constexpr int deepestForm = 8;

/// Extracts a form from the events of the JSON parser, without building the document, so that time and memory are
/// proportional to the text. The parser defines the names of the public functions. Throws FormError.
///
/// The depth is 1 in the outermost object, 2 in "controls", and 3 in the object of a control.
class FormReader final : public nlohmann::json_sax<Json> {
public:
    /// `theCarrier` is the file that carries the form, if it is not a file of JSON.
    FormReader(FormFile& theFile, std::optional<std::string_view> theCarrier) : file(theFile), carrier(theCarrier)
    {}

    bool HasControls() const { return hasControls; }

    bool null() override
    {
        if (IsControl()) {
            file.controls.pop_back();  // null counts as absent
        } else if (IsValue()) {
            NoteFault(Message("is a text, a number, true or false, not null"));
        }
        return true;
    }
    bool boolean(bool value) override { return Take(value ? "on" : "off"); }
    bool number_integer(number_integer_t value) override { return Take(std::to_string(value)); }
    bool number_unsigned(number_unsigned_t value) override { return Take(std::to_string(value)); }
    bool number_float(number_float_t value, const string_t& /*text*/) override { return Take(Json(value).dump()); }
    bool string(string_t& value) override
    {
        if (depth == 1 && section == "kind") {
            file.kind = value;
        }
        return Take(std::move(value));
    }
    bool binary(binary_t& /*value*/) override { return true; }

    bool start_object(std::size_t /*size*/) override
    {
        if (depth == 1 && section == "controls") {
            hasControls = inControls = true;
        } else if (IsControl()) {
            file.controls.back().fault = Message("has no \"value\"");
        } else if (IsValue()) {
            NoteFault(Message("is a text, a number, true or false, not an object"));
        }
        return Enter();
    }
    bool end_object() override { return Leave(); }
    bool start_array(std::size_t /*size*/) override
    {
        if (IsControl() || IsValue()) {
            NoteFault(Message("is a text, a number, true or false, not a list"));
        }
        return Enter();
    }
    bool end_array() override { return Leave(); }
    bool key(string_t& name) override
    {
        if (depth == 1) {
            section = std::move(name);
        } else if (inControls && depth == 2) {
            AddControl(std::move(name));
        } else if (inControls && depth == 3) {
            field = std::move(name);
        }
        return true;
    }

    bool parse_error(std::size_t byte, const std::string& /*token*/,
                     const nlohmann::detail::exception& error) override
    {
        constexpr int numberOverflow = 406;
        if (error.id == numberOverflow) {
            throw FormError{
                Message("%1: is not a form: it has a number beyond 1.8e308; write it as a text", file.name)};
        }
        throw carrier ? CarriesNoForm(file.name, *carrier)
                      : FormError{Message("%1: is not valid JSON: byte %2", file.name, std::to_string(byte))};
    }

private:
    /// Whether the value that begins here belongs to a key of "controls".
    bool IsControl() const { return inControls && depth == 2; }
    /// Whether the value that begins here is the "value" in the object of a control.
    bool IsValue() const { return inControls && depth == 3 && field == "value"; }

    bool Enter()
    {
        field.clear();
        if (++depth > deepestForm) {
            throw FormError{
                Message("%1: is not a form: it has lists or objects more than %2 deep", file.name, deepestForm)};
        }
        return true;
    }

    bool Leave()
    {
        field.clear();
        if (--depth == 1) {
            inControls = false;
        }
        return true;
    }

    /// Adds a control. Of a repeated name, the last one counts, as is usual in JSON.
    void AddControl(std::string name)
    {
        std::erase_if(file.controls, [&](const GivenControl& control) { return control.name == name; });
        if (file.controls.size() == mostControls) {
            throw FormError{Message("%1: is not a form: it has more than %2 controls", file.name, mostControls)};
        }
        file.controls.push_back({std::move(name), {}, {}});
    }

    /// Stores a value if it belongs to a control. Always returns true, to continue parsing.
    bool Take(std::string value)
    {
        if (IsControl() || IsValue()) {
            file.controls.back().value = std::move(value);
            file.controls.back().fault = {};
        }
        return true;
    }

    /// Stores that the last control has something else instead of a value. Reported only if the control is set,
    /// since labels may have anything.
    void NoteFault(Message fault) { file.controls.back().fault = std::move(fault); }

    FormFile& file;
    std::optional<std::string_view> carrier;
    int depth = 0;        ///< the number of open objects and lists
    std::string section;  ///< the last key in the outermost object
    std::string field;    ///< the last key in the object of a control
    bool hasControls = false;
    bool inControls = false;
};

/// Whether the control does not affect the values of other controls.
bool IsPlainValue(const Control& control)
{
    return control.Kind() == ControlKind::Text || control.Kind() == ControlKind::Color;
}

/// Sets the controls that are plain values, or the others. An unknown name is an error in either pass. Skips
/// labels.
void SetControls(const FormFile& file, const PaperKind& kind, const Form& form, bool plainValues)
{
    for (const auto& [name, value, fault] : file.controls) {
        Control* const control = FindByNameOrAlias(form, name);
        if (form.Find<Label>(name) || (control && IsPlainValue(*control) != plainValues)) {
            continue;
        }
        if (!fault.IsEmpty()) {
            throw FormError{Message("%1: %2 %3", file.name, Shortened(name), fault)};
        }
        if (control == nullptr || ValueOf(*control) != value) {  // setting an equal value can have side effects
            SetControl(kind.name, form, {name, value});
        }
    }
}

}  // namespace

std::string JsonText(const Json& json)
{
    constexpr int indent = 2;
    // The texts of a damaged settings file may be invalid UTF-8.
    const std::string text = json.dump(indent, ' ', false, Json::error_handler_t::replace);
    std::string harmless;
    for (const std::string_view character : Characters(text)) {
        harmless += CommandsTerminal(character) ? JsonEscape(character) : std::string(character);
    }
    return harmless + '\n';
}

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
    FormFile file{std::move(name), {}, {}};
    const std::optional<std::string> carried = TextInPicture(text);
    if (carried && carried->empty()) {
        throw CarriesNoForm(file.name, text);
    }
    const std::string_view json = carried ? *carried : text;
    if (json.size() > longestForm) {
        throw FormError{Message("%1: is too large for a form", file.name)};
    }
    FormReader reader(file, carried || IsNameOfCarrier(file.name) ? std::optional(text) : std::nullopt);
    Json::sax_parse(json, &reader);
    if (!reader.HasControls()) {
        throw FormError{Message("%1: is not a form: it has no object \"controls\"", file.name)};
    }
    return file;
}

FormFile ReadFormFile(const FolderItem& file)
{
    BinaryStream stream = file.OpenAsBinaryFile();
    const std::string text = stream.ReadRest(longestForm);
    if (stream.Error()) {
        throw FormError{Message("%1: %2", file.Name(), stream.Error().message())};
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

void LayOver(const FormFile& file, const PaperKind& kind, Form& form)
{
    if (!file.kind.empty() && file.kind != kind.name) {
        throw FormError{Message("the form in %1 is of %2, not of %3", file.name, Shortened(file.kind), kind.name)};
    }
    const std::vector<ControlState> before = form.State();
    try {
        for (const bool plainValues : {false, true}) {
            SetControls(file, kind, form, plainValues);
        }
    } catch (...) {
        form.Restore(before);
        throw;
    }
}

}  // namespace linealis
