#include "pipeline/Controls.h"

#include <utility>

namespace linealis {

namespace {

Control Make(std::string_view name, ControlKind kind, std::string_view caption)
{
    Control control;
    control.name = name;
    control.kind = kind;
    control.caption = caption;
    return control;
}

Control WithItems(Control control, std::vector<std::string_view> items, int listIndex)
{
    control.items = std::move(items);
    control.listIndex = listIndex;
    return control;
}

}  // namespace

Control textField(std::string_view name, std::string_view caption, std::string_view text)
{
    Control control = Make(name, ControlKind::Text, caption);
    control.text = text;
    return control;
}

Control popup(std::string_view name, std::string_view caption, std::vector<std::string_view> items, int listIndex)
{
    return WithItems(Make(name, ControlKind::Popup, caption), std::move(items), listIndex);
}

Control radioGroup(std::string_view name, std::string_view caption, std::vector<std::string_view> items,
                   int listIndex)
{
    return WithItems(Make(name, ControlKind::Radio, caption), std::move(items), listIndex);
}

Control checkBox(std::string_view name, std::string_view caption, bool value)
{
    Control control = Make(name, ControlKind::Check, caption);
    control.value = value;
    return control;
}

Control swatch(std::string_view name, std::string_view caption, Color color)
{
    Control control = Make(name, ControlKind::Color, caption);
    control.color = color;
    return control;
}

Control label(std::string_view name, std::string_view caption)
{
    return Make(name, ControlKind::Label, caption);
}

Control unitLabel(std::string_view name, std::string_view inInches, std::string_view inCm)
{
    Control control = Make(name, ControlKind::Label, "-");
    control.captionInInches = inInches;
    control.captionInCm = inCm;
    return control;
}

}  // namespace linealis
