#include "core/Requests.h"

#include "core/OpenPaper.h"
#include "core/PadRequest.h"
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

Message WordsOf(const UnknownInput& input)
{
    std::vector<Message> possible;
    for (const std::string& one : input.possible) {
        possible.push_back(Message::Verbatim(one));
    }
    return Message("unknown %1 '%2'; possible: %3", input.what, input.given,
                   Message::Joined(std::move(possible), ", "));
}

Answer Catalog()
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

/// Opens another paper. A paper that is open stays if that fails.
Answer Open(const Question& question, Conversation& conversation)
{
    conversation.session = OpenedPaper(question, conversation.language);
    return {conversation.session->Description()};
}

Answer Describe(const Question& /*question*/, Session& session)
{
    return {session.Description()};
}

Control& ControlOf(const Question& question, const Form& form)
{
    Control* const control = form.Find(question.Text("control"));
    if (control == nullptr || control->Kind() == ControlKind::Label) {
        throw Refusal{Message("there is no control named '%1'", question.Text("control"))};
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
    session.Steps().Commit(Message("Change"));
    if (const std::string id = question.Text("preset"); !id.empty()) {
        const Preset& preset = PresetNamed(id);
        if (preset.kind != session.Kind().name) {
            throw Refusal{Message("the preset is of another kind of paper")};
        }
        ScreenlessPlatform platform;
        LayOver(preset, session.Window(), platform);
        session.Steps().Commit(Message::Listed(preset.title));
    } else {
        LoadSettings(question.Text("name"), question.bytes, session.Window());
        session.Steps().Commit(Message::Verbatim(question.Text("name")));
    }
    return {{{"state", session.State()}}};
}

Answer Undo(const Question& /*question*/, Session& session)
{
    const Message name = session.Steps().Undo();
    return {{{"step", session.Say(name)}, {"state", session.State()}}};
}

Answer Redo(const Question& /*question*/, Session& session)
{
    const Message name = session.Steps().Redo();
    return {{{"step", session.Say(name)}, {"state", session.State()}}};
}

Answer Reset(const Question& question, Session& session)
{
    session.Steps().Commit(Message("Change"));
    session.Window().form.Restore(Session(session.Kind(), TimeOf(question), Language()).Window().form.State());
    session.Steps().Commit(Message("Reset"));
    return {{{"state", session.State()}}};
}

Answer CopyRow(const Question& question, Session& session)
{
    if (const LaidRow* const row = session.Text().RowOf(question.Text("control"));
        row != nullptr && row->above != nullptr) {
        session.Steps().Commit(Message("Change"));
        CopyFromAbove(session.Window().form, *row);
        session.Steps().Commit(NameOfCopy(*row));
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
        throw Refusal{Message("%1, so no markers are drawn", file.Error())};
    }
    session.Steps().Commit(Message("Change"));
    session.UseMarkers(file);
    session.Steps().Commit(Message("Markers from %1", question.Text("name")));
    return {{{"state", session.State()}}};
}

/// Returns a dialog of the paper: "wizard" or "range".
Wizard& DialogOf(const Question& question, Session& session)
{
    const bool isRange = question.Text("dialog") == "range";
    Wizard* const wizard = isRange ? session.Window().GetRangeWizard() : session.Window().GetWizard();
    if (wizard == nullptr) {
        throw Refusal{Message("this paper has no such dialog")};
    }
    return *wizard;
}

Answer StateOfDialog(const Question& question, Session& session, const FormText& text)
{
    Answer answer{{{"state", text.State({})}}};
    if (question.Text("dialog") == "range") {
        const RangeWizard& range = *session.Window().GetRangeWizard();
        answer.json["problem"] = session.Say(range.Problem());
        answer.json["outcome"] = range.Problem().IsEmpty() ? session.Say(range.Outcome()) : "";
    }
    return answer;
}

Answer OpenDialog(const Question& question, Session& session)
{
    Wizard& wizard = DialogOf(question, session);
    if (question.Text("dialog") == "range") {
        session.Window().GetRangeWizard()->Begin();
    }
    const FormText text(wizard.Fields(), session.LanguageOfPage());
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
    return StateOfDialog(question, session, FormText(form, session.LanguageOfPage()));
}

Answer AcceptDialog(const Question& question, Session& session)
{
    session.Steps().Commit(Message("Change"));
    DialogOf(question, session).PushButton1_Action();
    session.Steps().Commit(question.Text("dialog") == "range" ? Message("From Data Range")
                                                              : Message("Easy Graph Wizard"));
    return {{{"state", session.State()}}};
}

struct Request {
    std::string_view name;
    Answer (*answer)(const Question& question, Session& session);
};

constexpr auto requests = std::to_array<Request>({
    {"describe", Describe},
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
    {"dragBegin", BeginDrag},
    {"drag", MoveDragged},
    {"dragEnd", EndDrag},
    {"dress", DressPicture},
    {"write", WritePage},
    {"settings", WriteSettings},
    {"json", WriteJson},
    {"link", WriteLink},
    {"pad", MakePad},
});

Answer Dispatch(const Question& question, Conversation& conversation)
{
    const std::string name = question.Text("do");
    if (name == "catalog") {
        return Catalog();
    }
    if (name == "language") {
        conversation.language.Become(question.json);
        return {};
    }
    if (name == "open") {
        return Open(question, conversation);
    }
    const auto* const found = std::find_if(requests.begin(), requests.end(),
                                           [&](const Request& request) { return request.name == name; });
    if (found == requests.end() || conversation.session == nullptr) {
        throw Refusal{Message("the page asked for '%1', which is not possible now", name)};
    }
    return found->answer(question, *conversation.session);
}

}  // namespace

Answer AnswerTo(const Question& question, Conversation& conversation)
{
    const auto refuse = [&](const Message& why) { return Answer{{{"error", why.In(conversation.language)}}}; };
    try {
        return Dispatch(question, conversation);
    } catch (const Refusal& refusal) {
        return refuse(refusal.message);
    } catch (const UnknownInput& input) {
        return refuse(WordsOf(input));
    } catch (const FormError& error) {
        return refuse(error.message);
    } catch (const PageGivenUp& givenUp) {
        return refuse(Message(givenUp.reason));
    } catch (const Json::exception& error) {
        return refuse(Message::Verbatim(error.what()));
    } catch (const std::bad_alloc&) {
        return refuse(Message("there is not enough memory for the page, so it was abandoned"));
    }
}

}  // namespace linealis::web
