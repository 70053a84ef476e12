#pragma once

#include "app/App.h"
#include "desktop/dialogs/PrintPage.h"
#include "desktop/form/FormHistory.h"
#include "desktop/system/DesktopPlatform.h"
#include "desktop/window/PageWork.h"

#include <QMainWindow>
#include <QRect>
#include <QTimer>
#include <functional>
#include <memory>
#include <utility>

class QAction;
class QMenu;
class QMimeData;

namespace linealis::desktop {

class CheckButton;
class FormAndPage;
class FormView;
class LivePage;
class LivePane;
class MarkerChooser;
class PaperBottomBar;
class PaperTopBar;
class StatusLine;
enum class PagePlace;

/// The window of one paper kind. Shows its form and the live page, and offers everything that can be done with
/// them.
class PaperView final : public QMainWindow, public FileAsker {
    Q_OBJECT

public:
    /// All arguments must outlive the view; see Keep for the window. `theHistory` are the steps of the window so
    /// far; null if there are none.
    PaperView(DesktopPlatform& thePlatform, const PaperKind& theKind, PaperWindow& theWindow,
              std::unique_ptr<FormHistory> theHistory = nullptr);
    ~PaperView() override;
    PaperView(const PaperView&) = delete;
    PaperView& operator=(const PaperView&) = delete;

    const PaperKind& Kind() const { return kind; }
    PaperWindow& Window() { return window; }

    /// Takes ownership of the paper window, which the application has released, until the view is deleted.
    void Keep(std::unique_ptr<PaperWindow> closedWindow) { kept = std::move(closedWindow); }

    /// Stores the window's settings, hides it, and emits Closed. Must not be called while a page is being made.
    void End();

    /// Makes the page, like the Generate button. Does nothing while a page is being made.
    void Generate();

    /// Stops the page that is being made; its file stays unchanged.
    void Cancel() { work.Stop(); }

    /// Adds the items for the form and the page to the menu bar, which must be installed already.
    void AddMenus();

    QString ProposedName() const override;
    QString SettingsFolder() const override;

    /// Shows or hides the live page. The window grows or shrinks by its width, as far as the screen allows.
    void ShowLivePage(bool visible);
    /// Moves the live page into a second window, or back to the form.
    void ShowPageInOwnWindow(bool isOwn);
    /// Makes the window open over that place of the desktop, unless it has been placed before.
    void OpenOver(const QRect& place) { openingPlace = place; }
    /// Prints the page with the system's print dialog.
    void Print();

    /// Asks for a format and a file, and writes the page as a picture.
    void Export();
    /// Puts the page on the clipboard, in all formats.
    void CopyPage();
    /// Puts the form on the clipboard as the end of the address of the page for browsers.
    void CopyLink();

    /// Asks for another output file.
    void ChangeFile();
    /// Undoes the last step and says so in the status line. Does nothing if there is none.
    void Undo();
    /// Redoes the step that was undone last and says so in the status line. Does nothing if there is none.
    void Redo();
    /// Resets the form to its original defaults, but keeps the output and settings files. Can be undone.
    void Reset();

    /// Says in the status line that there is no settings file to save to, and offers Save As.
    void TellHowToSave();

    /// Finishes the entry in the focused field, which becomes a step of its own.
    void FinishEdit();
    /// Changes the window, as one step of that name. Shows a note of the platform in the status line, such as a
    /// failure. Returns true if there was none.
    bool DoAsStep(const QString& name, const std::function<void(PaperWindow& window)>& change);
    /// Loads the preset `title` into the form by calling `lay`, as one step, and says so in the status line.
    void LayOver(const QString& title, const std::function<void(PaperWindow& window)>& lay);
    /// Restores the form as it was when the last window of the kind was closed, as one step.
    void BringBack();
    FormHistory& History() { return *history; }
    /// Stores the window's settings, hides it, and gives its steps to the view that takes its place. It must be
    /// deleted before that view is made. Must not be called while a page is being made.
    std::unique_ptr<FormHistory> GiveWay();
    /// Whether a page is being made.
    bool IsBusy() const { return work.IsRunning(); }

    /// Shows in the status line what has happened. The target of a link is a command for Follow.
    void Say(const QString& text, const QList<QPair<QString, QString>>& links = {});

