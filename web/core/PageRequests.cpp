#include "core/PageRequests.h"

#include "check/PageCheck.h"
#include "core/DisplayList.h"
#include "core/PngChunks.h"
#include "exchange/FormLink.h"
#include "exchange/PageFormats.h"
#include "pdf/PageHit.h"
#include "pdf/StandardFonts.h"
#include "pipeline/form/FieldWords.h"
#include "pipeline/page/PageWords.h"

#include <algorithm>
#include <utility>

namespace linealis::web {

namespace {

/// The largest content, in bytes, on which roles are highlighted or looked up. The strokes of a larger page are too
/// dense to tell apart.
constexpr std::size_t longestContentLitUp = std::size_t{8} << 20U;

std::size_t ContentOf(const Session& session)
{
    return session.Drawn() == nullptr ? 0 : session.Drawn()->content.View().size();
}

/// Returns where the margins end (left, bottom, right, top), and the area and start of each title that can be
/// moved, in points.
Json HandlesOf(const DrawnPage& page, const PaperForm& form)
{
    const PageFrame& frame = page.frame;
    Json titles = Json::array();
    const std::vector<Role> movable = MovableTitles(form);
    if (!movable.empty() && page.content.View().size() <= longestContentChecked) {
        for (const TextArea& area : TextAreas(page.content, page.roles, {"title"})) {
            if (std::find(movable.begin(), movable.end(), area.role) != movable.end()) {
                titles.push_back(
                    {{"handle", area.role},
                     {"area", {area.lowerLeft.x, area.lowerLeft.y, area.upperRight.x, area.upperRight.y}},
                     {"start", {area.start.x, area.start.y}}});
            }
        }
    }
    return {{"inside", {frame.LeftEdge(), frame.BottomEdge(), frame.RightEdge(), frame.TopEdge()}},
            {"titles", std::move(titles)}};
}

Answer Listed(const DisplayList& list)
{
    Answer answer;
    answer.json["texts"] = list.Texts();
    answer.bytes = list.Bytes();
    return answer;
}

}  // namespace

Answer DrawOnScreen(const Question& /*question*/, Session& session)
{
    session.DrawForScreen();
    const DrawnPage& page = *session.Drawn();
    DisplayList list;
    const PageDamage damage = ReadPage(page.content, list);
    Answer answer = Listed(list);
    const PageFrame& frame = page.frame;
    answer.json["width"] = frame.paperWidth;
    answer.json["height"] = frame.paperHeight;
    answer.json["isInInches"] = frame.IsInInches();
    answer.json["problem"] = session.Say(damage.message.empty() || !session.Problem().IsEmpty()
                                             ? session.Problem()
                                             : Message("The page is damaged: %1", damage.message));
    return answer;
}

Answer CheckPage(const Question& /*question*/, Session& session)
{
    Answer answer{{{"warnings", Json::array()}}};
    const DrawnPage* const page = session.Drawn();
    if (page == nullptr) {
        return answer;
    }
    const bool isLight = ContentOf(session) <= longestContentChecked;
    for (const PageWarning& warning : isLight ? WarningsOf(*page) : page->warnings) {
        answer.json["warnings"].push_back({{"control", warning.control}, {"text", session.Say(warning.text)}});
    }
    if (const MarkerFile* const file = session.Markers()) {
        for (const Message& fault : MarkerFaults(*file)) {
            answer.json["warnings"].push_back({{"control", "CheckBoxMarkers"}, {"text", session.Say(fault)}});
        }
    }
    answer.json["handles"] = HandlesOf(*page, session.Window().form);
    return answer;
}

Answer BeginDrag(const Question& question, Session& session)
{
    session.Steps().Commit(Message("Change"));  // so that the step of the drag contains nothing else
    const Json start = question.json.value("start", Json::array({0.0, 0.0}));
    session.drag.emplace(session.Window(), question.Text("handle"), Point{start.at(0), start.at(1)});
    if (!session.drag->IsPossible()) {
        session.drag.reset();
    }
    return {{{"state", session.State()}}};
}

Answer MoveDragged(const Question& question, Session& session)
{
    if (session.drag) {
        const bool isFine = question.json.value("isFine", false);
        session.drag->Move({question.json.at("x"), question.json.at("y")}, isFine ? Grain::Fine : Grain::Coarse,
                           session.marginsAreLinked);
    }
    return {{{"state", session.State()}}};
}

Answer EndDrag(const Question& question, Session& session)
{
    if (session.drag && question.json.value("isCanceled", false)) {
        session.drag->Cancel();
    } else if (session.drag && session.drag->IsMargin()) {
        session.Steps().CommitChangeOf(session.drag->Moved());
    } else if (session.drag) {
        session.Steps().Commit(Message("%1 moved", WholeName(session.Window().form, session.drag->Moved())));
    }
    session.drag.reset();
    return {{{"state", session.State()}}};
}

Answer LightsOf(const Question& question, Session& session)
{
    const Control* const control = session.Window().form.Find(question.Text("control"));
    const std::size_t content = ContentOf(session);
    if (control == nullptr || control->Declared().governs == RoleSet{} || content > longestContentLitUp ||
        content == 0) {
        return Listed(DisplayList());
    }
    DisplayList list(control->Declared().governs);
    ReadPage(session.Drawn()->content, session.Drawn()->roles, list);
    return Listed(list);
}

Answer ControlAt(const Question& question, Session& session)
{
    Answer answer{{{"control", ""}}};
    const std::size_t content = ContentOf(session);
    if (content == 0 || content > longestContentLitUp) {
        return answer;
    }
    Turns turns([] {});
    const Form& form = session.Window().form;
    const Role role = RoleAt(session.Drawn()->content, session.Drawn()->roles,
                             {question.json.at("x"), question.json.at("y")}, question.json.at("reach"), turns);
    if (const Control* const control = role.empty() ? nullptr : GovernorOf(form, role)) {
        answer.json["control"] = control->Name();
        answer.json["wholeName"] = session.Say(WholeName(form, *control));
    }
    return answer;
}

Answer WritePage(const Question& question, Session& session)
{
    const PageFormat* const format = FindPageFormat(question.Text("format"));
    if (format == nullptr) {
        return {{{"error", "the possible formats are " + FormatNames()}}};
    }
    if (!format->carriesForm) {  // a file that carries the form has it as it was entered
        session.Window().form.WriteCorrections();
        session.Steps().Commit(Message("Generate"));
    }
    const DrawnPage page = session.Draw();
    const Json& now = question.json.at("now");
    WriteOptions options;
    options.now = {now.at(0), now.at(1), now.at(2), now.at(3), now.at(4), now.at(5), now.at(6)};
    options.carried = format->carriesForm ? CarriedForm(session.Kind(), session.Window().form) : "";
    Turns turns([] {});
    Answer answer;
    answer.bytes = BytesOf(*format, page, options, turns);
    answer.json = {{"type", format->mimeType},
                   {"extension", format->name},
                   {"width", page.frame.paperWidth},
                   {"height", page.frame.paperHeight},
                   {"paper", session.Say(PaperWords(page.frame))},
                   {"state", session.State()}};
    return answer;
}

Answer DressPicture(const Question& question, Session& session)
{
    Answer answer;
    answer.bytes = WithResolutionAndText(question.bytes, question.json.at("dotsPerInch"),
                                         CarriedForm(session.Kind(), session.Window().form));
    return answer;
}

Answer WriteSettings(const Question& /*question*/, Session& session)
{
    return {{{"extension", session.Kind().settingsType.extension},
             {"lost", session.Say(session.Window().LostBySaving())}},
            session.Window().SettingsBytes()};
}

Answer WriteJson(const Question& /*question*/, Session& session)
{
    return {{{"extension", "json"}, {"type", "application/json"}},
            JsonText(FormJson(session.Kind(), session.Window().form))};
}

Answer WriteLink(const Question& /*question*/, Session& session)
{
    return {{{"link", FormLink(session.Kind(), session.Window().form)}}};
}

Json FontsForCanvas()
{
    Json fonts = Json::array();
    for (const StandardFont& font : StandardFonts()) {
        std::string families;
        for (const std::string_view name : font.family.names) {
            families += (families.empty() ? "\"" : ", \"") + std::string(name) + "\"";
        }
        if (!font.family.generic.empty()) {
            families += ", " + std::string(font.family.generic);
        }
        fonts.push_back({{"families", families}, {"isBold", font.isBold}, {"isSlanted", font.isSlanted}});
    }
    return fonts;
}

}  // namespace linealis::web
