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

/// One running program a user and display: a second start hands its files to the first and leaves. The running
/// program is the one that holds a lock, so that two that start at once are not both the first.
class SingleInstance final : public QObject {
    Q_OBJECT

public:
    enum class Start {
        First,       ///< no other runs: this is the running program now
        HandedOver,  ///< the running program has taken the files
        Canceled     ///< it has not, and Cancel() was called
    };

    /// `folder` is one that nobody but this user can look into; `name` tells the programs of one kind and display
    /// from others. Without a folder every start is the only one.
    SingleInstance(const QString& folder, const QString& name, QObject* parent = nullptr);

    /// Hands the files to the running program, or becomes it if there is none. A program that runs and does not
    /// answer is waited for, since it may have the same files open: `onWaiting` is called once if that takes more
    /// than a second. Events are handled meanwhile.
    Start HandOver(const QStringList& files, const std::function<void()>& onWaiting);

    /// Ends HandOver.
    void Cancel();

    /// The program is about to end: the next start is a program of its own.
    void Stop() { server.close(); }

signals:
    /// Another start has handed over its files, which may be none. Who takes them does it later: the other program
    /// still waits to be told that they have come.
    void Received(const QStringList& files);

private:
    void TryAgain();
    void Ask();
    void EndWith(Start result);
    void Listen();
    void Accept();

    QString path;  ///< of the socket; empty if there is no place for it
    std::unique_ptr<QLockFile> lock;
    QLocalServer server;

    // While the files are handed over.
    std::string message;
    std::unique_ptr<QLocalSocket> socket;  ///< to the running program; none if it has not been reached
    QEventLoop waiting;
    Start outcome = Start::Canceled;
};

}  // namespace linealis::desktop
