#include "cli/FormJson.h"

#include <array>
#include <cstdio>

namespace linealis::cli {

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

std::string HexColor(Color color)
{
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02X%02X%02X", color.red, color.green, color.blue);
    return text.data();
}

/// What a control holds, and what else there is to know of it.
struct ControlDescriber {
    Json& json;

    void operator()(const TextField& field) const { json["value"] = field.Text(); }
    void operator()(const Choice& choice) const
    {
        json["value"] = choice.Selected();
        json["index"] = choice.ListIndex();
        json["items"] = choice.Items();
    }
    void operator()(const CheckBox& box) const { json["value"] = box.Value(); }
    void operator()(const Swatch& swatch) const { json["value"] = HexColor(swatch.Shown()); }
    void operator()(const Label& label) const { json["value"] = label.Caption(); }
};

}  // namespace

Json ControlJson(Control& control)
{
    Json json = {{"type", TypeName(control.Kind())}, {"caption", control.Caption()}};
    Visit(control, ControlDescriber{json});
    json["enabled"] = control.IsEnabled();
    return json;
}

}  // namespace linealis::cli
