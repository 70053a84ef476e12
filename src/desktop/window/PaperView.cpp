#include "desktop/window/PaperView.h"

#include "desktop/dialogs/CalibrationDialog.h"
#include "desktop/dialogs/FormDialog.h"
#include "desktop/dialogs/PrintPage.h"
#include "desktop/form/FormView.h"
#include "desktop/page/LivePage.h"
#include "desktop/page/LivePane.h"
#include "desktop/system/Text.h"
#include "desktop/window/FormAndPage.h"
#include "desktop/window/MarkerChooser.h"
#include "desktop/window/PaperBars.h"
#include "kinds/PageSummary.h"
#include "pipeline/form/FieldWords.h"
#include "text/Numbers.h"

#include <QCloseEvent>
#include <QDesktopServices>
#include <QFileInfo>
#include <QMenuBar>
#include <QMimeData>
#include <QPrinterInfo>
#include <QPushButton>
#include <QToolButton>
#include <QUrl>
#include <algorithm>
#include <cmath>
#include <utility>

namespace linealis::desktop {

QStringList SettingsFilesIn(const QMimeData& dragged)
{
    QStringList files;
    for (const QUrl& url : dragged.urls()) {
        const std::string extension = QFileInfo(url.toLocalFile()).suffix().toStdString();
        if (url.isLocalFile() && (IsPicture(url.path()) || FindPaperKindByExtension(extension) != nullptr)) {
            files << url.toLocalFile();
        }
    }
    return files;
}

QString MarkerFileIn(const QMimeData& dragged)
{
    const QList<QUrl> urls = dragged.urls();
    const QString file = urls.size() == 1 ? urls.front().toLocalFile() : QString();
    return QFileInfo(file).suffix().compare(QLatin1String("txt"), Qt::CaseInsensitive) == 0 ? file : QString();
}

PaperView::PaperView(DesktopPlatform& thePlatform, const PaperKind& theKind, PaperWindow& theWindow,
                     std::unique_ptr<FormHistory> theHistory)
    : platform(thePlatform), kind(theKind), window(theWindow),
      history(theHistory ? std::move(theHistory) : std::make_unique<FormHistory>(theWindow)),
      work(thePlatform, theWindow)
{
    setWindowTitle(Translated(kind.title));
    setObjectName(ToQt(kind.window));
    setAcceptDrops(true);
    LayOut();
    Connect();
    givenTitle = Title();
}

PaperView::~PaperView()
{
    delete takeCentralWidget();  // before `kept`, because it shows the form of that window
}

void PaperView::LightUp()
{
    livePage->LightUp(focused == nullptr ? RoleSet{} : focused->Declared().governs);
    std::optional<Side> margin;
    for (const Side side : {Side::Top, Side::Bottom, Side::Left, Side::Right}) {
        if (focused == &MarginOf(window.form, side)) {
            margin = side;
        }
    }
    livePage->LightUpMargin(margin);
}

const Control* PaperView::ControlAt(const QPointF& place) const
{
    constexpr double reachInPixels = 4.0;
    const Role role = work.RoleNear({place.x(), place.y()}, reachInPixels / livePage->PixelsPerPoint());
    return role.empty() ? nullptr : GovernorOf(window.form, role);
}

void PaperView::FocusOn(const QString& control)
{
    if (auto* const widget = form->findChild<QWidget*>(control)) {
        activateWindow();
        middle->ShowForm();
        widget->setFocus(Qt::TabFocusReason);  // this reason makes a text field select its text
    }
}

void PaperView::ShowWarningsOfPage(PageWarnings warnings)
{
    pageWarnings = std::move(warnings);
    ShowWarnings();
}

void PaperView::ShowWarnings()
{
    PageWarnings all = formWarnings;
    all.insert(all.end(), pageWarnings.begin(), pageWarnings.end());
    checks->Show(all);
}

void PaperView::FormChanged()
{
    const PaperPage page = window.ReadPage();
    form->ShowSummary(ToQt(page.describe()));
    formWarnings = page.warnings;
    if (markers != nullptr && window.form.Get<CheckBox>("CheckBoxMarkers").Value()) {
        const PageWarnings ofMarkers = markers->Warnings();
        formWarnings.insert(formWarnings.end(), ofMarkers.begin(), ofMarkers.end());
    }
    ShowWarnings();
    if (livePage->isVisible()) {
        livePane->Show(page, ToQt(PageSummary(kind, page)));
    }
    topBar->undo->setEnabled(history->CanUndo());
    topBar->undo->setToolTip(tr("Undo: %1").arg(history->UndoName()));
    topBar->redo->setEnabled(history->CanRedo());
    topBar->redo->setToolTip(tr("Redo: %1").arg(history->RedoName()));
    if (auto* const fileName = bottomBar->findChild<QWidget*>(ToQt(window.form.StaticFileName.Name()))) {
        fileName->setToolTip(ToQt(window.OutputFile().Path().string()));
    }
    const FolderItem& document = window.OurFolderItem();
    setWindowTitle(document.IsEmpty() ? Translated(kind.title)
                                      : ToQt(document.Name()) + QStringLiteral("[*] - ") + Translated(kind.title));
    setWindowModified(window.IsModified());
}

void PaperView::FinishEdit()
{
    form->FinishEdit();
    history->Commit(tr("Change"));
}

bool PaperView::DoAsStep(const QString& name, const std::function<void(PaperWindow& window)>& change)
{
    FinishEdit();
    change(window);
    return ChangedOutside(name);
}

void PaperView::LayOver(const QString& title, const std::function<void(PaperWindow& window)>& lay)
{
    if (DoAsStep(title, lay)) {
        presetName = title;
        givenTitle = Title();
        Say(tr("The form is now %1").arg(title), {{tr("Undo"), QStringLiteral("undo")}});
    }
}

bool PaperView::ChangedOutside(const QString& name)
{
    const bool isStep = history->Commit(name);
    if (isStep) {
        presetName.clear();
    }
    const QString note = platform.TakeNote();
    if (!note.isEmpty()) {
        using Links = QList<QPair<QString, QString>>;
        Say(note, isStep ? Links{{tr("Undo"), QStringLiteral("undo")}} : Links{});
    }
    changeDelay.start();
    return note.isEmpty();
}

void PaperView::Undo()
{
    if (const QString name = history->Undo(); !name.isEmpty()) {
        presetName.clear();
        Say(tr("Undid: %1").arg(name));
    }
}

void PaperView::Redo()
{
    if (const QString name = history->Redo(); !name.isEmpty()) {
        Say(tr("Redid: %1").arg(name));
    }
}

void PaperView::Reset()
{
    DoAsStep(tr("Reset"), [this](PaperWindow& shown) {
        // Take the form from a new paper, but keep the files and the name of the output file.
        WindowState fresh = shown.State();
        const std::string file = shown.form.StaticFileName.Caption();
        fresh.form = kind.makePaper(platform).form->State();
        shown.Restore(fresh);
        shown.form.StaticFileName.SetCaption(file);
    });
    givenTitle = Title();
    Say(tr("Form reset"));
}

void PaperView::Generate()
{
    if (work.IsRunning()) {
        return;
    }
    MakePage();
    if (closeWhenDone) {
        close();
    }
}

void PaperView::MakePage()
{
    FinishEdit();
    work.Generate();
    SayHowPageEnded();
    ChangedOutside(tr("Generate"));  // generating can correct values in the form
    // A visible live page delivers the warnings itself.
    if (!livePage->isVisible()) {
        ShowWarningsOfPage(work.WarningsOfFile());
    }
}

void PaperView::Print()
{
    Use(tr("nothing was printed"), [this](const DrawnPage& page, Turns& turns) {
        return PrintWithDialog(page, turns, PageName(), PrinterFactorsFile(platform.PreferencesFolder()), this,
                               [this](QDialog& dialog) { return platform.RunModal(dialog); });
    });
}

void PaperView::Calibrate()
{
    const auto takeOver = [this](double xPercent, double yPercent) {
        DoAsStep(tr("Calibration"), [=](PaperWindow& shown) {
            shown.form.EditXScale.SetText(mystring(xPercent));
            shown.form.EditYScale.SetText(mystring(yPercent));
        });
    };
    CalibrationDialog dialog(
        QPrinterInfo::availablePrinterNames(), PrinterFactorsFile(platform.PreferencesFolder()),
        [this](QDialog& inner) { return platform.RunModal(inner); }, takeOver, this);
    platform.RunModal(dialog);
}

void PaperView::SayHowPageEnded()
{
    if (!window.LastPage()) {
        return;
    }
    const QString name = ToQt(window.OutputFile().Name());
    switch (*window.LastPage()) {
    case PageEnd::Written:
        Say(tr("Wrote %1, %2").arg(name, ToQt(ShortPageSummary(window.Page()))),
            {{tr("Open"), QStringLiteral("open")}, {tr("Show in Folder"), QStringLiteral("folder")}});
        break;
    case PageEnd::Failed:
        Say(tr("%1 was not written").arg(name));
        break;
    case PageEnd::Stopped:
        Say(tr("Canceled; %1 is unchanged").arg(name));
        break;
    }
}

void PaperView::Say(const QString& text, const QList<QPair<QString, QString>>& links)
{
    status->Say(text, links);
}

void PaperView::Follow(const QString& link)
{
    const FolderItem& page = window.OutputFile();
    if (link == QLatin1String("undo")) {
        Undo();
    } else if (link == QLatin1String("bringBack")) {
        BringBack();
    } else if (link == QLatin1String("saveAs")) {
        menuBar()->findChild<QAction*>(QStringLiteral("FileSaveAs"))->trigger();
    } else if (link == QLatin1String("open")) {
        View(page);
    } else if (link == QLatin1String("openPad")) {
        View(FolderItem(std::filesystem::path(padFile.toStdString())));
    } else if (link == QLatin1String("folder")) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(ToQt(page.Path().parent_path().string())));
    }
}

