#pragma once

#include "desktop/dialogs/PadBack.h"
#include "desktop/dialogs/PadFields.h"
#include "desktop/dialogs/PadFront.h"
#include "desktop/dialogs/PadJob.h"
#include "desktop/dialogs/PadMaker.h"
#include "desktop/system/DesktopPlatform.h"
#include "kinds/PaperKinds.h"

#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QString>
#include <optional>

namespace linealis::desktop {

class PadPicture;

/// Asks how to make a pad, a booklet or a poster of the page of a window, and saves it as a PDF file. Printing it
/// is up to the caller, which closes the dialog first.
class PadDialog final : public QDialog {
    Q_OBJECT

public:
    /// The result of the dialog if the pad is to be printed.
    static constexpr int printing = 2;

    /// `theWindow` must be of the kind. `name` is the proposed file name without an extension.
    PadDialog(DesktopPlatform& thePlatform, const PaperKind& theKind, PaperWindow& theWindow, QString theName,
              QWidget* parent);

    /// Returns the pad that is to be printed.
    const PadJob& Job() const { return job; }
    /// Returns the path of the file that was saved last; empty if there is none.
    QString SavedFile() const { return saved; }

    void reject() override;

private:
    QWidget* MakeButtons();
    void ConnectFields();
    /// Lets the picture show the fronts of the job.
    void TakeFronts();
    /// Shows what the fields say, or why that is impossible.
    void ShowPad();
    QString Summary() const;
    /// Returns the names and sizes of the pages.
    PadPages Pages() const;
    void Say(const QString& text);

    /// Reads the fields into `job`. Throws PadError or UnknownInput.
    void Plan();
    /// Completes the job, after asking for a marker file that the pages need.
    void Complete();

    void Print();
    void Save();
    QString AskForFile();
    void ShowProgress(const QString& text, int done, int all);
    void ShowEnd(bool isWritten, const QString& message);
    /// Shows that work has begun or ended.
    void ShowWorking(bool works);
    void Cancel();

    DesktopPlatform& platform;
    const PaperKind& kind;
    PaperWindow& window;
    PadJob job;
    PadFront front;
    PadBack back;
    QString name;

    PadFields* fields = nullptr;
    PadPicture* picture = nullptr;
    QLabel* summary = new QLabel;
    QLabel* said = new QLabel;
    QProgressBar* progress = new QProgressBar;
    QPushButton* save = nullptr;
    QPushButton* print = nullptr;
    QPushButton* cancel = nullptr;

    PadMaker maker;
    QString saved;
};

}  // namespace linealis::desktop
