#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QObject>
#include <QStringList>
#include <memory>

namespace linealis::desktop {

/// One running program a user and display: a second start hands its files to the first and leaves. The running
/// program is the one that holds a lock, so that two that start at once are not both the first.
class SingleInstance final : public QObject {
    Q_OBJECT

public:
    /// `folder` is one that nobody but this user can look into; `name` tells the programs of one kind and display
    /// from others. Without a folder every start is the only one.
    SingleInstance(const QString& folder, const QString& name, QObject* parent = nullptr);

    /// Hands the files to the running program, or becomes it if there is none. Returns whether another took the
    /// files. One that holds the lock and does not answer, or holds none and has left its socket, is none after a
    /// second.
    bool HandOver(const QStringList& files);

    /// The program is about to end: the next start is a program of its own.
    void Stop() { server.close(); }

signals:
    /// Another start has handed over its files, which may be none. Who takes them does it later: the other program
    /// still waits to be told that they have come.
    void Received(const QStringList& files);

private:
    bool Ask(const QStringList& files) const;
    void Listen();
    void Accept();

    QString path;  ///< of the socket; empty if there is no place for it
    std::unique_ptr<QLockFile> lock;
    QLocalServer server;
};

}  // namespace linealis::desktop
