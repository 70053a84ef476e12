#include "desktop/system/HttpFetch.h"

#include "desktop/system/NameLookup.h"

#include <QTimer>
#include <utility>

namespace linealis::desktop {

namespace {

constexpr int portOfHttp = 80;

}  // namespace

HttpFetch::HttpFetch(QUrl address, const FetchLimits& theLimits,
                     std::function<void(const std::string& body)> onReply, QObject* parent)
    : QObject(parent), url(std::move(address)), limits(theLimits), reply(std::move(onReply))
{
    socket.setReadBufferSize(static_cast<qint64>(limits.longestAnswer));
    connect(&socket, &QTcpSocket::connected, this, &HttpFetch::SendRequest);
    connect(&socket, &QTcpSocket::readyRead, this, &HttpFetch::Read);
    // Queued, because a socket cannot start another connection while it is still emitting its error.
    connect(&socket, &QTcpSocket::errorOccurred, this, &HttpFetch::EndOfConnection, Qt::QueuedConnection);
    QTimer::singleShot(limits.milliseconds, this, &QObject::deleteLater);
    connect(new NameLookup(url.host(QUrl::FullyEncoded), this), &NameLookup::Found, this,
            [this](const QList<QHostAddress>& found) {
                addresses = found;
                ConnectToNext();
            });
}

void HttpFetch::ConnectToNext()
{
    if (addresses.isEmpty()) {
        deleteLater();
        return;
    }
    socket.connectToHost(addresses.takeFirst(), static_cast<quint16>(url.port(portOfHttp)));
}

void HttpFetch::SendRequest()
{
    const QString path = url.path(QUrl::FullyEncoded), query = url.query(QUrl::FullyEncoded);
    const QString target =
        (path.isEmpty() ? QStringLiteral("/") : path) + (query.isEmpty() ? QString() : QLatin1Char('?') + query);
    const QString host = url.authority(QUrl::FullyEncoded);
    socket.write(QStringLiteral("GET %1 HTTP/1.0\r\nHost: %2\r\nUser-Agent: Linealis\r\nConnection: close\r\n\r\n")
                     .arg(target, host)
                     .toLatin1());
}

void HttpFetch::Take()
{
    const QByteArray bytes = socket.read(static_cast<qint64>(limits.longestAnswer - answer.Size()));
    answer.Add({bytes.data(), static_cast<std::size_t>(bytes.size())});
}

void HttpFetch::Read()
{
    Take();
    if (answer.IsNoPage() || answer.Body(limits.longestBody, false) || answer.Size() >= limits.longestAnswer) {
        End(false);
    }
}

/// Called when the server has closed the connection or could not be reached. Tries the next address if nothing was
/// received.
void HttpFetch::EndOfConnection(QAbstractSocket::SocketError why)
{
    Take();
    if (answer.Size() == 0 && !addresses.isEmpty()) {
        ConnectToNext();
    } else {
        End(why == QAbstractSocket::RemoteHostClosedError);
    }
}

void HttpFetch::End(bool isClosed)
{
    socket.abort();
    if (const auto body = answer.Body(limits.longestBody, isClosed); body && reply) {
        // Not directly: the reply may show a dialog, and this object is deleted while the dialog is open.
        QMetaObject::invokeMethod(
            parent(), [reply = std::exchange(reply, nullptr), body = *body] { reply(body); }, Qt::QueuedConnection);
    }
    deleteLater();
}

}  // namespace linealis::desktop
