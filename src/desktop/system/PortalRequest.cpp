#include "desktop/system/PortalRequest.h"

#include "desktop/system/Text.h"

#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDialogButtonBox>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QVBoxLayout>
#include <QWindow>
#include <utility>

namespace linealis::desktop {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString printInterface = QStringLiteral("org.freedesktop.portal.Print");
const QString requestInterface = QStringLiteral("org.freedesktop.portal.Request");

/// Returns what the portal calls a window, so that its dialog stays above it; empty where Qt cannot tell.
QString NameOf(const QWidget* window)
{
    return window != nullptr && QGuiApplication::platformName() == QLatin1String("xcb")
               ? QStringLiteral("x11:%1").arg(window->window()->winId(), 0, 16)
               : QString();
}

}  // namespace

bool MustPrintThroughPortal()
{
    return QFile::exists(QStringLiteral("/.flatpak-info")) || qEnvironmentVariableIsSet("SNAP") ||
           qgetenv("QT_QPA_PLATFORMTHEME") == "xdgdesktopportal";
}

PortalRequest::PortalRequest(const QDBusConnection& theBus, const QString& theMethod, const QString& title,
                             const QVariantList& theArguments, const QVariantMap& theOptions, const QString& words,
                             QWidget* parent)
    : QDialog(parent), bus(theBus), method(theMethod), arguments{NameOf(parent), title}, options(theOptions)
{
    static int requests = 0;
    token = QStringLiteral("linealis%1").arg(++requests);
    arguments += theArguments;
    options.insert(QStringLiteral("handle_token"), token);
    setObjectName(QStringLiteral("portal"));
    setWindowTitle(title);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(new QLabel(words));
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::rejected, this, &PortalRequest::reject);
    column->addWidget(buttons);
}

void PortalRequest::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!std::exchange(isCalled, true)) {
        Call();
    }
}

void PortalRequest::Call()
{
    // The answer may come before the reply of the call, which has the path. The path is known beforehand, except
    // with portals before version 0.9.
    QString sender = bus.baseService().mid(1);
    Follow(portalPath +
           QStringLiteral("/request/%1/%2").arg(sender.replace(QLatin1Char('.'), QLatin1Char('_')), token));
    QDBusMessage call = QDBusMessage::createMethodCall(service, portalPath, printInterface, method);
    call.setArguments(arguments + QVariantList{options});
    auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusObjectPath> reply = *watcher;
        watcher->deleteLater();
        if (reply.isError()) {
            problem = reply.error().message();
            QDialog::reject();
        } else if (reply.value().path() != path) {
            Follow(reply.value().path());
        }
    });
}

void PortalRequest::Follow(const QString& thePath)
{
    path = thePath;
    bus.connect(service, path, requestInterface, QStringLiteral("Response"), this,
                SLOT(TakeResponse(uint, QVariantMap)));
}

void PortalRequest::TakeResponse(uint response, const QVariantMap& results)
{
    constexpr uint granted = 0, canceled = 1;
    answer = results;
    if (response == granted) {
        accept();
        return;
    }
    if (response != canceled) {
        problem = Translated("the desktop did not print it");
    }
    QDialog::reject();
}

void PortalRequest::reject()
{
    bus.asyncCall(QDBusMessage::createMethodCall(service, path, requestInterface, QStringLiteral("Close")));
    QDialog::reject();
}

}  // namespace linealis::desktop
