#include "TestSupport.h"
#include "desktop/system/Application.h"

#include <QStandardPaths>

namespace {

/// Sets up a screen like that of a small laptop, unless the tests run on a real one.
void SetUpScreen(const linealis::test::fs::path& configuration)
{
    // Also a build lists the tests, and has no screen.
    if (qEnvironmentVariable("QT_QPA_PLATFORM", QStringLiteral("offscreen")) == QLatin1String("offscreen")) {
        linealis::test::WriteFile(configuration, R"({"screens": [{"name": "laptop", "x": 0, "y": 0, "width": 1280,
            "height": 720, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QByteArray::fromStdString(configuration.string()));
    }
}

}  // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    // Nothing of the user's is read or written, and two runs do not meet.
    const linealis::test::TemporaryFolder home;
    for (const char* const name :
         {"HOME", "TMPDIR", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"}) {
        const std::string path = home / name;
        linealis::test::fs::create_directory(path);
        linealis::test::fs::permissions(path, linealis::test::fs::perms(0700));
        qputenv(name, QByteArray::fromStdString(path));
    }
    SetUpScreen(home / "screen.json");
    QStandardPaths::setTestModeEnabled(true);
    linealis::desktop::Application application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Linealis"));
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
