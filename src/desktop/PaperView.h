#pragma once

#include "app/App.h"
#include "desktop/DesktopPlatform.h"

#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <memory>
#include <utility>

class QLabel;
class QProgressBar;
class QPushButton;

namespace linealis::desktop {

/// The window of one paper kind.
class PaperView final : public QMainWindow {
    Q_OBJECT

public:
    PaperView(DesktopPlatform& thePlatform, const PaperKind& theKind, PaperWindow& theWindow);
    ~PaperView() override;
    PaperView(const PaperView&) = delete;
    PaperView& operator=(const PaperView&) = delete;

    const PaperKind& Kind() const { return kind; }
    PaperWindow& Window() { return window; }

    /// Owns the paper window from now on, because nobody else will.
    void Keep(std::unique_ptr<PaperWindow> closedWindow) { kept = std::move(closedWindow); }

    /// Ends the window, which makes no page.
    void End();

    /// Makes the page, as the Generate button does. Does nothing while one is being made.
    void Generate();

    /// Stops the page that is being made; the file stays as it was.
    void Cancel() { stop = true; }

signals:
    void Closed(const PaperKind& kind);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* MakeButtons();
    void MakePage();
    void ShowWizard();
    void ShowProgress(bool visible);

    DesktopPlatform& platform;
    const PaperKind& kind;
    PaperWindow& window;
    std::unique_ptr<PaperWindow> kept;  ///< the same, once it is closed
    QPushButton* generateButton = nullptr;
    QPushButton* cancelButton = nullptr;
    QProgressBar* progress = nullptr;
    QTimer progressDelay;
    bool generating = false;
    bool stop = false;
    bool closeWhenDone = false;
};

}  // namespace linealis::desktop
