#pragma once

#include "app/App.h"
#include "check/PageCheck.h"
#include "desktop/dialogs/PrintPage.h"
#include "desktop/form/FormHistory.h"
#include "desktop/system/DesktopPlatform.h"

#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <memory>
#include <utility>

class QAction;
class QMenu;
class QMimeData;

namespace linealis::desktop {

class CheckButton;
class FormView;
class LivePage;
class LivePane;
class PaperBottomBar;
class PaperTopBar;
class StatusLine;

/// The window of one paper kind: its form, the page that it makes, and what can be done with both.
class PaperView final : public QMainWindow, public FileAsker {
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

    /// Adds to the window's menus what goes with the form, behind the items that they have.
    void AddMenus();

    QString ProposedName() const override;
    QString SettingsFolder() const override;

    /// Shows or hides the page beside the form.
    void ShowLivePage(bool visible);
    /// Prints the page through the system's dialog.
    void Print();

    /// Writes the page as a picture that is asked for.
    void Export();
    /// Puts the page on the clipboard.
    void CopyPage();

    /// Asks for another file for the page.
    void ChangeFile();
    /// Takes the last step back, or does it again, and says so.
    void Undo();
    void Redo();
    /// Puts everything back to what a fresh window holds, but for the files. Can be undone.
    void Reset();

    /// Says what Save cannot do without a settings file.
    void TellHowToSave();

    /// Ends what is being entered, which is a step of its own.
    void FinishEdit();
    /// Does something with the window as one step of that name, which can be undone, and says what went wrong.
    /// Returns whether that was nothing.
    bool DoAsStep(const QString& name, const std::function<void(PaperWindow& window)>& change);
    /// Does so by laying a preset of that name over the form, and says it.
    void LayOver(const QString& title, const std::function<void(PaperWindow& window)>& lay);
    /// The same with the form that was closed last.
    void BringBack();
    FormHistory& History() { return history; }

    /// Says in the window's status line what has happened.
    void Say(const QString& text, const QList<QPair<QString, QString>>& links = {});

    /// What has changed of the window by other hands than its own is one step of that name, if `name` is not
    /// empty, and is said so if something went wrong. Returns whether that was nothing.
    bool ChangedOutside(const QString& name);

signals:
    void Closed(const PaperKind& kind);
    void GalleryWanted();
    /// The manual, at this window's chapter.
    void ManualWanted();
    /// Settings files have been dropped on the window.
    void FilesDropped(const QStringList& files);
    /// Settings files have been chosen to be opened, each in the window of its kind.
    void FilesWanted(const QStringList& files);

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void LayOut();
    QSize LargestSize() const;
    void Connect();
    void MakePresetMenu();
    void Place();
    void Calibrate();
    /// Works on a page, with progress and Cancel.
    void Work(const std::function<void()>& work);
    /// Does something with a page that is drawn. May be stopped in its turns. Returns what to say of it.
    using PageUse = std::function<QString(const DrawnPage& page, Turns& turns)>;
    /// Draws the page for another use than its file. If that is stopped, or the page is given up, it is said with
    /// `nothingDone`: "nothing was printed".
    void Use(const QString& nothingDone, const PageUse& use);
    void MakePage();
    void SayHowPageEnded();
    void ShowWizard();
    void FormChanged();
    /// Shows the warnings of the form, and those of the page behind them.
    void ShowWarnings();
    void ShowWarningsOfPage(PageWarnings warnings);
    /// Lights up what the field with the focus governs.
    void LightUp();
    /// The control that governs what the page shows there, in points from its lower left corner; or null.
    const Control* ControlAt(const QPointF& place) const;
    void FocusOn(const QString& control);
    /// The page's title on the form; empty if the kind has none.
    QString Title() const;
    /// What the page is called: its file, or what would be proposed as that.
    QString PageName() const;
    /// Tells of the form that was closed last, if that would bring something else.
    void OfferToBringBack();
    /// Whether the window may close, which the user is asked where a settings file is not up to date.
    bool MayClose();
    void Keep() const;
    void Follow(const QString& link);

    DesktopPlatform& platform;
    const PaperKind& kind;
    PaperWindow& window;
    FormHistory history;
    std::unique_ptr<PaperWindow> kept;  ///< the same, once it is closed
    FormView* form = nullptr;
    LivePane* livePane = nullptr;
    LivePage* livePage = nullptr;
    QAction* livePageAction = nullptr;
    QMenu* presets = nullptr;
    const Control* focused = nullptr;  ///< the field with the focus, or null
    PaperTopBar* topBar = nullptr;
    PaperBottomBar* bottomBar = nullptr;
    StatusLine* status = nullptr;
    CheckButton* checks = nullptr;
    PageWarnings formWarnings;
    PageWarnings pageWarnings;  ///< of the page that was drawn last, until the form changes
    QTimer changeDelay;
    QTimer progressDelay;
    QString presetName;  ///< of the preset that was laid over the form last, until something else fills it in
    QString givenTitle;  ///< the title that the form began with, or has from that preset
    bool placed = false;
    bool generating = false;
    bool stop = false;
    bool closeWhenDone = false;
};

/// The settings files among what is dragged over a window, by their extensions.
QStringList SettingsFilesIn(const QMimeData& dragged);

}  // namespace linealis::desktop
