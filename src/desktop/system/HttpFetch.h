#pragma once

#include "desktop/system/HttpAnswer.h"

#include <QHostAddress>
#include <QList>
#include <QTcpSocket>
#include <QUrl>
#include <functional>
#include <string>

namespace linealis::desktop {

/// What an HTTP request may cost at most.
struct FetchLimits {
    int milliseconds = 0;           ///< from the beginning to the end
    std::size_t longestBody = 0;    ///< bytes; what follows is left
    std::size_t longestAnswer = 0;  ///< bytes in all, the head included; a longer answer is none
};

/// One HTTP GET, beside everything else on the thread of its owner. It goes when it is done; when its parent goes
/// before, the request is broken off.
///
/// It keeps its limits whatever the server sends, which QNetworkAccessManager (Qt 6.4) does not: that reads a head
/// without end in one go, and waits at the program's end for a name server. To read an HTTP/1.0 answer, which has
/// neither chunks nor interim answers, no library is needed.
class HttpFetch final : public QObject {
    Q_OBJECT

public:
    /// `onReply` gets the body, on the thread of `parent`, if the server answers with status 200 within the limits;
    /// any failure is silent. `address` is one of http.
    HttpFetch(QUrl address, const FetchLimits& theLimits, std::function<void(const std::string& body)> onReply,
              QObject* parent);

private:
    void ConnectToNext();
    void SendRequest();
    void Take();
    void Read();
    void EndOfConnection(QAbstractSocket::SocketError why);
    void End(bool isClosed);

    QUrl url;
    FetchLimits limits;
    std::function<void(const std::string& body)> reply;
    QList<QHostAddress> addresses;  ///< of the host, those that have not been tried
    QTcpSocket socket;
    HttpAnswer answer;
};

}  // namespace linealis::desktop
