#include "exchange/FormSchema.h"

#include "pipeline/form/FieldWords.h"
#include "pipeline/form/SetControl.h"
#include "platform/ScreenlessPlatform.h"

namespace linealis {

namespace {

/// Returns the schema of the values that SetControl takes, as JSON has them.
Json SchemaOfValue(const Control& control)
{
    switch (control.Kind()) {
    case ControlKind::Text:
        return {{"type", {"string", "number"}}};
    case ControlKind::Popup:
    case ControlKind::Radio: {
        Json items = {{"enum", Json::array()}};
        for (const std::string_view item : static_cast<const Choice&>(control).Items()) {
            items["enum"].push_back(item);
        }
        return {{"type", "string"}, {"anyOf", {items, {{"pattern", "^#[0-9]+$"}}}}};
    }
    case ControlKind::Check:
        return {{"enum", {true, false, "on", "off", "true", "false", "yes", "no", 1, 0, "1", "0"}}};
    case ControlKind::Color:
    case ControlKind::Label:
        break;
    }
    return {{"type", "string"}};
}

/// Returns the schema of what may stand for a control: its value, an object as FormJson writes it, or null, which
/// counts as absent.
Json SchemaOfControl(const Form& form, const Control& control)
{
    Json schema = {{"title", WholeName(form, control).English()}};
    if (control.Kind() == ControlKind::Text) {
        schema["description"] = HintOf(static_cast<const TextField&>(control)).English();
    }
    schema["default"] = ValueOf(control);
    const Json value = SchemaOfValue(control);
    const Json object = {{"type", "object"}, {"required", {"value"}}, {"properties", {{"value", value}}}};
    schema["anyOf"] = {value, object, {{"type", "null"}}};
    return schema;
}

/// Returns the schema of the forms of a kind. Adds the schemas of its controls, which it refers to, to
/// `definitions`.
Json SchemaOfKind(const PaperKind& kind, Json& definitions)
{
    ScreenlessPlatform platform;
    const Paper paper = kind.makePaper(platform);
    Json controls = Json::object();
    for (const Control* const control : paper.form->Controls()) {
        const std::string name(control->Name());
        if (control->Kind() == ControlKind::Label) {
            controls[name] = true;  // labels are ignored
            continue;
        }
        const std::string definition = std::string(kind.name) + "." + name;
        definitions[definition] = SchemaOfControl(*paper.form, *control);
        const Json reference = {{"$ref", "#/$defs/" + definition}};
        controls[name] = reference;
        controls[std::string(control->Alias())] = reference;
    }
    return {{"title", kind.title},
            {"type", "object"},
            {"required", {"controls"}},
            {"properties",
             {{"kind", {{"const", kind.name}}},
              {"controls", {{"type", "object"}, {"properties", controls}, {"additionalProperties", false}}}}}};
}

Json WithDefinitions(Json schema, const Json& definitions)
{
    Json whole = {{"$schema", "https://json-schema.org/draft/2020-12/schema"}};
    whole.update(schema);
    whole["$defs"] = definitions;
    return whole;
}

}  // namespace

Json FormSchema(const PaperKind& kind)
{
    Json definitions = Json::object();
    const Json schema = SchemaOfKind(kind, definitions);
    return WithDefinitions(schema, definitions);
}

Json FormSchema()
{
    Json definitions = Json::object(), kinds = Json::array();
    for (const PaperKind& kind : PaperKinds()) {
        kinds.push_back(SchemaOfKind(kind, definitions));
        kinds.back()["required"].push_back("kind");
    }
    return WithDefinitions({{"title", "Form of Linealis"}, {"oneOf", kinds}}, definitions);
}

}  // namespace linealis
