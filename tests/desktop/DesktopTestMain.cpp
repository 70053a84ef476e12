#include "TestSupport.h"
#include "desktop/system/Application.h"

#include <QStandardPaths>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");  // also a build lists the tests, and has no screen
    }
    // Nothing of the user's is read or written, and two runs do not meet.
    const linealis::test::TemporaryFolder home;
    for (const char* const name :
         {"HOME", "TMPDIR", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"}) {
        const std::string path = home / name;
        linealis::test::fs::create_directory(path);
        linealis::test::fs::permissions(path, linealis::test::fs::perms(0700));
        qputenv(name, QByteArray::fromStdString(path));
    }
    QStandardPaths::setTestModeEnabled(true);
    linealis::desktop::Application application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Linealis"));
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