void PaperView::View(const FolderItem& file)
{
    if (!platform.Launch(file)) {
        Say(tr("No viewer could be started for %1").arg(ToQt(file.Name())));
    }
}

void PaperView::ShowWizard()
{
    Wizard& wizard = *window.GetWizard();
    FormDialog dialog(Translated("Easy Graph Wizard"), wizard.Fields(), this);
    if (platform.RunModal(dialog) == QDialog::Accepted) {
        DoAsStep(tr("Easy Graph Wizard"), [&wizard](PaperWindow&) { wizard.PushButton1_Action(); });
    } else {
        wizard.PushButton2_Action();
    }
}

/// Return generates the page, unless the focused control has used the key. With Shift, generating asks for a new
/// file.
void PaperView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Generate();
    } else if (event->key() == Qt::Key_Escape && work.IsRunning()) {
        Cancel();
    } else {
        QMainWindow::keyPressEvent(event);
    }
}

void PaperView::dragEnterEvent(QDragEnterEvent* event)
{
    const bool isMarkerFile = markers != nullptr && !MarkerFileIn(*event->mimeData()).isEmpty();
    if (isMarkerFile || !SettingsFilesIn(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void PaperView::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    if (const QString file = MarkerFileIn(*event->mimeData()); markers != nullptr && !file.isEmpty()) {
        markers->Choose(file);
    } else {
        emit FilesDropped(SettingsFilesIn(*event->mimeData()));
    }
}

/// Places the window when it is first shown, because only then does it have its menus and thus its final size.
void PaperView::showEvent(QShowEvent* event)
{
    if (!placed) {
        Place();
        placed = true;
        QTimer::singleShot(0, this, &PaperView::OfferToBringBack);  // later, when a file may have been loaded
    }
    QMainWindow::showEvent(event);
}

void PaperView::closeEvent(QCloseEvent* event)
{
    if (work.IsRunning()) {  // stop the page first; the window closes when it has ended
        closeWhenDone = true;
        Cancel();
        event->ignore();
        return;
    }
    if (!MayClose()) {
        event->ignore();
        return;
    }
    event->accept();
    End();
}

std::unique_ptr<FormHistory> PaperView::GiveWay()
{
    Keep();
    hide();
    return std::move(history);
}

void PaperView::End()
{
    Keep();
    hide();
    middle->OwnWindow().hide();
    emit Closed(kind);
}

}  // namespace linealis::desktop
