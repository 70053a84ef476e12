#include "desktop/dialogs/PortalPrint.h"

#include "DesktopTestSupport.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>
#include <QProcess>

namespace linealis::test {
namespace {

/// The print portal of a desktop whose user answers as set.
class Portal final : public QDBusVirtualObject {
public:
    explicit Portal(QDBusConnection theBus) : bus(std::move(theBus))
    {
        bus.registerVirtualObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                                  QDBusConnection::SubPath);
        bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& /*connection*/) override
    {
        calls.push_back(message.member().toStdString());
        const QVariantList arguments = message.arguments();
        if (message.member() == QLatin1String("Close")) {
            return bus.send(message.createReply());
        }
        const auto options = qdbus_cast<QVariantMap>(arguments.last());
        QString sender = message.service().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
        const QString request = QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
                                    .arg(sender, options[QStringLiteral("handle_token")].toString());
        if (message.member() == QLatin1String("PreparePrint")) {
            setup = qdbus_cast<QVariantMap>(arguments[3]);
        } else {
            Save(arguments[2].value<QDBusUnixFileDescriptor>().fileDescriptor());
            token = options[QStringLiteral("token")].toUInt();
        }
        bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(request))));
        if (!answers.empty()) {
            QDBusMessage response = QDBusMessage::createSignal(
                request, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
            response.setArguments({answers.front(), QVariantMap{{QStringLiteral("token"), 7U}}});
            answers.pop_front();
            bus.send(response);
        }
        return true;
    }

    std::deque<uint> answers;  ///< to requests: 0 granted, 1 canceled, 2 failed; without one, none comes
    Names calls;
    QVariantMap setup;
    uint token = 0;
    std::string printed;  ///< the name of a file with what was printed

private:
    void Save(int descriptor) const
    {
        QFile given;
        ASSERT_TRUE(given.open(descriptor, QIODevice::ReadOnly));
        WriteFile(printed, given.readAll().toStdString());
    }

    QDBusConnection bus;
};

class PortalPrint : public testing::Test {
protected:
    PortalPrint()
    {
        // A bus of the test that starts no services, such as the portal of this machine.
        const std::string settings = folder / "bus.conf";
        WriteFile(settings,
                  "<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen><policy context='default'>"
                  "<allow send_destination='*'/><allow receive_sender='*'/><allow own='*'/></policy></busconfig>");
        daemon.start(QStringLiteral("dbus-daemon"),
                     {QStringLiteral("--config-file=%1").arg(ToQt(settings)), QStringLiteral("--nofork"),
                      QStringLiteral("--print-address")});
        EXPECT_TRUE(daemon.waitForReadyRead()) << daemon.errorString().toStdString();
        const QString address = QString::fromLatin1(daemon.readLine()).trimmed();
        ours = QDBusConnection::connectToBus(address, QStringLiteral("ours"));
        theirs = QDBusConnection::connectToBus(address, QStringLiteral("theirs"));
        EXPECT_TRUE(ours.isConnected() && theirs.isConnected());
    }
    ~PortalPrint() override
    {
        ours = theirs = QDBusConnection(QString());  // a connection closes with its last reference
        QDBusConnection::disconnectFromBus(QStringLiteral("ours"));
        QDBusConnection::disconnectFromBus(QStringLiteral("theirs"));
        daemon.kill();
        daemon.waitForFinished();
    }

    std::string Print()
    {
        const auto window = MakeWindow(*FindPaperKind("hexagon"), platform);
        window->form.PopupOrientation.SetListIndex(1);
        const DrawnPage page = DrawPage(window->ReadPage(), turns);
        const auto run = [&](QDialog& dialog) {
            if (cancels) {
                QTimer::singleShot(200, &dialog, [&dialog] { Click(*dialog.findChild<QPushButton*>()); });
            }
            return dialog.exec();
        };
        return desktop::PrintThroughPortal(ours, page, turns, QStringLiteral("Wall"), nullptr, run).toStdString();
    }

    TemporaryFolder folder;
    QProcess daemon;
    QDBusConnection ours{QString()}, theirs{QString()};
    ScreenlessPlatform platform;
    Turns turns{[] {}};
    bool cancels = false;
};

TEST_F(PortalPrint, HandsThePageOverAtTrueSize)
{
    Portal portal(theirs);
    portal.printed = folder / "printed.pdf";
    portal.answers = {0, 0};
    const std::string said = Print();
    EXPECT_TRUE(said.starts_with("Printed through the desktop, Letter")) << said;
    EXPECT_EQ(portal.calls, (Names{"PreparePrint", "Print"}));
    EXPECT_EQ(portal.token, 7U);
    EXPECT_NEAR(portal.setup[QStringLiteral("Width")].toDouble(), 215.9, 1e-6);
    EXPECT_EQ(portal.setup[QStringLiteral("Orientation")].toString(), QStringLiteral("landscape"));
    const std::string information = Execute({"pdfinfo", portal.printed}).output;
    EXPECT_NE(information.find(" 792 x 612 pts"), std::string::npos) << information;
}

TEST_F(PortalPrint, EndsInOrderWithoutAPrint)
{
    EXPECT_TRUE(Print().starts_with("Wall was not printed: The name org.freedesktop.portal.Desktop "));
    Portal portal(theirs);
    portal.answers = {1};
    EXPECT_EQ(Print(), "");
    portal.answers = {2};
    EXPECT_EQ(Print(), "Wall was not printed: the desktop did not print it");
    portal.calls.clear();
    cancels = true;
    EXPECT_EQ(Print(), "");
    EXPECT_TRUE(QTest::qWaitFor([&] { return portal.calls == Names{"PreparePrint", "Close"}; }));
}

}  // namespace
}  // namespace linealis::test
