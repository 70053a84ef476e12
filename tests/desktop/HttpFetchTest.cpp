#include "desktop/system/HttpFetch.h"

#include "DesktopTestSupport.h"
#include "services/VersionCheckThread.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <atomic>
#include <future>
#include <mutex>
#include <thread>

namespace linealis::test {
namespace {

/// A web server on this machine, for one request after the other. It leaves the end of each to the client.
class WebServer {
public:
    using Answer = std::function<void(QTcpSocket& client)>;

    explicit WebServer(Answer answer)
    {
        std::promise<quint16> listening;
        std::future<quint16> port = listening.get_future();
        thread = std::thread([this, answer = std::move(answer), &listening] { Serve(answer, listening); });
        address = "http://127.0.0.1:" + std::to_string(port.get());
    }
    ~WebServer()
    {
        stopped = true;
        thread.join();
    }
    WebServer(const WebServer&) = delete;
    WebServer& operator=(const WebServer&) = delete;

    const std::string& Address() const { return address; }

    /// First lines of the requests.
    Names Requests() const
    {
        const std::lock_guard lock(mutex);
        return requests;
    }

    /// Waits until the client has left, and what it made of that has been done.
    void WaitForLeaving() const
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return left > 0; }, 10'000));
        QCoreApplication::processEvents();
    }

private:
    static constexpr int milliseconds = 10;

    void Serve(const Answer& answer, std::promise<quint16>& listening)
    {
        QTcpServer server;
        server.listen(QHostAddress::LocalHost);
        listening.set_value(server.serverPort());
        while (!stopped) {
            if (!server.waitForNewConnection(milliseconds)) {
                continue;
            }
            const std::unique_ptr<QTcpSocket> client(server.nextPendingConnection());
            QByteArray request;
            while (!stopped && !request.contains("\r\n\r\n")) {
                client->waitForReadyRead(milliseconds);
                request += client->readAll();
            }
            {
                const std::lock_guard lock(mutex);
                requests.push_back(request.left(request.indexOf('\r')).toStdString());
            }
            answer(*client);
            while (!stopped && client->state() == QAbstractSocket::ConnectedState) {
                client->waitForDisconnected(milliseconds);
            }
            ++left;
        }
    }

    std::thread thread;
    std::string address;
    std::atomic<bool> stopped = false;
    std::atomic<int> left = 0;
    mutable std::mutex mutex;
    Names requests;
};

void Send(QTcpSocket& client, const QByteArray& bytes)
{
    client.write(bytes);
    while (client.bytesToWrite() > 0 && client.waitForBytesWritten()) {
    }
}

