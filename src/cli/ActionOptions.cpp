#include "cli/ActionOptions.h"

#include <array>

namespace linealis::cli {

namespace {

const char* const actionHelp =
    "Actions are applied in the order given:\n"
    "  --set CONTROL=VALUE   text; item or #INDEX of a popup or radio group; on or off; color #RRGGBB, #RGB or "
    "name\n"
    "  --type CONTROL=TEXT   text typed by hand, so that what follows from it is worked out anew\n"
    "  --load FILE           load a settings file\n"
    "  --markers FILE        of graph, with CheckBoxMarkers on: the file of its markers\n"
    "  --wizard CONTROL=TEXT of graph: fill in the wizard, whose OK is pressed after all other actions\n"
    "  --x-range MIN:MAX     of graph: fit the X axis to a range of data, after all other actions; likewise\n"
    "                        --y-range; MIN:MAX:log makes the axis logarithmic\n"
    "  --fineness WORD       of graph: the lines of these axes: coarse, medium (if not given) or fine\n"
    "A control has a name, EditTopMargin, and an alias, top-margin; either will do. 'linealis-cli form KIND' "
    "shows\n"
    "both, 'linealis-cli presets' the presets.\n";

}  // namespace

void ActionOptions::AddTo(CLI::App& theCommand, const std::function<bool(std::string_view names)>& isWanted)
{
    struct Sort {
        const char* name;
        const char* argument;
        const char* help;
        Action::Kind kind;
    };
    static constexpr std::array sorts = {
        Sort{"--set", "CONTROL=VALUE", "Set a control", Action::Kind::Set},
        Sort{"--type", "FIELD=TEXT", "Type a text into a field", Action::Kind::Type},
        Sort{"--load", "FILE", "Load a settings file", Action::Kind::Load},
        Sort{"--markers", "FILE", "The marker file of a graph with CheckBoxMarkers on", Action::Kind::Markers},
        Sort{"--wizard", "WIZARD=TEXT", "Fill in the wizard of a graph", Action::Kind::Wizard},
        Sort{"--x-range", "MIN:MAX[:log]", "Fit the X axis of a graph to a range of data", Action::Kind::XRange},
        Sort{"--y-range", "MIN:MAX[:log]", "Fit the Y axis of a graph to a range of data", Action::Kind::YRange},
        Sort{"--fineness", "FINENESS", "The lines of a range: coarse, medium or fine", Action::Kind::Fineness},
    };
    command = &theCommand;
    for (const Sort& sort : sorts) {
        if (isWanted(sort.name)) {
            Add(sort.name, sort.argument, sort.help, sort.kind);
        }
    }
    command->footer(actionHelp);
}

std::vector<Action> ActionOptions::InOrder() const
{
    std::vector<Action> actions;
    // An option that is given several times appears as often in the parse order, and its values are in that order
    // too.
    std::map<const CLI::Option*, std::size_t> taken;
    for (const CLI::Option* const option : command->parse_order()) {
        if (const auto kind = kinds.find(option); kind != kinds.end()) {
            actions.push_back({kind->second, option->results()[taken[option]++]});
        }
    }
    return actions;
}

void ActionOptions::Add(const char* name, const char* argument, const char* help, Action::Kind kind)
{
    kinds[command->add_option(name)->description(help)->type_name(argument)->expected(1)->take_all()] = kind;
}

}  // namespace linealis::cli
