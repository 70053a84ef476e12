// Fuzzes a whole form. Whatever is entered, in whatever order, drawing ends, and the content can be read to its
// end.

#include "Fuzz.h"
#include "exchange/SvgPage.h"
#include "pdf/PageContent.h"
#include "pipeline/form/SetControl.h"
#include "pipeline/page/PageJob.h"

#include <cmath>

using namespace linealis;
using namespace linealis::fuzz;

namespace {

/// Sets a control to a value from the input.
void Enter(const Form& form, Input& input)
{
    Control& control = *form.Controls()[input.Byte() % form.Controls().size()];
    const std::uint8_t choice = input.Byte();
    switch (control.Kind()) {
    case ControlKind::Text: {
        auto& field = static_cast<TextField&>(control);
        const std::string text(input.Line());
        choice % 2 == 0 ? field.SetText(text) : field.Type(text);
        break;
    }
    case ControlKind::Popup:
    case ControlKind::Radio:
        static_cast<Choice&>(control).SetListIndex(choice);
        break;
    case ControlKind::Check:
        static_cast<CheckBox&>(control).Click(choice % 2 == 0);
        break;
    case ControlKind::Color:
        static_cast<Swatch&>(control).SetColor({choice, input.Byte(), input.Byte()});
        break;
    case ControlKind::Label:
        break;
    }
}

/// Whether a text of the form may damage the page, as texts with parentheses and backslashes can.
bool CanBreak(const Form& form)
{
    for (const Control* const control : form.Controls()) {
        if (control->Kind() == ControlKind::Text &&
            static_cast<const TextField*>(control)->Text().find_first_of("()\\\r\n") != std::string::npos) {
            return true;
        }
    }
    return false;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr int mostEntered = 64;
    constexpr std::int64_t mostRounds = 1000;  // pages that need more are abandoned after about a millisecond
    Input input(data, size);
    const PaperKind& kind = input.Kind();
    ScreenlessPlatform platform;
    const Paper paper = kind.makePaper(platform);
    for (int i = 0; i < mostEntered && !input.IsEmpty(); ++i) {
        Enter(*paper.form, input);
    }
    const PaperPage page = paper.readPage();
    page.describe();
    Turns turns([] {}, mostRounds);
    try {
        const std::string content = DrawPage(page, turns).content.Operator_Convert();
        PageReader reader(content);
        while (reader.Next()) {
            for (const double operand : reader.Operands()) {
                Require(std::isfinite(operand));
            }
        }
        Require(!reader.IsDamaged() || CanBreak(*paper.form));
        std::string svg;
        BinaryStream stream = BinaryStream::IntoMemory(svg);
        WriteSvg({page.frame.paperWidth, page.frame.paperHeight}, content, {}, "", stream);
    } catch (const PageGivenUp& givenUp) {
        Require(!givenUp.reason.Text().empty());
    }
    return 0;
}
