// Fuzzes links. A link is either laid over a new form or rejected with a message. The link of the resulting form
// leads to the same form.

#include "Fuzz.h"
#include "exchange/FormLink.h"
#include "pipeline/form/SetControl.h"

#include <memory>

using namespace linealis;
using namespace linealis::fuzz;

namespace {

/// Lays a link over a new form of the kind that it names, if there is that kind. Returns whether it was laid over.
bool IsLaidOver(const FormFile& file, const PaperKind& kind, Form& form)
{
    const std::vector<ControlState> before = form.State();
    try {
        LayOver(file, kind, form);
        return true;
    } catch (const FormError& error) {
        Require(!error.message.IsEmpty());
    } catch (const UnknownInput& unknown) {
        Require(!unknown.possible.empty());
    }
    Require(form.State() == before);
    return false;
}

void RequireSameFormFromLink(const PaperKind& kind, const Form& form)
{
    const std::string link = FormLink(kind, form);
    if (link.size() > longestLink) {
        return;  // long texts of characters that a link encodes
    }
    ScreenlessPlatform platform;
    const std::unique_ptr<PaperWindow> twin = MakeWindow(kind, platform);
    LayOver(ParseLink(link), kind, twin->form);
    Require(CarriedForm(kind, twin->form) == CarriedForm(kind, form) && FormLink(kind, twin->form) == link);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FormFile file;
    try {
        file = ParseLink(Input(data, size).All());
    } catch (const FormError& error) {
        Require(error.message.English().starts_with("link: "));
        return 0;
    }
    Require(!file.kind.empty() && file.controls.size() <= mostControls);
    const PaperKind* const kind = FindPaperKind(file.kind);
    if (kind == nullptr) {
        return 0;
    }
    ScreenlessPlatform platform;
    const std::unique_ptr<PaperWindow> window = MakeWindow(*kind, platform);
    if (IsLaidOver(file, *kind, window->form)) {
        RequireSameFormFromLink(*kind, window->form);
    }
    return 0;
}
