#pragma once

#include <QObject>
#include <QString>
#include <QThread>
#include <functional>
#include <string>

namespace linealis::desktop {

/// One HTTP GET on a thread of its own. Owned by its parent; when the parent goes, the request is broken off.
class HttpFetch : public QObject {
    Q_OBJECT

public:
    /// `onReply` gets the body, on this object's thread, if the server answers with status 200 in time. Never more
    /// than `longest` bytes of it.
    HttpFetch(const QString& url, std::size_t longest, int seconds, std::function<void(const std::string&)> onReply,
              QObject* parent);
    ~HttpFetch() override;
    HttpFetch(const HttpFetch&) = delete;
    HttpFetch& operator=(const HttpFetch&) = delete;

signals:
    void Replied(const QByteArray& body);

private:
    QThread thread;
};

}  // namespace linealis::desktop
