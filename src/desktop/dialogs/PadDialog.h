#pragma once

#include "desktop/dialogs/PadBack.h"
#include "desktop/dialogs/PadProgram.h"
#include "desktop/system/DesktopPlatform.h"
#include "kinds/PadSheet.h"
#include "kinds/PaperKinds.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFormLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QString>
#include <QTemporaryDir>
#include <optional>

namespace linealis::desktop {

class PadPicture;

/// Asks how to print a pad of the page of a window, and saves it as a PDF file with the program that makes pads.
/// Printing it is up to the caller, which closes the dialog first.
class PadDialog final : public QDialog {
    Q_OBJECT

public:
    /// The result of the dialog if the pad is to be printed.
    static constexpr int printing = 2;

    /// `theWindow` must be of the kind. `name` is the proposed file name without an extension.
    PadDialog(DesktopPlatform& thePlatform, const PaperKind& theKind, PaperWindow& theWindow, QString theName,
              QWidget* parent);
    ~PadDialog() override;
    PadDialog(const PadDialog&) = delete;
    PadDialog& operator=(const PadDialog&) = delete;

    PadLayout Layout() const;
    int Copies() const { return copies->value(); }
    /// Returns the page for the backs; nothing if they stay blank.
    std::optional<PaperPage> Back() const { return back.Page(); }
    /// Returns the path of the file that was saved last; empty if there is none.
    QString SavedFile() const { return saved; }

    void reject() override;

private:
    void AddFields(QFormLayout& rows);
    QWidget* MakeButtons();
    void ShowPad();
    void Keep() const;
    void Restore();

    void Save();
    /// Returns the command line for the program that makes pads, or nothing if its input cannot be written.
    std::optional<QStringList> Arguments();
    QString AskForFile();
    void ShowEnd(bool isWritten, const QString& message);
    /// Shows that the work has begun or ended.
    void ShowWorking(bool works);

    DesktopPlatform& platform;
    const PaperKind& kind;
    PaperWindow& window;
    const PaperPage page;
    PadBack back;
    QString name;

    QWidget* fields = new QWidget;
    QSpinBox* pages = new QSpinBox;
    QComboBox* up = new QComboBox;
    QCheckBox* numbers = nullptr;
    QSpinBox* copies = new QSpinBox;
    PadPicture* picture = nullptr;
    QLabel* summary = new QLabel;
    QLabel* said = new QLabel;
    QProgressBar* progress = new QProgressBar;
    QPushButton* save = nullptr;
    QPushButton* print = nullptr;
    QPushButton* cancel = nullptr;

    QTemporaryDir folder;  ///< private to the user; for the form that is handed over
    PadProgram program;
    QString saved;
};

}  // namespace linealis::desktop
