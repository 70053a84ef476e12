#include "api/Linealis.h"

#include "check/PageCheck.h"
#include "kinds/Presets.h"
#include "pipeline/form/FieldWords.h"
#include "platform/ScreenlessPlatform.h"

#include <stdexcept>

namespace linealis {

/// The window refers to the platform, so it is declared last and destroyed first.
struct Sheet::Parts {
    ScreenlessPlatform platform;
    std::unique_ptr<PaperWindow> window;
};

namespace {

/// Converts an input error to the exception of the public interface. Its message lists the possible inputs.
std::invalid_argument Unknown(const UnknownInput& input)
{
    std::string message = "unknown " + input.what + " '" + input.given + "'; possible: ";
    for (const std::string& possible : input.possible) {
        message += (&possible == &input.possible.front() ? "" : ", ") + possible;
    }
    return std::invalid_argument(message);
}

}  // namespace

std::vector<std::string> Sheet::Kinds()
{
    std::vector<std::string> names;
    for (const PaperKind& kind : PaperKinds()) {
        names.emplace_back(kind.name);
    }
    return names;
}

std::vector<std::string> Sheet::Presets()
{
    std::vector<std::string> ids;
    for (const Preset& preset : linealis::Presets()) {
        ids.emplace_back(preset.id);
    }
    return ids;
}

Sheet::Sheet(std::string_view kindOrPreset) : parts(std::make_unique<Parts>())
{
    if (const Preset* const preset = FindPreset(kindOrPreset)) {
        parts->window = MakeWindow(*preset, parts->platform);
    } else if (const PaperKind* const kind = FindPaperKind(kindOrPreset)) {
        parts->window = MakeWindow(*kind, parts->platform);
    } else {
        std::vector<std::string> possible = Kinds();
        const std::vector<std::string> presets = Presets();
        possible.insert(possible.end(), presets.begin(), presets.end());
        throw Unknown({"kind or preset", std::string(kindOrPreset), std::move(possible)});
    }
}

Sheet::Sheet(Sheet&& other) noexcept = default;
Sheet& Sheet::operator=(Sheet&& other) noexcept = default;
Sheet::~Sheet() = default;

std::vector<std::string> Sheet::Controls() const
{
    std::vector<std::string> names;
    for (const Control* const control : parts->window->form.Controls()) {
        if (control->Kind() != ControlKind::Label) {
            names.emplace_back(control->Name());
        }
    }
    return names;
}

std::string Sheet::Get(std::string_view control) const
{
    if (Control* const found = FindByNameOrAlias(parts->window->form, control)) {
        return ValueOf(*found);
    }
    throw Unknown({"control", std::string(control), Controls()});
}

void Sheet::Set(std::string_view control, std::string_view value)
{
    try {
        SetControl("the sheet", parts->window->form, {control, value});
    } catch (const UnknownInput& input) {
        throw Unknown(input);
    }
}

std::vector<std::string> Sheet::Warnings() const
{
    const PaperPage page = parts->window->ReadPage();
    PageWarnings warnings;
    try {
        Turns turns([] {});
        const DrawnPage drawn = DrawPage(page, turns);
        warnings = drawn.content.View().size() <= longestContentChecked ? WarningsOf(drawn) : page.warnings;
    } catch (const PageGivenUp& givenUp) {
        warnings = page.warnings;
        warnings.push_back({"too-large", "", Message(givenUp.reason)});
    }
    std::vector<std::string> texts;
    for (const PageWarning& warning : warnings) {
        texts.push_back(warning.text.English());
    }
    return texts;
}

std::string Sheet::Settings() const
{
    return parts->window->SettingsBytes();
}

void Sheet::Load(std::string_view settings)
{
    parts->window->LayOver(BinaryStream::FromMemory(settings));
}

std::string Sheet::Page() const
{
    try {
        Turns turns([] {});
        return FileBytesOf(DrawPage(parts->window->ReadPage(), turns), parts->platform.Now(), turns);
    } catch (const PageGivenUp& givenUp) {
        throw std::runtime_error(std::string(givenUp.reason.Text()));
    }
}

}  // namespace linealis
