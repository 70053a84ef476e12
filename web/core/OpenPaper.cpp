#include "core/OpenPaper.h"

#include "exchange/FormLink.h"
#include "pipeline/form/SetControl.h"

#include <utility>

namespace linealis::web {

namespace {

const PaperKind& KindNamed(const std::string& name)
{
    const PaperKind* const kind = FindPaperKind(name);
    if (kind == nullptr) {
        throw Refusal{Message("there is no kind of paper named '%1'", name)};
    }
    return *kind;
}

/// Returns the paper that a form names, with the form laid over it.
std::unique_ptr<Session> SessionOf(const FormFile& form, const LocalTime& now, const Language& language)
{
    if (form.kind.empty()) {
        throw Refusal{Message("%1: names no kind of paper", form.name)};
    }
    auto opened = std::make_unique<Session>(KindNamed(form.kind), now, language);
    LayOver(form, opened->Kind(), opened->Window().form);
    return opened;
}

}  // namespace

LocalTime TimeOf(const Question& question)
{
    const Json& now = question.json.at("now");
    return {now.at(0), now.at(1), now.at(2), now.at(3), now.at(4), now.at(5), now.at(6)};
}

const Preset& PresetNamed(const std::string& id)
{
    const Preset* const preset = FindPreset(id);
    if (preset == nullptr) {
        throw Refusal{Message("there is no preset named '%1'", id)};
    }
    return *preset;
}

void LoadSettings(const std::string& name, std::string_view bytes, PaperWindow& window)
{
    if (const std::error_code error = window.LayOver(BinaryStream::FromMemory(bytes))) {
        throw Refusal{Message("%1 could not be opened: %2", name, error.message())};
    }
}

std::unique_ptr<Session> OpenedPaper(const Question& question, const Language& language)
{
    const LocalTime now = TimeOf(question);
    const std::string file = question.Text("file"), preset = question.Text("preset"), link = question.Text("link");
    std::unique_ptr<Session> opened;
    if (!preset.empty()) {
        ScreenlessPlatform platform;
        const Preset& chosen = PresetNamed(preset);
        opened = std::make_unique<Session>(KindOf(chosen), now, language);
        LayOver(chosen, opened->Window(), platform);
    } else if (!link.empty()) {
        opened = SessionOf(ParseLink(link), now, language);
    } else if (const PaperKind* const kind = FindPaperKindOf(file); !file.empty() && kind != nullptr) {
        opened = std::make_unique<Session>(*kind, now, language);
        LoadSettings(file, question.bytes, opened->Window());
        opened->Window().form.StaticFileName.SetCaption({});  // the page has no output file
    } else if (!file.empty()) {
        opened = SessionOf(ParseForm(file, question.bytes), now, language);
    } else {
        opened = std::make_unique<Session>(KindNamed(question.Text("kind")), now, language);
        if (question.json.value("isMetric", false)) {
            SetControl({}, opened->Window().form, {"PopupPaperSize", "A4"});
            SetControl({}, opened->Window().form, {"PopupUnits", "cm"});
        }
    }
    opened->BeginHistory();
    return opened;
}

}  // namespace linealis::web
