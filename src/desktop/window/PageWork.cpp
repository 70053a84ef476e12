#include "desktop/window/PageWork.h"

#include "check/PageCheck.h"
#include "desktop/system/Text.h"
#include "pdf/PageHit.h"

#include <QApplication>
#include <QScopeGuard>
#include <new>

namespace linealis::desktop {

namespace {

constexpr int millisecondsBeforeProgress = 400;

}  // namespace

PageWork::PageWork(DesktopPlatform& thePlatform, PaperWindow& theWindow) : platform(thePlatform), window(theWindow)
{
    progressDelay.setSingleShot(true);
    progressDelay.setInterval(millisecondsBeforeProgress);
    connect(&progressDelay, &QTimer::timeout, this, [this] {
        if (QApplication::activeModalWidget() != nullptr) {
            progressDelay.start();  // a dialog is open, so the work is waiting for the user
        } else {
            emit TakesTime();
        }
    });
}

void PageWork::Run(const std::function<void()>& work)
{
    running = true;
    stop = false;
    progressDelay.start();
    const auto ended = qScopeGuard([this] {
        progressDelay.stop();
        running = false;
        emit Ended();
    });
    emit Started();
    platform.RunStoppable(stop, work);
}

void PageWork::Generate()
{
    Run([this] { window.PushButtonGenerate_Action(); });
}

PageWarnings PageWork::WarningsOfFile() const
{
    const std::string_view content = window.Pdf().Stream();
    return content.size() <= longestContentChecked ? ContentWarnings(window.Page(), content, window.Pdf().Roles())
                                                   : PageWarnings();
}

QString PageWork::Use(const QString& nothingDone, const PageUse& use)
{
    return Do(nothingDone, [&](Turns& turns) { return use(window.DrawPage(), turns); });
}

QString PageWork::Do(const QString& nothingDone, const Work& work)
{
    QString said;
    Run([&] {
        const auto giveUp = [&](Phrase reason) {
            const QString sentence = nothingDone.left(1).toUpper() + nothingDone.mid(1);
            said = tr("%1: %2").arg(sentence, ToQt(Message(reason)));
        };
        Turns turns([this] { platform.Yield(); });
        try {
            said = work(turns);
        } catch (const PageStopped&) {
            said = tr("Canceled; %1").arg(nothingDone);
        } catch (const PageGivenUp& givenUp) {
            giveUp(givenUp.reason);
        } catch (const std::bad_alloc&) {
            giveUp(Phrase("there is not enough memory for the page"));
        }
    });
    return said;
}

Role PageWork::RoleNear(Point place, double reach) const
{
    // What can be drawn and searched in about a tenth of a second. The page is drawn again because the content that
    // is shown belongs to the thread of the renderer.
    constexpr std::int64_t mostContent = 4'000'000;  // bytes
    constexpr std::int64_t mostSteps = 2'500'000;    // more operators than that many bytes can contain
    Turns turns([] {}, mostSteps);
    const DrawnPage page = DrawBeginning(window.ReadPage(), turns, mostContent);
    return RoleAt(page.content, page.roles, place, reach, turns);
}

}  // namespace linealis::desktop
