#include "api/Table.h"

#include "exchange/FormJson.h"
#include "exchange/PageFormats.h"
#include "kinds/Presets.h"
#include "pipeline/form/FieldWords.h"
#include "pipeline/form/SetControl.h"

#include <algorithm>

namespace linealis::api {

namespace {

/// Adds the cells, in the order of the columns.
void AddRow(linealis_table& table, std::initializer_list<std::string_view> cells)
{
    table.rows.emplace_back(cells.begin(), cells.end());
}

}  // namespace

linealis_table TableOfKinds()
{
    linealis_table table{{"name", "title", "extension"}, {}};
    for (const PaperKind& kind : PaperKinds()) {
        AddRow(table, {kind.name, kind.title, kind.settingsType.extension});
    }
    return table;
}

linealis_table TableOfPresets()
{
    linealis_table table{{"name", "kind", "title"}, {}};
    for (const Preset& preset : Presets()) {
        AddRow(table, {preset.id, preset.kind, preset.title});
    }
    return table;
}

linealis_table TableOfFormats()
{
    linealis_table table{{"name", "title", "type"}, {}};
    for (const PageFormat& format : PageFormats()) {
        AddRow(table, {format.name, format.title, format.mimeType});
    }
    return table;
}

linealis_table TableOfControls(const Form& form)
{
    linealis_table table{{"name", "alias", "type", "caption", "title", "value", "enabled", "remark"}, {}};
    for (const Control* const control : form.Controls()) {
        if (control->Kind() == ControlKind::Label) {
            continue;
        }
        const std::string remark = control->Kind() == ControlKind::Text
                                       ? static_cast<const TextField&>(*control).Remark().English()
                                       : std::string();
        AddRow(table, {control->Name(), control->Alias(), TypeName(control->Kind()), control->Caption(),
                       WholeName(form, *control).English(), ValueOf(*control), control->IsEnabled() ? "on" : "off",
                       remark});
    }
    return table;
}

linealis_table TableOfItems(const Control& control)
{
    linealis_table table{{"item"}, {}};
    if (control.Kind() == ControlKind::Popup || control.Kind() == ControlKind::Radio) {
        for (const std::string_view item : static_cast<const Choice&>(control).Items()) {
            AddRow(table, {item});
        }
    }
    return table;
}

linealis_table TableOfWarnings(const PageWarnings& warnings)
{
    linealis_table table{{"id", "control", "text"}, {}};
    for (const PageWarning& warning : warnings) {
        AddRow(table, {warning.id, warning.control, warning.text.English()});
    }
    return table;
}

std::vector<std::string> ColumnOf(const linealis_table& table, std::string_view column)
{
    const auto at = std::find(table.columns.begin(), table.columns.end(), column) - table.columns.begin();
    std::vector<std::string> cells;
    for (const std::vector<std::string>& row : table.rows) {
        cells.push_back(row.at(static_cast<std::size_t>(at)));
    }
    return cells;
}

}  // namespace linealis::api
