#include "desktop/SingleInstance.h"

#include "DesktopTestSupport.h"
#include "platform/OwnUser.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QSignalSpy>
#include <future>

namespace linealis::test {
namespace {

using desktop::SingleInstance;

class SingleInstanceTest : public testing::Test {
protected:
    /// A second start, beside the first.
    bool Start(const QStringList& files)
    {
        auto second = std::async(std::launch::async, [&] { return SingleInstance(path, name).HandOver(files); });
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
    EXPECT_FALSE(Start({QStringLiteral("/a.setx")})) << "none runs";
    QStringList many;
    for (int i = 0; i < 5000; ++i) {
        many << QStringLiteral("/folder with blanks/%1 \u00E9\u65E5.setx").arg(i);
    }
    const std::vector<QStringList> starts = {{QStringLiteral("/a.setx"), QStringLiteral("/b c.setd")}, {}, many};
    {
        SingleInstance first(path, name);
        EXPECT_FALSE(first.HandOver({}));
        QSignalSpy received(&first, &SingleInstance::Received);
        for (const QStringList& files : starts) {
            EXPECT_TRUE(Start(files));
            ASSERT_EQ(received.size(), 1);
            EXPECT_EQ(received.takeFirst().at(0).toStringList(), files);
        }
    }
    EXPECT_FALSE(Start({})) << "it has ended";
}

TEST_F(SingleInstanceTest, WhatADeadProgramLeftIsNoProgram)
{
    sockaddr_un address{AF_UNIX, {}};
    (folder / "linealis").string().copy(address.sun_path, sizeof address.sun_path - 1);
    const int left = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(left, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(left);  // as a killed program does it: the file stays
    ASSERT_TRUE(fs::exists(address.sun_path));

    EXPECT_FALSE(Start({QStringLiteral("/a.setx")}));
    SingleInstance next(path, name);
    EXPECT_FALSE(next.HandOver({}));
    QSignalSpy received(&next, &SingleInstance::Received);
    EXPECT_TRUE(Start({QStringLiteral("/a.setx")}));
    EXPECT_EQ(received.size(), 1);
}

TEST_F(SingleInstanceTest, NoPlaceOrNoAnswerIsNoProgram)
{
    EXPECT_FALSE(SingleInstance({}, name).HandOver({}));
    QLocalServer silent;
    ASSERT_TRUE(silent.listen(path + QStringLiteral("/linealis")));
    EXPECT_FALSE(SingleInstance(path, name).HandOver({}));
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
