#include "desktop/window/Desktop.h"

#include "app/OwnPresets.h"
#include "desktop/dialogs/FormDialog.h"
#include "desktop/system/MetricForms.h"
#include "desktop/system/RecentFiles.h"
#include "desktop/system/Text.h"
#include "desktop/system/WindowLanguage.h"
#include "desktop/window/LanguageBox.h"
#include "desktop/window/ManualWindow.h"
#include "desktop/window/Menus.h"
#include "desktop/window/MetricFormsBox.h"
#include "desktop/window/PresetPicker.h"
#include "pipeline/form/SetControl.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QFileOpenEvent>
#include <QKeyEvent>
#include <QResource>
#include <QScreen>
#include <QTimer>

namespace linealis::desktop {

namespace {

void BringToFront(QWidget& window)
{
    window.setWindowState((window.windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    window.show();
    window.raise();
    window.activateWindow();
}

/// Whether the event is input from the user.
bool IsInput(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

/// Closes all dialogs and popups that wait for the user.
void RejectDialogs()
{
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (auto* const dialog = qobject_cast<QDialog*>(widget); dialog != nullptr && dialog->isVisible()) {
            dialog->reject();
        }
    }
    if (QWidget* const popup = QApplication::activePopupWidget()) {
        popup->close();
    }
}

}  // namespace

Desktop::Desktop()
    : manual(QResource(QStringLiteral(":/manual.pdf")).uncompressedData()),
      app(platform, *this, {manual.constData(), static_cast<std::size_t>(manual.size())})
{
    QApplication::setQuitOnLastWindowClosed(false);  // a page may still be in progress; Quit waits for it
    qApp->installEventFilter(this);
    platform.whoAsks = [this] { return dynamic_cast<const FileAsker*>(inFront.data()); };
    connect(&platform, &DesktopPlatform::Idle, this, &Desktop::ProceedSoon);
    connect(
        &platform, &DesktopPlatform::PictureChosen, this, [this](const QString& path) { OpenSettings({path}); },
        Qt::QueuedConnection);
    connect(qApp, &QCoreApplication::aboutToQuit, this, &Desktop::End);
    // The session may end after this request, or continue.
    connect(qApp, &QGuiApplication::commitDataRequest, this, [this] { app.Store(); });
}

Desktop::~Desktop()
{
    End();
    // The event loop has ended, so run pending deleteLater calls here.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Desktop::Open()
{
    app.Event_Open();
    ShowGallery();
}

void Desktop::ShowGallery()
{
    if (galleryView) {
        inFront = galleryView;
        Raise();
        return;
    }
    galleryView = new GalleryView(app.Gallery(), platform.PreferencesFolder());
    GiveMenus(*galleryView, nullptr);
    connect(galleryView, &GalleryView::HelpWanted, this, [this] { app.DoHelp(); });
    connect(galleryView, &GalleryView::Closed, this, &Desktop::GalleryClosed);
    connect(galleryView, &GalleryView::Chosen, this, &Desktop::OpenHit);
    connect(galleryView, &GalleryView::FilesDropped, this, &Desktop::OpenSettings);
    connect(galleryView, &GalleryView::ManualWanted, this, [this] { ShowManual(nullptr); });
    connect(galleryView, &GalleryView::OpenWanted, this, &Desktop::AskForSettings);
    connect(galleryView, &GalleryView::PickerWanted, this, [this] { ShowPicker(nullptr, galleryView); });
    galleryView->Place();
    galleryView->show();
    inFront = galleryView;
}

void Desktop::OpenHit(const PaperHit& hit)
{
    if (hit.sort == PaperHit::Sort::RecentFile) {
        OpenSettings({ToQt(hit.file.Path().string())});
        return;
    }
    PaperWindow& paper = app.ShowPaper(*hit.kind);
    PaperView& view = ViewOf(*hit.kind, paper);
    view.LayOver(Translated(hit.title), [&](PaperWindow& window) {
        if (hit.preset != nullptr) {
            LayOver(*hit.preset, window, platform);
        } else {
            LayOver(OwnPreset{hit.title, hit.file}, window, platform);
        }
    });
}

void Desktop::ShowPicker(const PaperKind* kind, QWidget* parent)
{
    PresetPicker picker(presetPictures, platform.PreferencesFolder(), kind, parent);
    if (platform.RunModal(picker) == QDialog::Accepted && !quitting) {
        OpenHit(*picker.Chosen());
    }
}

void Desktop::ShowManual(const PaperKind* kind)
{
    if (!manualWindow) {
        manualWindow = std::make_unique<ManualWindow>();
        connect(manualWindow.get(), &ManualWindow::Closed, this, &Desktop::EndIfLastWindow);
    }
    manualWindow->ShowChapter(kind == nullptr ? QString() : Translated(kind->galleryTitle));
    BringToFront(*manualWindow);
}

bool Desktop::eventFilter(QObject* watched, QEvent* event)
{
    if (quitting && IsInput(*event)) {
        return true;  // nothing would stop a page that is started now
    }
    switch (event->type()) {
    case QEvent::FileOpen:  // macOS passes documents this way
        OpenDocuments({static_cast<QFileOpenEvent*>(event)->file()});
        return true;
    case QEvent::Quit:  // the system asks the program to end
        Quit();
        return true;
    case QEvent::ShortcutOverride:
        if (IsUndoOfNothing(watched, *static_cast<QKeyEvent*>(event))) {
            event->ignore();
            return true;
        }
        break;
    case QEvent::WindowActivate:
        if (auto* const window = qobject_cast<QMainWindow*>(watched); window && window != manualWindow.get()) {
            inFront = window;
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void Desktop::DoAsStep(const QString& name, const std::function<void()>& change)
{
    for (const auto& [kind, view] : views) {
        view->FinishEdit();
    }
    change();
    for (const auto& [kind, view] : views) {
        view->ChangedOutside(name);
    }
}

void Desktop::ProceedSoon()
{
    QMetaObject::invokeMethod(this, &Desktop::Proceed, Qt::QueuedConnection);
}

void Desktop::Proceed()
{
    if (platform.HasDialog()) {
        return;  // called again when the dialog has ended
    }
    if (quitting) {
        if (!platform.IsBusy()) {
            End();
            QCoreApplication::exit();
        }
    } else if (!waitingDocuments.isEmpty()) {
        ProceedSoon();
        OpenDocument(waitingDocuments.takeFirst());
    }
}

void Desktop::Raise()
{
    if (inFront) {
        BringToFront(*inFront);
    } else {
        ShowGallery();
    }
}

void Desktop::Show(const PaperKind& kind, PaperWindow& window)
{
    if (!quitting) {
        inFront = &ViewOf(kind, window);
        Raise();
    }
}

PaperView& Desktop::ViewOf(const PaperKind& kind, PaperWindow& window, std::unique_ptr<FormHistory> steps)
{
    PaperView*& view = views[&kind];
    if (view == nullptr) {
        view = new PaperView(platform, kind, window, std::move(steps));
        view->OpenOver(galleryView ? galleryView->frameGeometry()
                                   : QGuiApplication::primaryScreen()->availableGeometry());
        GiveMenus(*view, view);
        view->AddMenus();
        connect(view, &PaperView::Closed, this, &Desktop::PaperClosed);
        connect(view, &PaperView::ManualWanted, this, [this, &kind] { ShowManual(&kind); });
        connect(view, &PaperView::GalleryWanted, this, &Desktop::ShowGallery);
        connect(view, &PaperView::PickerWanted, this, [this, &kind, view] { ShowPicker(&kind, view); });
        connect(view, &PaperView::FilesDropped, this, &Desktop::OpenSettings);
        connect(view, &PaperView::FilesWanted, this, &Desktop::OpenSettings);
    }
    return *view;
}

void Desktop::ShowLanguage()
{
    InstallLanguage();
    for (auto& [kind, view] : views) {
        if (view->IsBusy()) {
            continue;
        }
        PaperWindow& paper = view->Window();
        const bool wasInFront = inFront == view;
        std::unique_ptr<FormHistory> steps = view->GiveWay();
        delete std::exchange(view, nullptr);
        PaperView& made = ViewOf(*kind, paper, std::move(steps));
        made.show();
        inFront = wasInFront ? &made : inFront.data();
    }
    if (galleryView) {
        const bool wasInFront = inFront == galleryView;
        QWidget* const other = inFront;
        delete galleryView;
        ShowGallery();
        inFront = wasInFront ? galleryView.data() : other;
    }
    manualWindow.reset();
    Raise();
}

void Desktop::PaperClosed(const PaperKind& kind)
{
    PaperView* const view = views[&kind];
    views.erase(&kind);
    // The view is still handling an event, so it is deleted later, and until then it needs its paper window.
    view->Keep(app.PaperClosed(kind));
    view->deleteLater();
    EndIfLastWindow();
}

void Desktop::GalleryClosed()
{
    galleryView->deleteLater();
    galleryView = nullptr;
    EndIfLastWindow();
}

void Desktop::EndIfLastWindow()
{
    if (!AnyWindowOpen()) {
        Quit();
    }
}

void Desktop::Quit()
{
    quitting = true;
    emit Quitting();
    for (const auto& [kind, view] : views) {
        view->Cancel();
    }
    RejectDialogs();
    ProceedSoon();
}

void Desktop::End()
{
    if (ended) {
        return;
    }
    ended = true;
    quitting = true;
    while (!views.empty()) {  // End leads to PaperClosed, which removes the view
        views.begin()->second->End();
    }
    delete galleryView;
    manualWindow.reset();
    app.Event_Close();
}

bool Desktop::AnyWindowOpen() const
{
    return !views.empty() || galleryView || (manualWindow && manualWindow->isVisible());
}

void Desktop::CloseFrontWindow()
{
    if (QWidget* const front = QApplication::activeWindow()) {
        front->close();
    }
}

void Desktop::Used(const FolderItem& settingsFile)
{
    RecentFiles(platform.PreferencesFolder()).Add(settingsFile);
}

void Desktop::PrepareEmpty(PaperWindow& window)
{
    if (UsesMetricForms()) {
        for (const Setting& setting : {Setting{"PopupPaperSize", "A4"}, Setting{"PopupUnits", "cm"}}) {
            SetControl("form", window.form, setting);
        }
    }
}

void Desktop::ShowPreferences(PrefsWindow& window)
{
    FormDialog dialog(tr("Preferences"), window.form, QApplication::activeWindow());
    QCheckBox* const metric = MakeMetricFormsBox();
    auto* const language = new LanguageBox;
    dialog.AddBelow(language);
    dialog.AddBelow(metric);
    if (platform.RunModal(dialog) != QDialog::Accepted) {
        window.PushButton2_Action();
        return;
    }
    window.PushButton1_Action();
    UseMetricForms(metric->isChecked());
    if (language->Code() != ChosenLanguage()) {
        ChooseLanguage(language->Code());
        QTimer::singleShot(0, this, &Desktop::ShowLanguage);  // this is in a menu of a window that will be deleted
    }
}

void Desktop::GiveMenus(QMainWindow& window, PaperView* paper)
{
    const auto front = [paper]() -> PaperWindow* { return paper == nullptr ? nullptr : &paper->Window(); };
    InstallMenus(window, {[this, paper](const MenuItem& item) { Perform(item, paper); },
                          // `true`: if a menu is used, there is an open window.
                          [front, paper](const MenuItem& item) {
                              const bool undoesForm =
                                  item.command == Command::Undo && paper != nullptr && paper->History().CanUndo();
                              return IsEnabled(item, front(), true) && (undoesForm || CanEditText(item.command));
                          },
                          [paper](const MenuItem& item) {
                              if (item.command == Command::Save && paper != nullptr) {
                                  paper->TellHowToSave();
                              }
                          }});
}

void Desktop::Perform(const MenuItem& item, PaperView* paper)
{
    switch (item.command) {
    case Command::Quit:
        Quit();
        break;
    case Command::Undo:
        if (paper == nullptr || CanEditText(Command::Undo)) {
            EditText(Command::Undo);
        } else {
            paper->Undo();
        }
        break;
    case Command::Cut:
    case Command::Copy:
    case Command::Paste:
    case Command::Clear:
        EditText(item.command);
        break;
    default:
        DoAsStep(Translated(item.text).remove(QLatin1String("...")),
                 [&] { app.Perform(item, paper == nullptr ? nullptr : &paper->Window()); });
    }
}

}  // namespace linealis::desktop
