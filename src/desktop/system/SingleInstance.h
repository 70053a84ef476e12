#pragma once

#include <QEventLoop>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QObject>
#include <QStringList>
#include <functional>
#include <memory>
#include <string>

namespace linealis::desktop {

/// Ensures that only one program runs per user and display: a second start hands its files to the first and exits.
/// A lock file determines the first, so that two simultaneous starts cannot both be it; a local socket transfers
/// the files.
class SingleInstance final : public QObject {
    Q_OBJECT

public:
    enum class Start {
        First,       ///< no other program runs; this is the running program now
        HandedOver,  ///< the running program has taken the files
        Canceled     ///< the running program has not answered, and Cancel() was called
    };

    /// `folder` must be accessible to this user only. `name` is the file name of the socket; programs with
    /// different names do not see each other. If `folder` is empty, every start is the first.
    SingleInstance(const QString& folder, const QString& name, QObject* parent = nullptr);

    /// Hands the files to the running program, or becomes the running program if there is none. Waits for a
    /// running program that does not answer, because it may have the same files open; calls `onWaiting` once if
    /// that takes more than a second. Processes events while it waits.
    /// `activationToken` is the permission of the desktop to bring a window to the front; it is handed over too,
    /// and may be empty.
    Start HandOver(const QStringList& files, const QString& activationToken,
                   const std::function<void()>& onWaiting);

    /// Ends a running HandOver with Start::Canceled.
    void Cancel();

    /// Stops listening, because the program is about to end. The lock is held until it has ended: a new start
    /// waits for that and then becomes the running program.
    void Stop() { server.close(); }

signals:
    /// Emitted when another start has handed over its files, after the answer to it. The list and the token may be
    /// empty. Receivers must return soon and do long work later, because this is called from the socket's event.
    void Received(const QStringList& files, const QString& activationToken);

private:
    void TryAgain();
    /// Connects to the running program and sends the message.
    void Ask();
    /// Ends HandOver with the result.
    void EndWith(Start result);
    /// Starts listening for later starts.
    void Listen();
    /// Reads the messages of connected programs. Drops connections from other users.
    void Accept();

    QString path;  ///< of the socket; empty if there is no folder for it
    std::unique_ptr<QLockFile> lock;
    QLocalServer server;

    // Used only during HandOver.
    std::string message;
    std::unique_ptr<QLocalSocket> socket;  ///< to the running program
    QEventLoop waiting;
    Start outcome = Start::Canceled;
};

}  // namespace linealis::desktop
