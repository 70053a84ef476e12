#include "desktop/HttpFetch.h"

#include "desktop/NameLookup.h"

#include <QTimer>
#include <algorithm>
#include <utility>

namespace linealis::desktop {

namespace {

constexpr int portOfHttp = 80;

/// The value of a field in the head of an answer; empty if it is not there.
QByteArray FieldOf(const QByteArray& head, const QByteArray& name)
{
    for (const QByteArray& line : head.split('\n')) {
        const qsizetype colon = line.indexOf(':');
        if (colon > 0 && line.left(colon).compare(name, Qt::CaseInsensitive) == 0) {
            return line.mid(colon + 1).trimmed();
        }
    }
    return {};
}

}  // namespace

void HttpAnswer::Add(const QByteArray& bytes)
{
    const QByteArray endOfHead = "\r\n\r\n";
    const qsizetype searched = std::max<qsizetype>(answer.size() - endOfHead.size(), 0);
    answer += bytes;
    if (bodyStart >= 0) {
        return;
    }
    const qsizetype end = answer.indexOf(endOfHead, searched);
    if (end < 0) {
        return;
    }
    bodyStart = end + endOfHead.size();
    const QByteArray head = answer.left(end);
    const QList<QByteArray> statusLine = answer.left(answer.indexOf('\r')).split(' ');
    // An answer in chunks is none to HTTP/1.0.
    isPage = statusLine[0].startsWith("HTTP/1.") && statusLine.value(1) == "200" &&
             FieldOf(head, "Transfer-Encoding").isEmpty();
    bool isNumber = false;
    const qlonglong length = FieldOf(head, "Content-Length").toLongLong(&isNumber);
    contentLength = isNumber && length >= 0 ? length : -1;
}

std::optional<QByteArray> HttpAnswer::Body(qsizetype longest, bool isClosed) const
{
    if (!isPage) {
        return std::nullopt;
    }
    const qsizetype come = answer.size() - bodyStart;
    const bool isWhole = contentLength < 0 ? isClosed : come >= contentLength;
    if (!isWhole && come < longest) {
        return std::nullopt;
    }
    return answer.mid(bodyStart, contentLength < 0 ? longest : std::min(longest, contentLength));
}

HttpFetch::HttpFetch(QUrl address, const FetchLimits& theLimits,
                     std::function<void(const std::string& body)> onReply, QObject* parent)
    : QObject(parent), url(std::move(address)), limits(theLimits), reply(std::move(onReply))
{
    socket.setReadBufferSize(limits.longestAnswer);
    connect(&socket, &QTcpSocket::connected, this, &HttpFetch::SendRequest);
    connect(&socket, &QTcpSocket::readyRead, this, &HttpFetch::Read);
    // Queued, since a socket that is still telling of its failure connects to nothing.
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

void HttpFetch::Read()
{
    answer.Add(socket.read(limits.longestAnswer - answer.Size()));
    if (answer.IsNoPage() || answer.Body(limits.longestBody, false) || answer.Size() >= limits.longestAnswer) {
        End(false);
    }
}

/// The other side has closed it, or it never came about.
void HttpFetch::EndOfConnection(QAbstractSocket::SocketError why)
{
    answer.Add(socket.read(limits.longestAnswer - answer.Size()));
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
        // Not from here: the user may be asked meanwhile, and this goes.
        QMetaObject::invokeMethod(
            parent(), [reply = std::exchange(reply, nullptr), body = body->toStdString()] { reply(body); },
            Qt::QueuedConnection);
    }
    deleteLater();
}

}  // namespace linealis::desktop
