// Fuzzes forms in JSON. A form is either applied or rejected with a message. Writing the resulting form and
// applying it again gives the same values.

#include "Fuzz.h"
#include "exchange/FormJson.h"
#include "pipeline/form/SetControl.h"

using namespace linealis;
using namespace linealis::fuzz;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const PaperKind& kind = input.Kind();
    ScreenlessPlatform platform;
    const Paper paper = kind.makePaper(platform), twin = kind.makePaper(platform);
    try {
        LayOver(ParseForm("form", input.All()), kind, *paper.form);
    } catch (const FormError& error) {
        Require(!error.message.IsEmpty());
    } catch (const UnknownInput& unknown) {
        Require(!unknown.possible.empty());
    }
    LayOver(ParseForm("form", CarriedForm(kind, *paper.form)), kind, *twin.form);
    Require(CarriedForm(kind, *twin.form) == CarriedForm(kind, *paper.form));
    return 0;
}
