#pragma once

#include "desktop/system/HttpAnswer.h"

#include <QHostAddress>
#include <QList>
#include <QTcpSocket>
#include <QUrl>
#include <functional>
#include <string>

namespace linealis::desktop {

/// The limits of an HTTP request.
struct FetchLimits {
    int milliseconds = 0;           ///< for the whole request
    std::size_t longestBody = 0;    ///< bytes; the rest of the body is ignored
    std::size_t longestAnswer = 0;  ///< bytes read in total, head included; an answer that needs more fails
};

/// Performs one HTTP GET without blocking, on the thread of its owner. Deletes itself when it is done. If its
/// parent is deleted earlier, the request is aborted.
///
/// Enforces its limits whatever the server sends. QNetworkAccessManager (Qt 6.4) does not: it reads an endless
/// head in one go, and the program's exit waits for its name lookup. HTTP/1.0 answers have neither chunks nor
/// interim answers, so they are easy to read without a library.
class HttpFetch final : public QObject {
    Q_OBJECT

public:
    /// Starts the request. Calls `onReply` with the body, on the thread of `parent`, if the server answers with
    /// status 200 within the limits. Any failure is silent. `address` must use http. `parent` must not be null.
    HttpFetch(QUrl address, const FetchLimits& theLimits, std::function<void(const std::string& body)> onReply,
              QObject* parent);

private:
    /// Connects to the next address of the host, or gives up if none is left.
    void ConnectToNext();
    void SendRequest();
    /// Moves the received bytes into `answer`, within the limit.
    void Take();
    void Read();
    void EndOfConnection(QAbstractSocket::SocketError why);
    /// Passes the body on, if there is one, and deletes the request. `isClosed`: the server has closed the
    /// connection.
    void End(bool isClosed);

    QUrl url;
    FetchLimits limits;
    std::function<void(const std::string& body)> reply;
    QList<QHostAddress> addresses;  ///< the addresses of the host that have not been tried yet
    QTcpSocket socket;
    HttpAnswer answer;
};

}  // namespace linealis::desktop
