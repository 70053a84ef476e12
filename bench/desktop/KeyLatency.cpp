// Measures how soon the live page follows a key press, and a margin that is dragged, on the default page of every
// kind, and how long a key press waits while a page of a million strokes is drawn next to it: key_latency RESULTS

#include "Pages.h"
#include "desktop/page/LivePage.h"
#include "desktop/system/DesktopPlatform.h"
#include "desktop/window/PaperView.h"
#include "kinds/PaperKinds.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTimer>
#include <algorithm>
#include <fstream>
#include <functional>
#include <memory>
#include <vector>

namespace {

using namespace linealis;

constexpr int actions = 60;
constexpr double nanosecond = 1e-9;

void PressKey(QLineEdit& field, int key, const QString& text)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&field, &press);
}

void Pause(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Waits until the page is painted on the screen, at most 2 seconds.
void WaitForPage(desktop::LivePage& page)
{
    QEventLoop loop;
    const auto connection = QObject::connect(&page, &desktop::LivePage::Painted, &loop, &QEventLoop::quit);
    QTimer::singleShot(2000, &loop, &QEventLoop::quit);
    loop.exec();
    QObject::disconnect(connection);
    page.viewport()->repaint();
}

/// A window of the kind, freshly opened, with its live page next to the form.
struct Shown {
    explicit Shown(const PaperKind& kind, const std::vector<bench::Setting>& settings = {})
        : window(MakeWindow(kind, platform))
    {
        bench::Apply(settings, window->form);
        view = std::make_unique<desktop::PaperView>(platform, kind, *window);
        view->show();
        view->ShowLivePage(true);
        page = view->findChild<desktop::LivePage*>();
        field = view->findChild<QLineEdit*>(QStringLiteral("EditTopMargin"));
        field->setFocus();
    }

    desktop::DesktopPlatform platform;
    std::unique_ptr<PaperWindow> window;
    std::unique_ptr<desktop::PaperView> view;
    desktop::LivePage* page;
    QLineEdit* field;
};

/// Returns the seconds from each of many actions, which are numbered, to the resulting page, in ascending order.
std::vector<double> Latencies(desktop::LivePage& page, const std::function<void(int number)>& act)
{
    std::vector<double> latencies;
    for (int i = 0; i < actions; ++i) {
        Pause(30);  // until the program is idle again
        QElapsedTimer timer;
        timer.start();
        act(i);
        WaitForPage(page);
        latencies.push_back(static_cast<double>(timer.nsecsElapsed()) * nanosecond);
    }
    std::sort(latencies.begin(), latencies.end());
    return latencies;
}

std::vector<double> LatenciesOfKeys(const PaperKind& kind)
{
    Shown shown(kind);
    WaitForPage(*shown.page);
    return Latencies(*shown.page, [&](int number) {
        if (number % 2 == 0) {
            shown.field->setCursorPosition(static_cast<int>(shown.field->text().size()));
            PressKey(*shown.field, Qt::Key_1, QStringLiteral("1"));
        } else {
            PressKey(*shown.field, Qt::Key_Backspace, {});
        }
    });
}

void SendMouse(const desktop::LivePage& page, QEvent::Type type, QPointF place)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, page.viewport()->mapToGlobal(place), button, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(page.viewport(), &event);
}

/// Drags the top margin to and fro. Ends the program if it does not follow.
std::vector<double> LatenciesOfDrag(const PaperKind& kind)
{
    Shown shown(kind);
    desktop::LivePage& page = *shown.page;
    WaitForPage(page);
    Pause(300);  // until the zoom has settled
    const auto height = static_cast<double>(page.Frame().paperHeight);
    const QPointF edge = page.Origin() + QPointF(300.0, height - page.Frame().TopEdge()) * page.PixelsPerPoint();
    constexpr QPointF far(0.0, 40.0), near(0.0, 20.0);  // pixels
    const QString before = shown.field->text();
    SendMouse(page, QEvent::MouseButtonPress, edge);
    std::vector<double> latencies = Latencies(
        page, [&](int number) { SendMouse(page, QEvent::MouseMove, edge + (number % 2 == 0 ? far : near)); });
    SendMouse(page, QEvent::MouseButtonRelease, edge + near);
    if (shown.field->text() == before) {
        qFatal("the margin of %s was not dragged", std::string(kind.name).c_str());
    }
    return latencies;
}

/// Returns the longest time in seconds that a key press and the following turn of the event loop delayed the next
/// key press while a heavy page was drawn.
double LongestWait()
{
    constexpr int strokes = 1'000'000;
    const bench::Page page = bench::PageOfDots(strokes);
    Shown shown(*FindPaperKind(page.kind), page.settings);
    QElapsedTimer all;
    all.start();
    double longest = 0.0;
    for (int i = 0; all.elapsed() < 5000; ++i) {
        QElapsedTimer timer;
        timer.start();
        PressKey(*shown.field, i % 2 == 0 ? Qt::Key_1 : Qt::Key_Backspace,
                 i % 2 == 0 ? QStringLiteral("1") : QString());
        QCoreApplication::processEvents();
        longest = std::max(longest, static_cast<double>(timer.nsecsElapsed()) * nanosecond);
        Pause(50);  // time between two keys of a fast typist
    }
    return longest;
}

/// Measures all kinds. Writes the median and the worst case of each, and the largest of these, with the prefix.
void WriteLatencies(std::ostream& results, const std::string& prefix,
                    std::vector<double> (*latenciesOf)(const PaperKind& kind))
{
    double slowestMedian = 0.0, worst = 0.0;
    for (const PaperKind& kind : PaperKinds()) {
        const std::vector<double> latencies = latenciesOf(kind);
        slowestMedian = std::max(slowestMedian, latencies[latencies.size() / 2]);
        worst = std::max(worst, latencies.back());
        results << prefix << kind.name << "_median " << latencies[latencies.size() / 2] << '\n'
                << prefix << kind.name << "_worst " << latencies.back() << '\n';
    }
    results << prefix << "median " << slowestMedian << '\n' << prefix << "worst " << worst << '\n';
}

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc != 2) {
        return 2;
    }
    std::ofstream results(argv[1]);
    WriteLatencies(results, "", LatenciesOfKeys);
    WriteLatencies(results, "drag_", LatenciesOfDrag);
    results << "wait " << LongestWait() << '\n';
    return results.flush() ? 0 : 1;
}
