#include "desktop/HttpFetch.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>
#include <QUrl>
#include <utility>

namespace linealis::desktop {

namespace {

constexpr int statusOk = 200;
constexpr int millisecondsPerSecond = 1000;

/// The request, on the thread that it is moved to.
class Request : public QObject {
public:
    Request(QString theUrl, std::size_t longest, int seconds, std::function<void(const QByteArray&)> theOnBody)
        : url(std::move(theUrl)), limit(static_cast<qsizetype>(longest)),
          timeLimit(seconds * millisecondsPerSecond), onBody(std::move(theOnBody))
    {}

    void Start()
    {
        auto* const manager = new QNetworkAccessManager(this);
        QNetworkRequest request{QUrl(url)};
        // A redirection is no 200, and could lead anywhere.
        request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
        reply = manager->get(request);
        connect(reply, &QNetworkReply::readyRead, this, [this] { Collect(); });
        connect(reply, &QNetworkReply::finished, this, [this] { Finish(); });
        QTimer::singleShot(timeLimit, this,
                           [this] { reply->abort(); });  // of the whole, also of a reply that trickles
    }

private:
    bool Succeeded() const
    {
        return reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() == statusOk;
    }

    void Collect()
    {
        body += reply->read(limit - body.size());
        if (body.size() >= limit) {
            enough = true;
            reply->abort();
        }
    }

    void Finish()
    {
        if (!enough && reply->isOpen()) {
            body += reply->read(limit - body.size());
        }
        if (Succeeded() && (enough || reply->error() == QNetworkReply::NoError)) {
            onBody(body);
        }
        thread()->quit();
    }

    QString url;
    qsizetype limit;
    int timeLimit;
    std::function<void(const QByteArray&)> onBody;
    QNetworkReply* reply = nullptr;
    QByteArray body;
    bool enough = false;
};

}  // namespace

HttpFetch::HttpFetch(const QString& url, std::size_t longest, int seconds,
                     std::function<void(const std::string&)> onReply, QObject* parent)
    : QObject(parent)
{
    // The signal crosses to this object's thread, or is dropped with this object.
    connect(this, &HttpFetch::Replied, this,
            [onReply = std::move(onReply)](const QByteArray& body) { onReply(body.toStdString()); });
    auto* const request =
        new Request(url, longest, seconds, [this](const QByteArray& body) { emit Replied(body); });
    request->moveToThread(&thread);
    connect(&thread, &QThread::started, request, &Request::Start);
    connect(&thread, &QThread::finished, request, &QObject::deleteLater);
    thread.start(QThread::LowestPriority);
}

HttpFetch::~HttpFetch()
{
    thread.quit();
    thread.wait();
}

}  // namespace linealis::desktop
