#pragma once

#include <QLocalServer>
#include <QObject>
#include <QStringList>

namespace linealis::desktop {

/// One running program a user and display: a second start hands its files to the first and leaves.
class SingleInstance final : public QObject {
    Q_OBJECT

public:
    /// `folder` is one that nobody but this user can look into; `name` tells the programs of one kind and display
    /// from others. Without a folder every start is the only one.
    SingleInstance(const QString& folder, const QString& name, QObject* parent = nullptr);

    /// Hands the files to the running program. Returns whether there is one that took them. Whatever else stands at
    /// the place of its socket delays the start by less than three seconds.
    bool HandOver(const QStringList& files) const;

    /// Becomes the running program.
    void Listen();

signals:
    /// Another start has handed over its files, which may be none. Who takes them does it later: the other program
    /// still waits to be told that they have come.
    void Received(const QStringList& files);

private:
    void Accept();

    QString path;  ///< of the socket; empty if there is no place for it
    QLocalServer server;
};

}  // namespace linealis::desktop
