#pragma once

#include <QObject>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace linealis::desktop {

/// Runs the program that makes pads, in the background.
class PadProgram final : public QObject {
    Q_OBJECT

public:
    PadProgram();

    /// Returns the path where the program must be.
    static QString Path();
    static bool IsInstalled();

    bool IsRunning() const { return process.state() != QProcess::NotRunning; }

    /// Starts writing a pad to the file `theTarget`. `options` describe the pad. Must not be called while the
    /// program is running.
    void Start(const QStringList& options, const QString& theTarget);

    /// Ends the program, if it is running, and waits for its end. It removes the unfinished file.
    void Stop();

    /// Returns the path of the file that was started last.
    QString Target() const { return target; }

signals:
    /// Emitted when the program has ended or could not be started. `message` tells what went wrong or, if the file
    /// is written, the warnings of the program; empty if there are none.
    void Ended(bool isWritten, const QString& message);

private:
    void Finished(int status, QProcess::ExitStatus how);

    QProcess process;
    QString target;
    bool isStopped = false;
};

}  // namespace linealis::desktop
