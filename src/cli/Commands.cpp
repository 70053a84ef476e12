#include "cli/Commands.h"

#include "check/PageCheck.h"
#include "cli/Errors.h"
#include "cli/FileNames.h"
#include "cli/Remarks.h"
#include "exchange/FormLink.h"
#include "exchange/FormSchema.h"
#include "kinds/PageSummary.h"
#include "pipeline/form/FieldWords.h"
#include "pipeline/form/SetControl.h"
#include "platform/ScreenlessPlatform.h"

#include <algorithm>
#include <iostream>

namespace linealis::cli {

namespace {

bool IsLabel(const Control* control)
{
    return control->Kind() == ControlKind::Label;
}

}  // namespace

void Print(const Json& json)
{
    std::cout << JsonText(json);
}

void ListPresets(bool asJson, const std::optional<std::string>& kind)
{
    if (kind) {
        KindNamed(*kind);
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

void ListDevices(bool asJson)
{
    Json list = Json::array();
    for (const auto& [name, title, screen, source] : Devices()) {
        if (asJson) {
            list.push_back({{"device", name},
                            {"title", title},
                            {"width", screen.width},
                            {"height", screen.height},
                            {"dpi", screen.dotsPerInch},
                            {"grays", screen.grays},
                            {"source", source}});
        } else {
            std::cout << name << '\t' << title << '\t' << screen.width << 'x' << screen.height << '\t'
                      << screen.dotsPerInch << '\t' << (screen.grays == 0 ? "color" : std::to_string(screen.grays))
                      << '\n';
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
    const Remarks remarks;
    remarks.Say(platform);
    remarks.Warn(source.name, open.warnings);
    Print(FormJson(*open.kind, open.window->form));
}

void ShowLink(const Source& source, const std::vector<Action>& actions, bool asJson)
{
    ScreenlessPlatform platform;
    const OpenWindow open = Open(source, actions, platform);
    const Remarks remarks;
    remarks.Say(platform);
    remarks.Warn(source.name, open.warnings);
    const std::string link = '#' + FormLink(*open.kind, open.window->form);
    if (asJson) {
        Print({{"kind", open.kind->name}, {"link", link}});
        return;
    }
    std::cout << link << '\n';
}

void ShowSchema(const std::optional<std::string>& kind)
{
    Print(kind ? FormSchema(KindNamed(*kind)) : FormSchema());
}

void Show(const Source& source, bool asJson)
{
    ScreenlessPlatform platform;
    const OpenWindow open = Open(source, {}, platform);
    Remarks().Say(platform);
    const PaperForm& form = open.window->form;
    const std::string page = open.window->OutputFile().Path().string();
    const std::string summary = PageSummary(*open.kind, open.window->ReadPage()).English();
    if (asJson) {
        Json json = FormJson(*open.kind, form);
        json["page"] = page;
        json["summary"] = summary;
        Print(json);
        return;
    }
    std::cout << "kind\t" << open.kind->name << '\n' << "summary\t" << summary << '\n';
    if (!page.empty()) {
        std::cout << "page\t" << Readable(page) << '\n';
    }
    for (Control* const control : form.Controls()) {
        if (!IsLabel(control)) {
            std::cout << control->Name() << '\t' << Readable(ValueOf(*control)) << '\t'
                      << WholeName(form, *control).English() << '\n';
        }
    }
}

bool Differ(const Source& one, const Source& other, bool asJson)
{
    ScreenlessPlatform platform;
    const OpenWindow first = Open(one, {}, platform), second = Open(other, {}, platform);
    Remarks().Say(platform);
    if (first.kind != second.kind) {
        throw UsageError{one.name + " is of " + std::string(first.kind->name) + ", and " + other.name + " of " +
                         std::string(second.kind->name) + "; only forms of one kind can be compared"};
    }
    Json differences = Json::array();
    const PaperForm& form = first.window->form;
    for (Control* const control : form.Controls()) {
        Control& twin = *second.window->form.Find(control->Name());
        if (IsLabel(control) || ValueOf(*control) == ValueOf(twin)) {
            continue;
        }
        differences.push_back({{"control", control->Name()},
                               {"one", ValueOf(*control)},
                               {"other", ValueOf(twin)},
                               {"words", WholeName(form, *control).English()}});
    }
    if (asJson) {
        Print(differences);
        return !differences.empty();
    }
    for (const Json& row : differences) {
        std::cout << row["control"].get<std::string>() << '\t' << Readable(row["one"].get<std::string>()) << '\t'
                  << Readable(row["other"].get<std::string>()) << '\t' << row["words"].get<std::string>() << '\n';
    }
    return !differences.empty();
}

void Save(const Source& source, const std::vector<Action>& actions, const std::string& output, bool asJson)
{
    CheckIsNamed(output);
    CheckRoomForAnswer(asJson, output);
    ScreenlessPlatform platform;
    const OpenWindow open = Open(source, actions, platform);
    Json answer = FileJson(source.name, output);
    answer["kind"] = open.kind->name;
    const Remarks remarks(asJson ? &answer : nullptr);
    remarks.Say(platform);
    CheckIsSettings("-o", output, *open.kind);
    // A settings file may be saved over itself, but not over a file with a form or with markers.
    CheckIsNoInput(output, InputsOf({source}, actions, false));
    if (const std::error_code error = open.window->SaveSettings(OutputFile(output))) {
        throw WorkError{output + ": " + error.message()};
    }
    remarks.Warn(source.name, FieldWarnings(open.window->form));
    remarks.Warn(source.name, open.warnings);
    if (const Message lost = open.window->LostBySaving(); !lost.IsEmpty()) {
        remarks.Warn(output, {{"lost", "", Message("a settings file does not keep %1", lost)}});
    }
    if (asJson) {
        Print(answer);
    }
}

}  // namespace linealis::cli
