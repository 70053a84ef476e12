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

Session::Session(const PaperKind& theKind, const LocalTime& now)
    : kind(theKind), window(NewWindow(theKind, platform, now)), history(std::in_place, window->form),
      text(window->form)
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
    problem.clear();
    PaperPage page = Read();
    Turns turns([] {});
    MyPDFGenerator pdf(turns, mostContentShown);
    try {
        DrawContent(page, pdf, turns, Answers());
    } catch (const PageTooLarge&) {
        problem = "The page is very large; only its beginning is shown";
    } catch (const PageGivenUp& givenUp) {
        problem = givenUp.reason.Text();
    } catch (const std::bad_alloc&) {
        problem = "There is not enough memory to show the page";
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

Json Session::State()
{
    const PaperPage page = Read();
    Json json = text.State(page.describe());
    json["summary"] = PageSummary(kind, page).English();
    json["undo"] = history->HasChange() ? "Change" : history->UndoName();
    json["redo"] = history->RedoName();
    json["lost"] = window->LostBySaving().English();
    return json;
}

}  // namespace linealis::web
