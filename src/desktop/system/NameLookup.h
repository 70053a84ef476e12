#pragma once

#include <QHostAddress>
#include <QList>
#include <QTimer>
#include <memory>

namespace linealis::desktop {

/// Finds the addresses of a host by the system's resolver, beside everything else. Unlike Qt's own lookup it can be
/// given up at any moment: nothing waits for a name server that is silent, the end of the program neither.
class NameLookup final : public QObject {
    Q_OBJECT

public:
    NameLookup(const QString& host, QObject* parent);
    ~NameLookup() override;
    NameLookup(const NameLookup&) = delete;
    NameLookup& operator=(const NameLookup&) = delete;

signals:
    /// Once. None if the host is not known.
    void Found(const QList<QHostAddress>& addresses);

private:
    struct Request;

    void Look();

    std::unique_ptr<Request> request;
    QTimer timer;
};

}  // namespace linealis::desktop
