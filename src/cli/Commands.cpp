#include "cli/Commands.h"

#include "app/PageCheck.h"
#include "cli/Errors.h"
#include "cli/FormJson.h"
#include "platform/Process.h"
#include "platform/ScreenlessPlatform.h"

#include <algorithm>
#include <iostream>
#include <set>

namespace linealis::cli {

namespace {

namespace fs = std::filesystem;

struct OpenWindow {
    const PaperKind* kind;
    std::unique_ptr<PaperWindow> window;
};

std::string ExtensionOf(const std::string& fileName)
{
    const std::string extension = fs::path(fileName).extension().string();
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

OpenWindow Open(const Source& source, const std::vector<Action>& actions, ScreenlessPlatform& platform)
{
    const PaperKind& kind = KindOf(source);
    OpenWindow open{&kind, MakeWindow(kind, platform)};
    if (source.preset != nullptr) {
        LayOver(*source.preset, *open.window, platform);
    } else if (IsFile(source)) {
        Load(source.name, *open.window);
    }
    Apply(actions, kind, *open.window, platform);
    return open;
}

void Print(const Json& json)
{
    constexpr int indent = 2;
    // Texts of a damaged settings file need not be UTF-8.
    std::cout << json.dump(indent, ' ', false, Json::error_handler_t::replace) << '\n';
}

Json KindJson(const PaperKind& kind)
{
    return {{"kind", kind.name}, {"title", kind.title}, {"extension", kind.settingsType.extension}};
}

void LaunchViewer(const FolderItem& file)
{
    const std::string program = "xdg-open", path = file.Path().string();
    if (const std::error_code error = StartProgram(program, path)) {
        throw WorkError{path + ": the page is made, but the viewer could not be started: " + program + ": " +
                        error.message()};
    }
}

/// Of a page that is made, so much content is looked at for warnings: it takes no time. Bytes.
constexpr std::size_t longestChecked = std::size_t{256} << 10U;

PageWarnings WarningsOf(const PaperWindow& window, std::string_view content, const ScreenlessPlatform& platform)
{
    const PageFrame frame = window.ReadPage().frame;
    PageWarnings warnings = FormWarnings(window.form, frame);
    for (const PageWarnings& more :
         {ContentWarnings(frame, content), MarkerWarnings(window.form, platform.openAnswer)}) {
        warnings.insert(warnings.end(), more.begin(), more.end());
    }
    return warnings;
}

void Say(const ScreenlessPlatform& platform)
{
    for (const std::vector<std::string>* const said : {&platform.messages, &platform.notes}) {
        std::for_each(said->begin(), said->end(), Complain);
    }
}

/// One page by the road of the Generate button with the shift key held down: a file that the settings brought
/// back is forgotten, and the save dialog answers with the output file.
void GeneratePage(const Source& source, const GenerateRequest& request, const std::string& output)
{
    ScreenlessPlatform platform;
    platform.shiftKey = true;
    platform.saveAnswer = OutputFile(output);
    if (request.output.empty()) {  // whoever may write to the folder shall not choose another file for the page
        platform.saveAnswer = platform.saveAnswer.WithoutLinks();
    }
    const OpenWindow open = Open(source, request.actions, platform);
    open.window->PushButtonGenerate_Action();
    Say(platform);
    if (const std::string_view content = open.window->Pdf().Stream(); content.size() <= longestChecked) {
        for (const PageWarning& warning : WarningsOf(*open.window, content, platform)) {
            Complain("warning: " + source.name + ": " + warning.text);
        }
    }
    if (!platform.fileErrors.empty()) {
        throw WorkError{output + ": " + platform.fileErrors.front().reason};
    }
    if (request.view) {
        LaunchViewer(platform.saveAnswer);
    }
}

/// Tells before the page is printed what will disappoint on it.
void CheckPage(const Source& source, const GenerateRequest& request, Json& found)
{
    ScreenlessPlatform platform;
    const OpenWindow open = Open(source, request.actions, platform);
    std::string content;
    try {
        content = open.window->DrawPage();
    } catch (const PageGivenUp& givenUp) {
        throw WorkError{source.name + ": " + givenUp.reason};
    }
    Say(platform);
    for (const PageWarning& warning : WarningsOf(*open.window, content, platform)) {
        if (request.asJson) {
            found.push_back({{"source", source.name},
                             {"id", warning.id},
                             {"control", warning.control},
                             {"text", warning.text}});
        } else {
            std::cout << source.name << ": " << warning.text << '\n';
        }
    }
}

void CheckPages(const GenerateRequest& request)
{
    if (!request.output.empty() || !request.outputDirectory.empty() || request.view) {
        throw UsageError{"--check writes no page, and goes without -o, --output-dir and --view"};
    }
    Json found = Json::array();
    for (const Source& source : request.sources) {
        CheckPage(source, request, found);
    }
    if (request.asJson) {
        Print(found);
    }
}

/// Where each source's page goes. Two sources with the same page would lose one of them.
std::vector<std::string> OutputNames(const GenerateRequest& request)
{
    std::vector<std::string> names;
    std::set<std::string> taken;
    for (const Source& source : request.sources) {
        const std::string stem = source.preset != nullptr ? source.name : fs::path(source.name).stem().string();
        names.push_back((fs::path(request.outputDirectory) / (stem + ".pdf")).string());
        if (!taken.insert(names.back()).second) {
            throw UsageError{"two pages would be written to " + names.back()};
        }
    }
    return names;
}

/// The page shall not take the place of what it is made from.
void CheckIsNoInput(const std::string& output, const GenerateRequest& request)
{
    std::vector<std::string> inputs;
    for (const Source& source : request.sources) {
        if (IsFile(source)) {
            inputs.push_back(source.name);
        }
    }
    for (const Action& action : request.actions) {
        if (action.kind == Action::Kind::Load || action.kind == Action::Kind::Markers) {
            inputs.push_back(action.argument);
        }
    }
    for (const std::string& input : inputs) {
        std::error_code oneIsMissing;
        if (fs::equivalent(input, output, oneIsMissing)) {
            throw UsageError{"the page would replace " + input + ", which it is made from"};
        }
    }
}

void CheckRequest(const GenerateRequest& request)
{
    const bool toFile = !request.output.empty();
    if (toFile == !request.outputDirectory.empty()) {
        throw UsageError{"generate takes either -o FILE or --output-dir DIR"};
    }
    if (toFile && request.sources.size() > 1) {
        throw UsageError{"-o " + request.output + " takes one page, but " + std::to_string(request.sources.size()) +
                         " are asked for; --output-dir DIR takes any number"};
    }
    CheckIsNoInput(request.output, request);
    if (request.view && request.output == "-") {
        throw UsageError{"--view needs a file, not standard output"};
    }
    for (const Source& source : request.sources) {
        KindOf(source);
    }
}

}  // namespace

FolderItem OutputFile(const std::string& name)
{
    return name == "-" ? FolderItem::StandardOutput() : FolderItem(name);
}

std::vector<Source> SourcesOf(const std::vector<std::string>& names, const std::optional<std::string>& preset)
{
    if (!preset) {
        if (names.empty()) {
            throw UsageError{"source is required: a kind of paper, a settings file, or --preset NAME"};
        }
        std::vector<Source> sources(names.size());
        std::transform(names.begin(), names.end(), sources.begin(),
                       [](const std::string& name) { return Source{name}; });
        return sources;
    }
    const Preset& found = PresetNamed(*preset);
    for (const std::string& name : names) {
        if (name != found.kind) {
            throw UsageError{"--preset " + *preset + " is a preset of " + std::string(found.kind) +
                             ", and goes with no other source, such as '" + name + "'"};
        }
    }
    return {{*preset, &found}};
}

void ListPresets(bool asJson, const std::optional<std::string>& kind)
{
    if (kind && FindPaperKind(*kind) == nullptr) {
        throw Unknown("kind", *kind, KindNames());
    }
    Json list = Json::array();
    for (const Preset& preset : Presets()) {
        if (kind && preset.kind != *kind) {
            continue;
        }
        if (asJson) {
            list.push_back({{"preset", preset.id}, {"kind", preset.kind}, {"title", preset.title}});
        } else {
            std::cout << preset.id << '\t' << preset.kind << '\t' << preset.title << '\n';
        }
    }
    if (asJson) {
        Print(list);
    }
}

void ListKinds(bool asJson)
{
    if (asJson) {
        Json list = Json::array();
        for (const PaperKind& kind : PaperKinds()) {
            list.push_back(KindJson(kind));
        }
        Print(list);
        return;
    }
    for (const PaperKind& kind : PaperKinds()) {
        std::cout << kind.name << '\t' << kind.title << '\t' << kind.settingsType.extension << '\n';
    }
}

void ShowForm(const Source& source, const std::vector<Action>& actions)
{
    ScreenlessPlatform platform;
    const OpenWindow open = Open(source, actions, platform);
    Json json = KindJson(*open.kind);
    json["controls"] = Json::object();
    for (Control* const control : open.window->form.Controls()) {
        json["controls"][std::string(control->Name())] = ControlJson(*control);
    }
    Print(json);
}

void Generate(const GenerateRequest& request)
{
    if (request.check) {
        CheckPages(request);
        return;
    }
    CheckRequest(request);
    if (!request.output.empty()) {
        GeneratePage(request.sources.front(), request, request.output);
        return;
    }
    const std::vector<std::string> outputs = OutputNames(request);
    std::string failure;
    for (std::size_t i = 0; i < request.sources.size(); ++i) {
        try {
            GeneratePage(request.sources[i], request, outputs[i]);
        } catch (const WorkError& error) {
            if (!failure.empty()) {
                Complain(failure);
            }
            failure = error.message;
        }
    }
    if (!failure.empty()) {
        throw WorkError{failure};
    }
}

void Save(const Source& source, const std::vector<Action>& actions, const std::string& output)
{
    if (output.empty()) {
        throw UsageError{"-o takes a file name, not an empty text"};
    }
    ScreenlessPlatform platform;
    const OpenWindow open = Open(source, actions, platform);
    if (const std::error_code error = open.window->SaveSettings(OutputFile(output))) {
        throw WorkError{output + ": " + error.message()};
    }
}

}  // namespace linealis::cli
