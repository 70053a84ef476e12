#include "desktop/SingleInstance.h"

#include "DesktopTestSupport.h"

#include <sys/socket.h>
#include <sys/un.h>

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
        auto second = std::async(std::launch::async, [&] { return SingleInstance(name).HandOver(files); });
        while (second.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready) {
            QCoreApplication::processEvents();
        }
        return second.get();
    }

    const QString name = QStringLiteral("linealis-test-%1").arg(QCoreApplication::applicationPid());
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
        SingleInstance first(name);
        first.Listen();
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
    {
        SingleInstance first(name);
        first.Listen();
        for (const fs::directory_entry& file : fs::directory_iterator(fs::temp_directory_path())) {
            if (file.path().filename().string().starts_with(name.toStdString())) {
                file.path().string().copy(address.sun_path, sizeof address.sun_path - 1);
            }
        }
    }
    ASSERT_STRNE(address.sun_path, "");
    ASSERT_FALSE(fs::exists(address.sun_path));
    const int left = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(left, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(left);  // as a killed program does it: the file stays
    ASSERT_TRUE(fs::exists(address.sun_path));

    EXPECT_FALSE(Start({QStringLiteral("/a.setx")}));
    SingleInstance next(name);
    next.Listen();
    QSignalSpy received(&next, &SingleInstance::Received);
    EXPECT_TRUE(Start({QStringLiteral("/a.setx")}));
    EXPECT_EQ(received.size(), 1);
}

}  // namespace
}  // namespace linealis::test
