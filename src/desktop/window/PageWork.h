#pragma once

#include "desktop/system/DesktopPlatform.h"
#include "pdf/PageRoles.h"
#include "pipeline/document/PaperWindow.h"
#include "pipeline/page/PageJob.h"
#include "pipeline/page/PageWarning.h"
#include "platform/Turns.h"

#include <QObject>
#include <QString>
#include <QTimer>
#include <functional>

namespace linealis::desktop {

/// Makes the pages of one window, one at a time. The interface stays responsive during the work, which Stop ends.
class PageWork final : public QObject {
    Q_OBJECT

public:
    /// Does work that can be stopped in its turns. Returns the message for the status line.
    using Work = std::function<QString(Turns& turns)>;
    /// Uses a drawn page. Can be stopped in its turns. Returns the message for the status line.
    using PageUse = std::function<QString(const DrawnPage& page, Turns& turns)>;

    /// The arguments must outlive the object.
    PageWork(DesktopPlatform& thePlatform, PaperWindow& theWindow);

    /// While this returns true, none of Generate, Do and Use may be called.
    bool IsRunning() const { return running; }

    /// Stops the running work, if any, at its next turn; a file that it writes stays unchanged.
    void Stop() { stop = true; }

    /// Makes the page and writes its file, like the Generate button.
    void Generate();

    /// Returns the warnings about the page that Generate has made last; none if its content is too long to be
    /// checked in passing.
    PageWarnings WarningsOfFile() const;

    /// Does the work. Returns its message, or, if the page is stopped or given up, one that ends or begins with
    /// `nothingDone`, such as "nothing was printed".
    QString Do(const QString& nothingDone, const Work& work);

    /// Draws the page and passes it to `use`. Returns a message as Do does.
    QString Use(const QString& nothingDone, const PageUse& use);

    /// Returns the role of what the page shows within `reach` of a place, both in points; empty if there is
    /// nothing. Blocks the interface for about a tenth of a second at most, so only the beginning of a long page is
    /// searched.
    Role RoleNear(Point place, double reach) const;

signals:
    void Started();
    /// Emitted when the work takes noticeable time and is not waiting for the user.
    void TakesTime();
    void Ended();

private:
    void Run(const std::function<void()>& work);

    DesktopPlatform& platform;
    PaperWindow& window;
    QTimer progressDelay;  ///< until TakesTime
    bool running = false;
    bool stop = false;  ///< tells the running work to stop
};

}  // namespace linealis::desktop
