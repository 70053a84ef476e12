// Measures how soon the live page follows a key press on the default page of every kind, and how long a key press
// waits while a page of a million strokes is drawn next to it: key_latency RESULTS

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
#include <QTimer>
#include <algorithm>
#include <fstream>
#include <memory>
#include <vector>

namespace {

using namespace linealis;

constexpr int keys = 60;
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

/// Returns the seconds from each of many key presses to the resulting page, in ascending order.
std::vector<double> Latencies(const PaperKind& kind)
{
    Shown shown(kind);
    WaitForPage(*shown.page);
    std::vector<double> latencies;
    for (int i = 0; i < keys; ++i) {
        Pause(30);  // until the program is idle again
        QElapsedTimer timer;
        timer.start();
        if (i % 2 == 0) {
            shown.field->setCursorPosition(static_cast<int>(shown.field->text().size()));
            PressKey(*shown.field, Qt::Key_1, QStringLiteral("1"));
        } else {
            PressKey(*shown.field, Qt::Key_Backspace, {});
        }
        WaitForPage(*shown.page);
        latencies.push_back(static_cast<double>(timer.nsecsElapsed()) * nanosecond);
    }
    std::sort(latencies.begin(), latencies.end());
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

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc != 2) {
        return 2;
    }
    std::ofstream results(argv[1]);
    double slowestMedian = 0.0, worst = 0.0;
    for (const PaperKind& kind : PaperKinds()) {
        const std::vector<double> latencies = Latencies(kind);
        slowestMedian = std::max(slowestMedian, latencies[latencies.size() / 2]);
        worst = std::max(worst, latencies.back());
        results << kind.name << "_median " << latencies[latencies.size() / 2] << '\n'
                << kind.name << "_worst " << latencies.back() << '\n';
    }
    results << "median " << slowestMedian << '\n' << "worst " << worst << '\n' << "wait " << LongestWait() << '\n';
    return results.flush() ? 0 : 1;
}
