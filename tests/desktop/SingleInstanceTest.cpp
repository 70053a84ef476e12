#include "desktop/system/SingleInstance.h"

#include "DesktopTestSupport.h"
#include "platform/OwnUser.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QLocalSocket>
#include <QSignalSpy>
#include <future>

namespace linealis::test {
namespace {

using desktop::SingleInstance;

class SingleInstanceTest : public testing::Test {
protected:
    using Start = SingleInstance::Start;

    static Start HandOver(SingleInstance& instance, const QStringList& files, const QString& token = {})
    {
        return instance.HandOver(files, token, [] { ADD_FAILURE() << "it waits"; });
    }

    /// A second start, beside the first.
    Start StartAgain(const QStringList& files, const QString& token = {})
    {
        auto second = std::async(std::launch::async, [&] {
            SingleInstance instance(path, name);
            return HandOver(instance, files, token);
        });
        while (second.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready) {
            QCoreApplication::processEvents();
        }
        return second.get();
    }

    TemporaryFolder folder;
    const fs::path place = (folder / "linealis").parent_path();
    const QString path = QString::fromStdString(place.string());
    const QString name = QStringLiteral("linealis");
};

TEST_F(SingleInstanceTest, FilesGoToTheRunningProgram)
{
    EXPECT_EQ(StartAgain({QStringLiteral("/a.setx")}), Start::First) << "none runs";
    QStringList many;
    for (int i = 0; i < 5000; ++i) {
        many << QStringLiteral("/folder with blanks/%1 \u00E9\u65E5.setx").arg(i);
    }
    const std::vector<QStringList> starts = {{QStringLiteral("/a.setx"), QStringLiteral("/b c.setd")}, {}, many};
    {
        SingleInstance first(path, name);
        EXPECT_EQ(HandOver(first, {}), Start::First);
        QSignalSpy received(&first, &SingleInstance::Received);
        for (const QStringList& files : starts) {
            for (const QString& token : {QString(), QStringLiteral("compositor-7_TIME12")}) {
                EXPECT_EQ(StartAgain(files, token), Start::HandedOver);
                ASSERT_EQ(received.size(), 1);
                EXPECT_EQ(received[0].at(0).toStringList(), files);
                EXPECT_EQ(received.takeFirst().at(1).toString(), token);
            }
        }
    }
    EXPECT_EQ(StartAgain({}), Start::First) << "it has ended";
}

TEST_F(SingleInstanceTest, WhatADeadProgramLeftIsNoProgram)
{
    sockaddr_un address{AF_UNIX, {}};
    (folder / "linealis").string().copy(address.sun_path, sizeof address.sun_path - 1);
    const int left = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(left, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(left);  // as a killed program does it: the file stays
    ASSERT_TRUE(fs::exists(address.sun_path));

    EXPECT_EQ(StartAgain({QStringLiteral("/a.setx")}), Start::First);
    SingleInstance next(path, name);
    EXPECT_EQ(HandOver(next, {}), Start::First);
    QSignalSpy received(&next, &SingleInstance::Received);
    EXPECT_EQ(StartAgain({QStringLiteral("/a.setx")}), Start::HandedOver);
    EXPECT_EQ(received.size(), 1);
}

TEST_F(SingleInstanceTest, WaitsForAProgramThatDoesNotAnswer)
{
    SingleInstance nowhere({}, name);
    EXPECT_EQ(HandOver(nowhere, {}), Start::First);

    QLockFile running(path + QStringLiteral("/linealis.lock"));
    ASSERT_TRUE(running.tryLock(0));
    QLocalServer silent;
    ASSERT_TRUE(silent.listen(path + QStringLiteral("/linealis")));
    SingleInstance second(path, name);
    EXPECT_EQ(second.HandOver({QStringLiteral("/a.setx")}, {}, [&] { second.Cancel(); }), Start::Canceled);
    EXPECT_EQ(second.HandOver({QStringLiteral("/a.setx")}, {}, [&] { running.unlock(); }), Start::First)
        << "it has ended";
}

TEST_F(SingleInstanceTest, WaitsForNobodyWhoCannotBeReached)
{
    for (const auto& [where, as] : {std::pair(path + QStringLiteral("/missing"), name),
                                    std::pair(path, QString(150, QLatin1Char('x')))}) {  // no socket has that name
        SingleInstance first(where, as), second(where, as);
        EXPECT_EQ(HandOver(first, {}), Start::First);
        EXPECT_EQ(HandOver(second, {}), Start::First);
    }
}

TEST_F(SingleInstanceTest, TakesNothingButAMessage)
{
    SingleInstance first(path, name);
    EXPECT_EQ(HandOver(first, {}), Start::First);
    QSignalSpy received(&first, &SingleInstance::Received);
    QLocalSocket odd;
    const auto send = [&](const QByteArray& bytes, bool isAnswered) {
        odd.connectToServer(path + QStringLiteral("/linealis"));
        for (qsizetype at = 0; at < bytes.size(); at += 1'000'000) {
            odd.write(bytes.mid(at, 1'000'000));
            QTest::qWait(1);
        }
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return odd.state() != QLocalSocket::ConnectedState || odd.bytesAvailable(); }));
        EXPECT_EQ(odd.bytesAvailable(), isAnswered ? 1 : 0);
        odd.abort();
    };
    send(QByteArray(9'000'000, 'x'), false);
    EXPECT_EQ(received.size(), 0);
    odd.connectToServer(path + QStringLiteral("/linealis"));
    odd.write(QByteArray("/a\0\0", 4));
    ASSERT_TRUE(odd.waitForBytesWritten());
    odd.abort();  // before the program has looked
    QTest::qWait(50);
    EXPECT_EQ(received.size(), 0) << "it has been canceled";
    send(QByteArray("/a\0/b\0\0/c\0\0", 12), true);
    ASSERT_EQ(received.size(), 1);
    EXPECT_EQ(received[0].at(0).toStringList(), QStringList({QStringLiteral("/a"), QStringLiteral("/b")}));
}

TEST_F(SingleInstanceTest, OnlyAFolderOfOnesOwnIsTrusted)
{
    const fs::path own = folder / ("linealis-" + std::to_string(::getuid()));
    ::setenv("XDG_RUNTIME_DIR", (folder / "none").c_str(), 1);
    EXPECT_EQ(PrivateRuntimeFolder(place), own) << "made";
    fs::permissions(own, fs::perms(0755));
    EXPECT_EQ(PrivateRuntimeFolder(place), fs::path()) << "others can look into it";
    fs::remove(own);
    fs::create_directory_symlink(folder / "elsewhere", own);
    EXPECT_EQ(PrivateRuntimeFolder(place), fs::path()) << "a link";
    fs::create_directory(folder / "run");
    fs::permissions(folder / "run", fs::perms(0700));
    ::setenv("XDG_RUNTIME_DIR", (folder / "run").c_str(), 1);
    EXPECT_EQ(PrivateRuntimeFolder(place), folder / "run");
}

}  // namespace
}  // namespace linealis::test
