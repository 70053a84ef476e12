#include "cli/Source.h"

#include "cli/Errors.h"
#include "cli/InputText.h"

#include <algorithm>

namespace linealis::cli {

namespace {

std::string ExtensionOf(const std::string& fileName)
{
    const std::string extension = std::filesystem::path(fileName).extension().string();
    return extension.empty() ? "" : extension.substr(1);
}

std::vector<std::string> KindNames()
{
    std::vector<std::string> names;
    for (const PaperKind& kind : PaperKinds()) {
        names.emplace_back(kind.name);
    }
    return names;
}

const Preset& PresetNamed(const std::string& id)
{
    if (const Preset* const preset = FindPreset(id)) {
        return *preset;
    }
    std::vector<std::string> possible;
    for (const Preset& preset : Presets()) {
        possible.emplace_back(preset.id);
    }
    throw Unknown("preset", id, possible);
}

FormFile ReadForm(const std::string& fileName)
{
    try {
        return ParseForm(fileName == "-" ? "standard input" : fileName, ReadInput(fileName, longestFormFile));
    } catch (const FormError& error) {
        throw WorkError{error.message};
    }
}

void LayOver(const Source& source, const PaperKind& kind, Form& form)
{
    try {
        linealis::LayOver(*source.form, kind, form);
    } catch (const FormError& error) {
        throw UsageError{error.message};
    } catch (const UnknownInput& input) {
        throw Unknown(input);
    }
}

/// Beside a preset nothing but its own kind may stand.
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
    if (options.preset) {
        const Preset& found = PresetNamed(*options.preset);
        CheckNames(options.names, "--preset " + *options.preset, found.kind);
        return {{*options.preset, &found, form}};
    }
    if (form && options.names.empty()) {
        if (form->kind.empty()) {
            throw UsageError{"source is required: the form in " + form->name + " has no \"kind\""};
        }
        return {{form->kind, nullptr, form}};
    }
    if (options.names.empty()) {
        throw UsageError{"source is required: a kind of paper, a settings file, --preset NAME or --form FILE"};
    }
    std::vector<Source> sources(options.names.size());
    std::transform(options.names.begin(), options.names.end(), sources.begin(), [&](const std::string& name) {
        return Source{name, nullptr, form};
    });
    return sources;
}

Source SourceNamed(const std::string& name)
{
    return {name, FindPreset(name)};
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
    if (source.preset != nullptr) {
        return KindOf(*source.preset);
    }
    if (const PaperKind* const kind = FindPaperKind(source.name)) {
        return *kind;
    }
    if (const PaperKind* const kind = FindPaperKindByExtension(ExtensionOf(source.name))) {
        return *kind;
    }
    std::vector<std::string> possible = KindNames();
    for (const PaperKind& kind : PaperKinds()) {
        possible.push_back("FILE." + std::string(kind.settingsType.extension));
    }
    throw Unknown("kind", source.name, possible);
}

bool IsFile(const Source& source)
{
    return source.preset == nullptr && FindPaperKind(source.name) == nullptr;
}

OpenWindow Open(const Source& source, const std::vector<Action>& actions, ScreenlessPlatform& platform)
{
    const PaperKind& kind = KindOf(source);
    OpenWindow open{&kind, MakeWindow(kind, platform), {}};
    if (source.preset != nullptr) {
        linealis::LayOver(*source.preset, *open.window, platform);
    } else if (IsFile(source)) {
        Load(source.name, *open.window);
    }
    if (source.form) {
        LayOver(source, kind, open.window->form);
    }
    open.warnings = Apply(actions, kind, *open.window, platform);
    return open;
}

void CheckIsNamed(const std::string& output)
{
    if (output.empty()) {
        throw UsageError{"-o takes a file name, not an empty text"};
    }
}

FolderItem OutputFile(const std::string& name)
{
    return name == "-" ? FolderItem::StandardOutput() : FolderItem(name);
}

}  // namespace linealis::cli
