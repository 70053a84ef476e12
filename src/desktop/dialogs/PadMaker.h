#pragma once

#include "desktop/dialogs/PadJob.h"
#include "kinds/PadFile.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <atomic>
#include <thread>

namespace linealis::desktop {

class PadRemarks;

/// Makes the file of a pad on a thread of its own.
class PadMaker final : public QObject {
    Q_OBJECT

public:
    PadMaker();
    ~PadMaker() override { Finish(); }
    PadMaker(const PadMaker&) = delete;
    PadMaker& operator=(const PadMaker&) = delete;

    bool IsRunning() const { return isRunning; }

    /// Starts writing the pad to a file, which is replaced as a whole at the end. Must not be called while the
    /// maker is running.
    void Start(PadJob theJob, const QString& theTarget);

    /// Lets the work end soon; the file stays as it was. Returns at once; Ended follows.
    void Stop() { stops = true; }

    /// Lets the work end, and waits for that. Ended does not follow.
    void Finish();

    /// Returns the path of the file that was started last.
    QString Target() const { return target; }

signals:
    /// Emitted now and then: the different pages are drawn first, then the sheets are written.
    void Drawn(int pages, int ofPages);
    void Written(int sheets, int ofSheets);
    /// Emitted when the work has ended. `message` tells what went wrong or, if the file is written, the warnings;
    /// empty if there are none.
    void Ended(bool isWritten, const QString& message);
    /// For the maker itself: emitted on the thread when it has nothing more to do.
    void Left(bool isWritten, const QString& message);

private:
    /// Whether enough time has passed for a signal about the progress.
    bool IsTimeToTell();
    void Take(bool isWritten, const QString& message);

    // On the thread.
    void StopIfAsked() const;
    void Work();
    /// Writes the file to an open stream. Returns the warnings, or an empty text.
    QString Write(BinaryStream& stream);
    void AddPages(PadFile& file, PadRemarks& remarks);

    PadJob job;
    QString target;
    std::atomic<bool> stops = false;
    bool isRunning = false;
    QElapsedTimer sinceTold;
    std::thread thread;
};

}  // namespace linealis::desktop