WebServer::Answer Page(const QByteArray& body, const QByteArray& status = "200 OK")
{
    return [=](QTcpSocket& client) {
        Send(client,
             "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body);
    };
}

/// The head of an answer, then one thing without end, until the client hangs up.
WebServer::Answer Endless(const QByteArray& head, const QByteArray& piece, std::chrono::milliseconds pause = {})
{
    return [=](QTcpSocket& client) {
        Send(client, head);
        while (client.state() == QAbstractSocket::ConnectedState) {
            Send(client, piece);
            client.waitForReadyRead(1);
            std::this_thread::sleep_for(pause);
        }
    };
}

const QByteArray ok = "HTTP/1.1 200 OK\r\n";
constexpr int anHour = 3'600'000;  // longer than any test may take

class HttpFetchTest : public testing::Test {
protected:
    void Fetch(const WebServer& server, int milliseconds = anHour, const std::string& path = "")
    {
        new desktop::HttpFetch(
            QUrl(ToQt(server.Address() + path)), {milliseconds, 4096, 65536},
            [this](const std::string& body) { replies.push_back(body); }, &owner);
    }

    /// What becomes of an answer.
    Names RepliesTo(WebServer::Answer answer, int milliseconds = anHour)
    {
        replies.clear();
        const WebServer server(std::move(answer));
        Fetch(server, milliseconds);
        server.WaitForLeaving();
        EXPECT_TRUE(QTest::qWaitFor([this] { return owner.children().isEmpty(); }));
        QCoreApplication::processEvents();
        return replies;
    }

    QObject owner;
    Names replies;
};

TEST_F(HttpFetchTest, GivesTheBody)
{
    const WebServer server(Page("1.4.0\r\n"));
    Fetch(server, anHour, "/version/b.html?p=1");
    server.WaitForLeaving();
    EXPECT_EQ(replies, Names({"1.4.0\r\n"}));
    EXPECT_EQ(server.Requests(), Names({"GET /version/b.html?p=1 HTTP/1.0"}));
    EXPECT_EQ(RepliesTo([](QTcpSocket& client) {
                  for (const char c : ok + "content-LENGTH: 2\r\n\r\n1.4") {
                      Send(client, QByteArray(1, c));
                  }
              }),
              Names({"1."}));
    EXPECT_EQ(RepliesTo([](QTcpSocket& client) {
                  Send(client, ok + "\r\n1.4");
                  client.disconnectFromHost();
              }),
              Names({"1.4"}));
}

TEST_F(HttpFetchTest, OnlySuccessCounts)
{
    for (const char* const status :
         {"404 Not Found", "500 Internal Server Error", "204 No Content", "201 Created"}) {
        EXPECT_EQ(RepliesTo(Page(QByteArray(status).startsWith("204") ? "" : "1.4.0", status)), Names()) << status;
    }
    for (const QByteArray& answer : {ok + "Content-Length: 100\r\n\r\n1.4", ok + "Date: now\r\n", QByteArray("1.4"),
                                     ok + "Transfer-Encoding: chunked\r\n\r\n3\r\n1.4\r\n0\r\n\r\n"}) {
        EXPECT_EQ(RepliesTo([&](QTcpSocket& client) {
                      Send(client, answer);
                      client.disconnectFromHost();
                  }),
                  Names())
            << answer.toStdString();
    }
}

TEST_F(HttpFetchTest, KeepsItsLimitsWhateverTheServerSends)
{
    const QByteArray many(1000, '0');
    EXPECT_EQ(RepliesTo(Endless(ok + "\r\n", many)), Names{std::string(4096, '0')}) << replies.size();
    EXPECT_EQ(RepliesTo(Endless("", many)), Names());
    EXPECT_EQ(RepliesTo(Endless(ok + "Name: ", many)), Names());
    EXPECT_EQ(RepliesTo(Endless(ok, QByteArray("Name: value\r\n").repeated(100))), Names());
    EXPECT_EQ(RepliesTo(Endless("", QByteArray("HTTP/1.1 100 Continue\r\n\r\n").repeated(100))), Names());
    EXPECT_EQ(RepliesTo(Endless(ok + "Transfer-Encoding: chunked\r\n\r\n", many)), Names());
    EXPECT_EQ(RepliesTo(Endless(ok + "\r\n", "x", std::chrono::milliseconds(50)), 500), Names());
}

TEST_F(HttpFetchTest, EndsWithItsOwner)
{
    const WebServer server([](QTcpSocket&) {});
    auto* const owned = new QObject;
    new desktop::HttpFetch(
        QUrl(ToQt(server.Address())), {anHour, 4096, 65536},
        [this](const std::string& body) { replies.push_back(body); }, owned);
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.Requests().size() == 1; }));
    delete owned;
    server.WaitForLeaving();
    EXPECT_EQ(replies, Names());
}

class VersionCheck : public testing::Test {
protected:
    void TearDown() override { EXPECT_TRUE(person.IsDone()); }

    void Check(const WebServer& server)
    {
        checks.push_back(std::make_unique<VersionCheckThread>(platform, ProgramVersion{1, 3, 0}, server.Address(),
                                                              skipped, [this](std::int64_t v) { skipped = v; }));
        checks.back()->Event_Run();
    }

    void Presses(const std::string& version, const char* button)
    {
        person.Answers<QMessageBox>([=](QMessageBox& box) {
            EXPECT_EQ(box.text().toStdString(),
                      "A new version of this program, " + version +
                          ", is now available. Would you like your web browser to open the download page so you "
                          "can get a copy?");
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.thread(), qApp->thread());
            Names texts;
            for (QAbstractButton* const each : box.buttons()) {
                texts.push_back(each->text().remove(QLatin1Char('&')).toStdString());
                if (texts.back() == button) {
                    QTimer::singleShot(0, each, [each] { Click(*each); });
                }
            }
            std::sort(texts.begin(), texts.end());
            EXPECT_EQ(texts, Names({"Not Now", "Skip This Version", "Yes"}));
        });
    }

    void ExpectDialog(const WebServer& server, const std::string& version, const char* button)
    {
        Presses(version, button);
        Check(server);
        EXPECT_TRUE(
            QTest::qWaitFor([this] { return person.IsDone() && QApplication::activeModalWidget() == nullptr; }));
    }

    desktop::DesktopPlatform platform;
    Person person;
    Viewer viewer;
    std::vector<std::unique_ptr<VersionCheckThread>> checks;
    std::int64_t skipped = 0;
};

TEST_F(VersionCheck, NewerVersionIsOffered)
{
    const WebServer server(Page("1.4.0\n"));
    ExpectDialog(server, "1.4.0", "Not Now");
    EXPECT_EQ(viewer.shown, Names());
    EXPECT_EQ(skipped, 0);
    ExpectDialog(server, "1.4.0", "Yes");
    EXPECT_EQ(viewer.shown, Names({server.Address() + "/software/linealis.html"}));
    EXPECT_EQ(skipped, 0);
    const WebServer markup(Page("<b>x</b> y"));
    ExpectDialog(markup, "<b>x</b>", "Not Now");
}

}  // namespace
}  // namespace linealis::test
