#include "core/Requests.h"

#include "core/DisplayList.h"
#include "core/PageRequests.h"
#include "exchange/FormLink.h"
#include "exchange/PageFormats.h"
#include "kinds/Presets.h"
#include "pipeline/form/LengthText.h"
#include "pipeline/form/SetControl.h"
#include "pipeline/form/Stepping.h"
#include "platform/Version.h"
#include "text/Numbers.h"

#include <algorithm>
#include <array>
#include <new>

namespace linealis::web {

namespace {

/// Thrown if a request cannot be fulfilled. The message is for the user.
struct Refusal {
    std::string message;
};

std::string WordsOf(const UnknownInput& input)
{
    std::string words = "unknown " + input.what + " '" + input.given + "'; possible: ";
    for (const std::string& possible : input.possible) {
        words += (&possible == &input.possible.front() ? "" : ", ") + possible;
    }
    return words;
}

LocalTime TimeOf(const Question& question)
{
    const Json& now = question.json.at("now");
    return {now.at(0), now.at(1), now.at(2), now.at(3), now.at(4), now.at(5), now.at(6)};
}

const PaperKind& KindNamed(const std::string& name)
{
    const PaperKind* const kind = FindPaperKind(name);
    if (kind == nullptr) {
        throw Refusal{"there is no kind of paper named '" + name + "'"};
    }
    return *kind;
}

const Preset& PresetNamed(const std::string& id)
{
    const Preset* const preset = FindPreset(id);
    if (preset == nullptr) {
        throw Refusal{"there is no preset named '" + id + "'"};
    }
    return *preset;
}

void LoadSettings(const std::string& name, std::string_view bytes, PaperWindow& window)
{
    if (const std::error_code error = window.LayOver(BinaryStream::FromMemory(bytes))) {
        throw Refusal{name + " could not be opened: " + error.message()};
    }
}

Answer Catalog(const Question& /*question*/, std::unique_ptr<Session>& /*session*/)
{
    Answer answer;
    answer.json["version"] = versionText;
    for (const PaperKind& kind : PaperKinds()) {
        answer.json["kinds"].push_back({{"name", kind.name},
                                        {"title", kind.title},
                                        {"galleryTitle", kind.galleryTitle},
                                        {"picture", kind.picture},
                                        {"extension", kind.settingsType.extension},
                                        {"hasMarkers", kind.hasMarkers}});
    }
    for (const Preset& preset : Presets()) {
        answer.json["presets"].push_back({{"id", preset.id},
                                          {"title", preset.title},
                                          {"kind", preset.kind},
                                          {"group", TitleOf(preset.group)},
                                          {"isMetric", preset.isMetric},
                                          {"keywords", preset.keywords}});
    }
    for (const PageFormat& format : PageFormats()) {
        answer.json["formats"].push_back(
            {{"name", format.name}, {"title", format.title}, {"words", format.words}, {"type", format.mimeType}});
    }
    for (int group = 0; group < static_cast<int>(PresetGroup::Yours); ++group) {
        answer.json["groups"].push_back(TitleOf(static_cast<PresetGroup>(group)));
    }
    answer.json["fonts"] = FontsForCanvas();
    return answer;
}

/// Returns the paper that a form names, with the form laid over it.
std::unique_ptr<Session> SessionOf(const FormFile& form, const LocalTime& now)
{
    if (form.kind.empty()) {
        throw Refusal{form.name + " names no kind of paper"};
    }
    auto opened = std::make_unique<Session>(KindNamed(form.kind), now);
    LayOver(form, opened->Kind(), opened->Window().form);
    return opened;
}

/// Opens another paper: of a kind, a preset, a link, a settings file, or a file that carries a form. A paper that
/// is open stays if that fails.
Answer Open(const Question& question, std::unique_ptr<Session>& session)
{
    const LocalTime now = TimeOf(question);
    const std::string file = question.Text("file"), preset = question.Text("preset"), link = question.Text("link");
    std::unique_ptr<Session> opened;
    if (!preset.empty()) {
        ScreenlessPlatform platform;
        const Preset& chosen = PresetNamed(preset);
        opened = std::make_unique<Session>(KindOf(chosen), now);
        LayOver(chosen, opened->Window(), platform);
    } else if (!link.empty()) {
        opened = SessionOf(ParseLink(link), now);
    } else if (const PaperKind* const kind = FindPaperKindOf(file); !file.empty() && kind != nullptr) {
        opened = std::make_unique<Session>(*kind, now);
        LoadSettings(file, question.bytes, opened->Window());
        opened->Window().form.StaticFileName.SetCaption({});  // the page has no output file
    } else if (!file.empty()) {
        opened = SessionOf(ParseForm(file, question.bytes), now);
    } else {
        opened = std::make_unique<Session>(KindNamed(question.Text("kind")), now);
        if (question.json.value("isMetric", false)) {
            SetControl({}, opened->Window().form, {"PopupPaperSize", "A4"});
            SetControl({}, opened->Window().form, {"PopupUnits", "cm"});
        }
    }
    opened->BeginHistory();
    session = std::move(opened);
    Answer answer;
    PaperWindow& window = session->Window();
    answer.json = {{"kind", session->Kind().name},
                   {"title", session->Kind().galleryTitle},
                   {"extension", session->Kind().settingsType.extension},
                   {"hasMarkers", session->Kind().hasMarkers},
                   {"hasWizard", window.GetWizard() != nullptr},
                   {"hasRange", window.GetRangeWizard() != nullptr},
                   {"form", session->Text().Description()},
                   {"state", session->State()}};
    return answer;
}

Control& ControlOf(const Question& question, const Form& form)
{
    Control* const control = form.Find(question.Text("control"));
    if (control == nullptr || control->Kind() == ControlKind::Label) {
        throw Refusal{"there is no control named '" + question.Text("control") + "'"};
    }
    return *control;
}

/// The control gets the value as if the user typed, chose or clicked it.
void TakeValue(Control& control, const Form& form, const std::string& value)
{
    if (control.Kind() == ControlKind::Text) {
        static_cast<TextField&>(control).Type(value);
    } else {
        SetControl({}, form, {control.Name(), value});
    }
}

/// Finishes the entry in a text field: converts a length with a unit.
void FinishEntry(Control& control, const Form& form)
{
    if (control.Kind() != ControlKind::Text) {
        return;
    }
    auto& field = static_cast<TextField&>(control);
    if (const auto number = TypedNumber(field.Text(), form, field)) {
        field.Type(Str(*number));
    }
}

/// A change of the value of a control, by key, click or choice. With "finish" the entry ends and becomes a step.
Answer Set(const Question& question, Session& session)
{
    PaperForm& form = session.Window().form;
    Control& control = ControlOf(question, form);
    if (question.json.contains("value")) {
        TakeValue(control, form, question.Text("value"));
    }
    if (question.json.contains("steps") && control.Kind() == ControlKind::Text) {
        auto& field = static_cast<TextField&>(control);
        field.Type(Stepped(field.MeansNow(), field.Text(), question.json.at("steps"), UnitOf(form, field)));
    }
    if (question.json.value("finish", false)) {
        FinishEntry(control, form);
        if (session.marginsAreLinked) {
            LinkMargins(form, control);
        }
        session.Steps().CommitChangeOf(control);
    }
    return {{{"state", session.State()}}};
}

Answer LayPresetOver(const Question& question, Session& session)
{
    session.Steps().Commit("Change");
    if (const std::string id = question.Text("preset"); !id.empty()) {
        const Preset& preset = PresetNamed(id);
        if (preset.kind != session.Kind().name) {
            throw Refusal{"the preset is of another kind of paper"};
        }
        ScreenlessPlatform platform;
        LayOver(preset, session.Window(), platform);
    } else {
        LoadSettings(question.Text("name"), question.bytes, session.Window());
    }
    session.Steps().Commit(question.Text("name"));
    return {{{"state", session.State()}}};
}

Answer Undo(const Question& /*question*/, Session& session)
{
    std::string name = session.Steps().Undo();
    return {{{"step", std::move(name)}, {"state", session.State()}}};
}

Answer Redo(const Question& /*question*/, Session& session)
{
    std::string name = session.Steps().Redo();
    return {{{"step", std::move(name)}, {"state", session.State()}}};
}

Answer Reset(const Question& question, Session& session)
{
    session.Steps().Commit("Change");
    session.Window().form.Restore(Session(session.Kind(), TimeOf(question)).Window().form.State());
    session.Steps().Commit("Reset");
    return {{{"state", session.State()}}};
}

Answer CopyRow(const Question& question, Session& session)
{
    if (const LaidRow* const row = session.Text().RowOf(question.Text("control"));
        row != nullptr && row->above != nullptr) {
        session.Steps().Commit("Change");
        CopyFromAbove(session.Window().form, *row);
        session.Steps().Commit(NameOfCopy(*row).English());
    }
    return {{{"state", session.State()}}};
}

Answer SetLink(const Question& question, Session& session)
{
    session.marginsAreLinked = question.json.value("isOn", false);
    return {};
}

/// The markers of a text file.
Answer UseMarkers(const Question& question, Session& session)
{
    const MarkerFile file(question.Text("name"), std::string(question.bytes));
    if (!file.Error().IsEmpty()) {
        throw Refusal{Message("%1, so no markers are drawn", file.Error()).English()};
    }
    session.Steps().Commit("Change");
    session.UseMarkers(file);
    session.Steps().Commit("Markers");
    return {{{"state", session.State()}}};
}

/// Returns a dialog of the paper: "wizard" or "range".
Wizard& DialogOf(const Question& question, Session& session)
{
    const bool isRange = question.Text("dialog") == "range";
    Wizard* const wizard = isRange ? session.Window().GetRangeWizard() : session.Window().GetWizard();
    if (wizard == nullptr) {
        throw Refusal{"this paper has no such dialog"};
    }
    return *wizard;
}

Answer StateOfDialog(const Question& question, Session& session, const FormText& text)
{
    Answer answer{{{"state", text.State({})}}};
    if (question.Text("dialog") == "range") {
        const RangeWizard& range = *session.Window().GetRangeWizard();
        answer.json["problem"] = range.Problem().English();
        answer.json["outcome"] = range.Problem().IsEmpty() ? range.Outcome().English() : "";
    }
    return answer;
}

Answer OpenDialog(const Question& question, Session& session)
{
    Wizard& wizard = DialogOf(question, session);
    if (question.Text("dialog") == "range") {
        session.Window().GetRangeWizard()->Begin();
    }
    const FormText text(wizard.Fields());
    Answer answer = StateOfDialog(question, session, text);
    answer.json["form"] = text.Description();
    return answer;
}

Answer SetInDialog(const Question& question, Session& session)
{
    Form& form = DialogOf(question, session).Fields();
    Control& control = ControlOf(question, form);
    if (question.json.contains("value")) {
        TakeValue(control, form, question.Text("value"));
    }
    if (question.json.value("finish", false)) {
        FinishEntry(control, form);
    }
    return StateOfDialog(question, session, FormText(form));
}

Answer AcceptDialog(const Question& question, Session& session)
{
    session.Steps().Commit("Change");
    DialogOf(question, session).PushButton1_Action();
    session.Steps().Commit(question.Text("name"));
    return {{{"state", session.State()}}};
}

struct Request {
    std::string_view name;
    Answer (*answer)(const Question& question, Session& session);
};

constexpr auto requests = std::to_array<Request>({
    {"set", Set},
    {"layOver", LayPresetOver},
    {"undo", Undo},
    {"redo", Redo},
    {"reset", Reset},
    {"copyRow", CopyRow},
    {"linkMargins", SetLink},
    {"markers", UseMarkers},
    {"openDialog", OpenDialog},
    {"setInDialog", SetInDialog},
    {"acceptDialog", AcceptDialog},
    {"draw", DrawOnScreen},
    {"check", CheckPage},
    {"lights", LightsOf},
    {"hit", ControlAt},
    {"write", WritePage},
    {"settings", WriteSettings},
    {"json", WriteJson},
    {"link", WriteLink},
});

Answer Dispatch(const Question& question, std::unique_ptr<Session>& session)
{
    const std::string name = question.Text("do");
    if (name == "catalog") {
        return Catalog(question, session);
    }
    if (name == "open") {
        return Open(question, session);
    }
    const auto* const found = std::find_if(requests.begin(), requests.end(),
                                           [&](const Request& request) { return request.name == name; });
    if (found == requests.end() || session == nullptr) {
        throw Refusal{"the page asked for '" + name + "', which is not possible now"};
    }
    return found->answer(question, *session);
}

}  // namespace

Answer AnswerTo(const Question& question, std::unique_ptr<Session>& session)
{
    const auto refuse = [](const std::string& why) { return Answer{{{"error", why}}}; };
    try {
        return Dispatch(question, session);
    } catch (const Refusal& refusal) {
        return refuse(refusal.message);
    } catch (const UnknownInput& input) {
        return refuse(WordsOf(input));
    } catch (const FormError& error) {
        return refuse(error.message.English());
    } catch (const PageGivenUp& givenUp) {
        return refuse(std::string(givenUp.reason.Text()));
    } catch (const Json::exception& error) {
        return refuse(error.what());
    } catch (const std::bad_alloc&) {
        return refuse("there is not enough memory for the page, so it was abandoned");
    }
}

}  // namespace linealis::web
