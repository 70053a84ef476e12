#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDialog>
#include <QString>
#include <QVariant>

namespace linealis::desktop {

/// Whether a sandbox hides the printers from the program, so that it must print through the desktop's portal.
/// QT_QPA_PLATFORMTHEME=xdgdesktopportal does the same outside a sandbox.
bool MustPrintThroughPortal();

/// A dialog that makes a request to the desktop's print portal (org.freedesktop.portal.Print) and waits for its
/// answer, with a button to cancel it. It is accepted if the portal does what was requested.
class PortalRequest final : public QDialog {
    Q_OBJECT

public:
    /// Prepares a call of a method of the portal. The call has the parent window, `title`, `arguments`, and
    /// `options`. `bus` is the session's, except in tests. `words` tell the user what the dialog waits for.
    PortalRequest(const QDBusConnection& theBus, const QString& theMethod, const QString& title,
                  const QVariantList& theArguments, const QVariantMap& theOptions, const QString& words,
                  QWidget* parent);

    /// Returns why the request failed; empty if it did not or the user canceled it.
    QString Problem() const { return problem; }
    /// Returns the answer of the portal.
    QVariantMap Answer() const { return answer; }

    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;

private slots:
    /// Takes the signal of the portal at the end of a request. `response` is 0 if it was granted and 1 if the user
    /// canceled it.
    void TakeResponse(uint response, const QVariantMap& results);

private:
    void Call();
    /// Follows the signals of the request at that path of the bus.
    void Follow(const QString& path);

    QDBusConnection bus;
    QString method;
    QString token;  ///< the last part of the path of the request
    QString path;
    QVariantList arguments;
    QVariantMap options;
    QString problem;
    QVariantMap answer;
    bool isCalled = false;
};

}  // namespace linealis::desktop
