#pragma once

#include <QLocalServer>
#include <QObject>
#include <QStringList>

namespace linealis::desktop {

/// One running program a user: a second start hands its files to the first and leaves.
class SingleInstance final : public QObject {
    Q_OBJECT

public:
    /// `name` tells the programs of one kind from others.
    explicit SingleInstance(const QString& name, QObject* parent = nullptr);

    /// Hands the files to the running program. Returns whether there is one that took them.
    bool HandOver(const QStringList& files) const;

    /// Becomes the running program.
    void Listen();

signals:
    /// Another start has handed over its files, which may be none.
    void Received(const QStringList& files);

private:
    void Receive();

    QString serverName;
    QLocalServer server;
};

}  // namespace linealis::desktop
