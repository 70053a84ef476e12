// Fuzzes setting controls and typing into them by name. The value that a control returns can be set again and
// changes nothing.

#include "Fuzz.h"
#include "pipeline/form/FieldWords.h"
#include "pipeline/form/SetControl.h"

using namespace linealis;
using namespace linealis::fuzz;

namespace {

/// Executes a line: a control, "=" to set it or ":" to type into it, and the value.
void Do(std::string_view line, const Form& form)
{
    const std::size_t end = std::min(line.find_first_of("=:"), line.size());
    const std::string_view name = line.substr(0, end), value = line.substr(std::min(end + 1, line.size()));
    if (line.substr(end).starts_with(':')) {
        TypeIntoControl("form", form, {name, value});
        return;
    }
    SetControl("form", form, {name, value});
    Control& control = *FindByNameOrAlias(form, name);
    const std::string held = ValueOf(control);
    SetControl("form", form, {name, held});
    Require(ValueOf(control) == held);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const PaperKind& kind = input.Kind();
    ScreenlessPlatform platform;
    const Paper paper = kind.makePaper(platform);
    while (!input.IsEmpty()) {
        const std::vector<ControlState> before = paper.form->State();
        try {
            Do(input.Line(), *paper.form);
        } catch (const UnknownInput& unknown) {
            Require(!unknown.possible.empty() && paper.form->State() == before);
        }
    }
    for (Control* const control : paper.form->Controls()) {
        ValueOf(*control);
    }
    return 0;
}
