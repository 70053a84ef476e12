#include "core/Session.h"

#include "kinds/PageSummary.h"

#include <new>
#include <utility>

namespace linealis::web {

namespace {

std::unique_ptr<PaperWindow> NewWindow(const PaperKind& kind, ScreenlessPlatform& platform, const LocalTime& now)
{
    platform.clock = now;
    return MakeWindow(kind, platform);
}

}  // namespace

Session::Session(const PaperKind& theKind, const LocalTime& now, const Language& theLanguage)
    : kind(theKind), language(theLanguage), window(NewWindow(theKind, platform, now)),
      history(std::in_place, window->form), text(window->form, theLanguage)
{}

PaperPage Session::Read()
{
    return window->ReadPage();
}

PageQuestions Session::Answers() const
{
    PageQuestions answers;
    if (markers) {
        answers.askForMarkers = [this] { return markers->Lines(); };
    }
    return answers;
}

DrawnPage Session::Draw()
{
    Turns turns([] {});
    return DrawPage(Read(), turns, Answers());
}

void Session::DrawForScreen()
{
    drawn.reset();  // its memory is needed again
    problem = {};
    PaperPage page = Read();
    Turns turns([] {});
    MyPDFGenerator pdf(turns, mostContentShown);
    try {
        DrawContent(page, pdf, turns, Answers());
    } catch (const PageTooLarge&) {
        problem = Message("The page is very large; only its beginning is shown");
    } catch (const PageGivenUp& givenUp) {
        problem = Message(givenUp.reason);
    } catch (const std::bad_alloc&) {
        problem = Message("There is not enough memory to show the page");
    }
    drawn.emplace(DrawnPage{std::move(page), pdf.TakeStream(), pdf.Roles()});
}

void Session::UseMarkers(const MarkerFile& file)
{
    markers = file;
    if (auto* const box = window->form.Find<CheckBox>("CheckBoxMarkers"); box != nullptr && !box->Value()) {
        box->Click(true);
    }
}

Json Session::Description()
{
    return {{"kind", kind.name},
            {"title", Say(Message::Listed(kind.galleryTitle))},
            {"extension", kind.settingsType.extension},
            {"hasMarkers", kind.hasMarkers},
            {"hasWizard", window->GetWizard() != nullptr},
            {"hasRange", window->GetRangeWizard() != nullptr},
            {"marginsAreLinked", marginsAreLinked},
            {"form", text.Description()},
            {"state", State()}};
}

Json Session::State()
{
    const PaperPage page = Read();
    Json json = text.State(page.describe());
    json["summary"] = Say(PageSummary(kind, page));
    json["undo"] = Say(history->HasChange() ? Message("Change") : history->UndoName());
    json["redo"] = Say(history->RedoName());
    json["lost"] = Say(window->LostBySaving());
    return json;
}

}  // namespace linealis::web
