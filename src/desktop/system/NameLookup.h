#pragma once

#include <QHostAddress>
#include <QList>
#include <QTimer>
#include <memory>

namespace linealis::desktop {

/// Looks up the addresses of a host with the system's resolver, without blocking. Unlike Qt's own lookup, it can
/// be abandoned at any time by deleting it: not even the program's exit waits for a name server that does not
/// answer.
class NameLookup final : public QObject {
    Q_OBJECT

public:
    NameLookup(const QString& host, QObject* parent);
    ~NameLookup() override;
    NameLookup(const NameLookup&) = delete;
    NameLookup& operator=(const NameLookup&) = delete;

signals:
    /// Emitted once, with an empty list if the host is unknown.
    void Found(const QList<QHostAddress>& addresses);

private:
    struct Request;

    /// Polls the resolver.
    void Look();

    std::unique_ptr<Request> request;
    QTimer timer;
};

}  // namespace linealis::desktop
