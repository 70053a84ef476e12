#include "cli/Source.h"

#include "check/PageCheck.h"
#include "cli/Errors.h"
#include "cli/FileNames.h"
#include "cli/InputText.h"
#include "exchange/CarriedText.h"
#include "exchange/FormLink.h"
#include "exchange/PageFormats.h"
#include "pipeline/form/FieldWords.h"
#include "text/LetterCase.h"

#include <algorithm>

namespace linealis::cli {

namespace {

/// Whether files with that extension, such as ".svg", may contain a form.
bool MayCarryForm(std::string_view ending)
{
    return IsSameText(ending, ".json") || IsNameOfCarrier(ending);
}

std::vector<std::string> KindNames()
{
    std::vector<std::string> names;
    for (const PaperKind& kind : PaperKinds()) {
        names.emplace_back(kind.name);
    }
    return names;
}

std::vector<std::string> PresetNames()
{
    std::vector<std::string> names;
    for (const Preset& preset : Presets()) {
        names.emplace_back(preset.id);
    }
    return names;
}

/// Returns suggestions for a source that does not exist: files if it has an extension, otherwise names.
std::vector<std::string> PossibleSources(const std::string& ending)
{
    std::vector<std::string> possible;
    if (ending.empty()) {
        possible = KindNames();
        const std::vector<std::string> presets = PresetNames();
        possible.insert(possible.end(), presets.begin(), presets.end());
        return possible;
    }
    for (const PaperKind& kind : PaperKinds()) {
        possible.push_back("FILE." + std::string(kind.settingsType.extension));
    }
    for (const PageFormat& format : PageFormats()) {
        if (format.givesForm) {
            possible.push_back("FILE." + std::string(format.name));
        }
    }
    possible.emplace_back("FILE.json");
    return possible;
}

/// Throws UsageError if there is no such preset.
Source PresetNamed(const std::string& id)
{
    if (const Preset* const preset = FindPreset(id)) {
        return {id, Source::Sort::Preset, &KindOf(*preset), preset};
    }
    throw Unknown("preset", id, PresetNames());
}

/// Returns the paper of a link. Throws UsageError if it holds no form of an existing kind.
Source PaperOfLink(const std::string& link)
{
    try {
        auto form = std::make_shared<const FormFile>(ParseLink(link));
        const PaperKind& kind = KindNamed(form->kind);
        return {form->name, Source::Sort::Kind, &kind, nullptr, std::move(form)};
    } catch (const FormError& error) {
        throw UsageError{error.message.English()};
    }
}

/// Reads a form from a file or, for "-", from standard input. Throws WorkError if that fails.
FormFile ReadForm(const std::string& fileName)
{
    try {
        return fileName == "-" ? ParseForm("standard input", ReadInput(fileName, longestFormFile))
                               : ParseForm(fileName, ReadBeginning(fileName, longestForm));
    } catch (const FormError& error) {
        throw WorkError{error.message.English()};
    }
}

/// Returns the kind that the form names. Throws UsageError if it names none.
const PaperKind& KindOf(const FormFile& form)
{
    if (form.kind.empty()) {
        throw UsageError{"source is required: the form in " + form.name + " has no \"kind\""};
    }
    return KindNamed(form.kind);
}

/// Whether the file gives a value for every control that can be set. Labels do not count.
bool IsWhole(const FormFile& file, const Form& form)
{
    const std::vector<Control*>& controls = form.Controls();
    const auto settable = std::count_if(controls.begin(), controls.end(), [](const Control* control) {
        return control->Kind() != ControlKind::Label;
    });
    return file.controls.size() >= static_cast<std::size_t>(settable);
}

/// Applies the form in the file. Throws UsageError if its kind or a value does not fit. Warns about controls that
/// have no effect, but only if the form is partial: a whole form, as `linealis-cli form` prints it, always contains
/// some.
void LayFormOver(const FormFile& file, const PaperKind& kind, PaperForm& form, PageWarnings& warnings)
{
    try {
        linealis::LayOver(file, kind, form);
    } catch (const FormError& error) {
        throw UsageError{error.message.English()};
    } catch (const UnknownInput& input) {
        throw Unknown(input);
    }
    if (IsWhole(file, form)) {
        return;
    }
    for (const GivenControl& given : file.controls) {
        if (const Control* const control = FindByNameOrAlias(form, given.name)) {
            WarnIfIdle(form, *control, warnings);
        }
    }
}

/// Throws UsageError if a source other than its own kind is given along with a preset.
void CheckNames(const std::vector<std::string>& names, const std::string& option, std::string_view kind)
{
    for (const std::string& name : names) {
        if (name != kind) {
            std::string message = option;
            message.append(" is a preset of ").append(kind).append(", and goes with no other source, such as '");
            throw UsageError{message.append(name).append("'")};
        }
    }
}

}  // namespace

std::vector<Source> SourcesOf(const SourceOptions& options)
{
    const auto form = options.form ? std::make_shared<const FormFile>(ReadForm(*options.form)) : nullptr;
    std::vector<Source> sources;
    if (options.preset) {
        sources.push_back(PresetNamed(*options.preset));
        CheckNames(options.names, "--preset " + *options.preset, sources.front().kind->name);
    } else if (form && options.names.empty()) {
        const PaperKind& kind = KindOf(*form);
        sources.push_back({std::string(kind.name), Source::Sort::Kind, &kind});
    } else if (options.names.empty()) {
        throw UsageError{"source is required: " + SourceWords() + ", --preset NAME or --form FILE"};
    }
    if (!options.preset) {
        std::transform(options.names.begin(), options.names.end(), std::back_inserter(sources), SourceNamed);
    }
    for (Source& source : sources) {
        if (form && source.form) {
            throw UsageError{"--form goes with no link, which holds a form already"};
        }
        source.form = form ? form : source.form;
    }
    return sources;
}

std::string SourceWords()
{
    return "a kind of paper, a preset, a settings file, a link, or a " +
           FormatTitles(&PageFormat::givesForm, "JSON") + " file that carries a form";
}

Source SourceNamed(const std::string& name)
{
    if (IsLink(name)) {
        return PaperOfLink(name);
    }
    if (const PaperKind* const kind = FindPaperKind(name)) {
        return {name, Source::Sort::Kind, kind};
    }
    if (FindPreset(name) != nullptr) {
        return PresetNamed(name);
    }
    if (const PaperKind* const kind = FindPaperKindOf(name)) {
        return {name, Source::Sort::Settings, kind};
    }
    const std::string ending = EndingOf(name);
    if (MayCarryForm(ending)) {
        return {name, Source::Sort::Form};
    }
    throw Unknown("kind", name, PossibleSources(ending));
}

const PaperKind& KindNamed(const std::string& name)
{
    if (const PaperKind* const kind = FindPaperKind(name)) {
        return *kind;
    }
    throw Unknown("kind", name, KindNames());
}

const PaperKind& KindOf(const Source& source)
{
    return source.kind != nullptr ? *source.kind : KindOf(ReadForm(source.name));
}

std::vector<std::string> InputsOf(const std::vector<Source>& sources, const std::vector<Action>& actions,
                                  bool withSettings)
{
    std::vector<std::string> inputs;
    for (const Source& source : sources) {
        if (source.sort == Source::Sort::Form || (source.sort == Source::Sort::Settings && withSettings)) {
            inputs.push_back(source.name);
        }
        if (source.form) {
            inputs.push_back(source.form->name);
        }
    }
    for (const Action& action : actions) {
        if (action.kind == Action::Kind::Markers || (action.kind == Action::Kind::Load && withSettings)) {
            inputs.push_back(action.argument);
        }
    }
    return inputs;
}

OpenWindow Open(const Source& source, const std::vector<Action>& actions, ScreenlessPlatform& platform)
{
    // Order matters: the source itself, the form that its file contains, the form of --form, then the actions.
    std::optional<FormFile> carried;
    if (source.sort == Source::Sort::Form) {
        carried = ReadForm(source.name);
    }
    const PaperKind& kind = carried ? KindOf(*carried) : *source.kind;
    OpenWindow open{&kind, MakeWindow(kind, platform), {}};
    if (source.preset != nullptr) {
        linealis::LayOver(*source.preset, *open.window, platform);
    } else if (source.sort == Source::Sort::Settings) {
        Load(source.name, *open.window);
    }
    if (carried) {
        LayFormOver(*carried, kind, open.window->form, open.warnings);
    }
    if (source.form) {
        LayFormOver(*source.form, kind, open.window->form, open.warnings);
    }
    const PageWarnings ofActions = Apply(actions, kind, *open.window, platform);
    open.warnings.insert(open.warnings.end(), ofActions.begin(), ofActions.end());
    return open;
}

}  // namespace linealis::cli