    /// Must be called after code outside the view has changed the window. Makes a step with that name if the form
    /// has changed. Shows a note of the platform, if there is one, in the status line. Returns true if there was
    /// none.
    bool ChangedOutside(const QString& name);

signals:
    /// Emitted when the window has ended. It is hidden already.
    void Closed(const PaperKind& kind);
    void GalleryWanted();
    /// Emitted when the user wants to choose a preset from pictures.
    void PickerWanted();
    /// Emitted when the user wants to see the manual, at the chapter of this kind.
    void ManualWanted();
    /// Emitted when settings files have been dropped on the window.
    void FilesDropped(const QStringList& files);
    /// Emitted when the user has chosen settings files to open, each in the window of its kind.
    void FilesWanted(const QStringList& files);

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// Creates the widgets.
    void LayOut();
    /// Returns the largest size of the window that fits the screen.
    QSize LargestSize() const;
    /// Connects the widgets.
    void Connect();
    /// Shows the progress of a page, with a Cancel button if it takes noticeable time.
    void ConnectWork();
    void MakePresetMenu();
    /// Adds the choice of a marker file to the form of a kind that has markers.
    void MakeMarkerChooser();
    /// Uses the markers of another file, and switches the markers on.
    void MarkersChosen();
    /// Restores the size and position of the window, and where it shows the live page.
    void Place();
    /// Returns the size of the window when it opens for the first time.
    QSize FirstSize() const;
    /// Shows the live page at that place, and gives the window the size for it.
    void PlacePage(PagePlace place);
    void PrintPad();
    void Calibrate();
    /// Draws the page, passes it to `use`, and shows the message that results. Does nothing while a page is being
    /// made.
    void Use(const QString& nothingDone, const PageWork::PageUse& use);
    /// Lets `doWork` do work with a page, and shows the message that it returns. Does nothing while a page is being
    /// made.
    void Do(const std::function<QString()>& doWork);
    void MakePage();
    void SayHowPageEnded();
    void ShowWizard();
    /// Lets the user fit the axes to ranges of data, with the page following every entry. OK makes one step.
    void ShowRangeWizard();
    /// Updates everything that depends on the form: the live page, the warnings, the title, and the buttons.
    void FormChanged();
    /// Shows the warnings of the form, followed by those of the page.
    void ShowWarnings();
    void ShowWarningsOfPage(PageWarnings warnings);
    /// Highlights the parts of the live page that the focused field governs.
    void LightUp();
    /// Returns the control that governs what the page shows at a position, in points from its lower left corner,
    /// or null.
    const Control* ControlAt(const QPointF& place) const;
    /// Moves the focus to the widget of the control with that name.
    void FocusOn(const QString& control);
    /// Returns the title of the page on the form; empty if the kind has no title.
    QString Title() const;
    /// Returns a name for the page, never empty: that of its output file, or the proposed name, or that of the
    /// kind.
    QString PageName() const;
    /// Offers, in the status line, to restore the form that was closed last, if it differs from the current form.
    /// Does nothing if the form has already been changed or loaded.
    void OfferToBringBack();
    /// Whether the window may close. If the settings file is not up to date, asks the user whether to save it.
    bool MayClose();
    /// Stores the size and position of the window, and where it shows the live page.
    void Keep() const;
    /// Performs the command of a link in the status line.
    void Follow(const QString& link);
    /// Opens a PDF file in the system's viewer, or shows that there is none.
    void View(const FolderItem& file);

    DesktopPlatform& platform;
    const PaperKind& kind;
    PaperWindow& window;
    std::unique_ptr<FormHistory> history;
    PageWork work;
    std::unique_ptr<PaperWindow> kept;  ///< owns `window` after it has been closed; null before
    FormView* form = nullptr;
    FormAndPage* middle = nullptr;
    LivePane* livePane = nullptr;
    LivePage* livePage = nullptr;
    QAction* livePageAction = nullptr;
    QAction* ownWindowAction = nullptr;
    QMenu* presets = nullptr;
    const Control* focused = nullptr;  ///< the field with the focus, or null
    PaperTopBar* topBar = nullptr;
    PaperBottomBar* bottomBar = nullptr;
    StatusLine* status = nullptr;
    CheckButton* checks = nullptr;
    MarkerChooser* markers = nullptr;  ///< null if the kind has no markers
    PageWarnings formWarnings;
    PageWarnings pageWarnings;   ///< of the page that was drawn last
    QTimer changeDelay;          ///< combines simultaneous changes into one call of FormChanged
    QString presetName;          ///< of the last preset loaded into the form; cleared by later steps
    QString padFile;             ///< the path of the pad that was saved last
    QString givenTitle;          ///< the title that the form started with, or got from that preset
    QRect openingPlace;          ///< see OpenOver
    bool placed = false;         ///< whether the window has been shown before
    bool closeWhenDone = false;  ///< whether to close the window after the running work
};

/// Returns the local settings files, and pictures that can carry a form, among the dragged data, by their
/// extensions.
QStringList SettingsFilesIn(const QMimeData& dragged);

/// Returns the local text file, with the extension "txt", among the dragged data; empty if there is not exactly
/// one.
QString MarkerFileIn(const QMimeData& dragged);

}  // namespace linealis::desktop
