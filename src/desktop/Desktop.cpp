#include "desktop/Desktop.h"

#include "desktop/FormDialog.h"
#include "desktop/Menus.h"
#include "desktop/Text.h"

#include <QApplication>
#include <QFileOpenEvent>
#include <QResource>
#include <QTimer>

namespace linealis::desktop {

Desktop::Desktop()
    : manual(QResource(QStringLiteral(":/manual.pdf")).uncompressedData()),
      app(platform, *this, {manual.constData(), static_cast<std::size_t>(manual.size())})
{
    QApplication::setQuitOnLastWindowClosed(false);  // a page may still be under way: EndIfLastWindow sees to it
    qApp->installEventFilter(this);
}

Desktop::~Desktop()
{
    for (auto& [kind, view] : views) {
        delete view;
        app.PaperClosed(*kind);
    }
    delete galleryView;
    app.Event_Close();
}

void Desktop::Open()
{
    app.Event_Open();
    galleryView = new GalleryView(app.Gallery());
    GiveMenus(*galleryView, nullptr);
    connect(galleryView, &GalleryView::HelpWanted, this, [this] { app.DoHelp(); });
    connect(galleryView, &GalleryView::Closed, this, &Desktop::EndIfLastWindow);
    galleryView->show();
}

bool Desktop::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FileOpen) {  // how macOS hands in a document
        OpenDocument(static_cast<QFileOpenEvent*>(event)->file());
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void Desktop::OpenDocument(const QString& path)
{
    app.Event_OpenDocument(FolderItem(std::filesystem::path(path.toStdString())));
    for (const auto& [kind, view] : views) {
        if (view) {
            UpdateMenus(*view);  // a document can be saved
        }
    }
}

void Desktop::Raise()
{
    QWidget* front = galleryView;
    for (const auto& [kind, view] : views) {
        if (view && view->isVisible()) {
            front = view;
        }
    }
    if (front != nullptr) {
        front->raise();
        front->activateWindow();
    }
}

void Desktop::Show(const PaperKind& kind, PaperWindow& window)
{
    PaperView& view = ViewOf(kind, window);
    view.show();
    view.setWindowState(view.windowState() & ~Qt::WindowMinimized);
    view.raise();
    view.activateWindow();
}

PaperView& Desktop::ViewOf(const PaperKind& kind, PaperWindow& window)
{
    QPointer<PaperView>& view = views[&kind];
    if (!view) {
        view = new PaperView(platform, kind, window);
        GiveMenus(*view, view);
        connect(view, &PaperView::Closed, this, &Desktop::PaperClosed);
    }
    return *view;
}

void Desktop::PaperClosed(const PaperKind& kind)
{
    // The view still stands in its own event, and the form that it shows must outlive it.
    QPointer<PaperView> view = views[&kind];
    views.erase(&kind);
    view->hide();
    QTimer::singleShot(0, this, [this, view, &kind] {
        delete view;
        app.PaperClosed(kind);
    });
    EndIfLastWindow();
}

void Desktop::EndIfLastWindow()
{
    if (!AnyWindowOpen()) {
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    } else if (quitting) {
        Quit();
    }
}

void Desktop::Quit()
{
    quitting = true;
    for (const auto& [kind, view] : views) {
        if (view && view->IsGenerating()) {
            view->close();  // ends the page first, then the window, and then asks here again
            return;
        }
    }
    QCoreApplication::quit();
}

bool Desktop::AnyWindowOpen() const
{
    for (const auto& [kind, view] : views) {
        if (view && view->isVisible()) {
            return true;
        }
    }
    return galleryView && galleryView->isVisible();
}

void Desktop::CloseFrontWindow()
{
    if (QWidget* const front = QApplication::activeWindow()) {
        front->close();
    }
}

void Desktop::ShowPreferences(PrefsWindow& window)
{
    FormDialog dialog(QStringLiteral("Preferences"), window.form, QApplication::activeWindow());
    if (dialog.exec() == QDialog::Accepted) {
        window.PushButton1_Action();
    } else {
        window.PushButton2_Action();
    }
}

void Desktop::GiveMenus(QMainWindow& window, PaperView* paper)
{
    const auto front = [paper]() -> PaperWindow* { return paper == nullptr ? nullptr : &paper->Window(); };
    InstallMenus(window, {[this, paper, &window](const MenuItem& item) {
                              Perform(item, paper);
                              UpdateMenus(window);
                          },
                          // A menu that can be used has its window.
                          [front](const MenuItem& item) { return IsEnabled(item, front(), true); }});
}

void Desktop::Perform(const MenuItem& item, PaperView* paper)
{
    switch (item.command) {
    case Command::Quit:
        Quit();
        break;
    case Command::Undo:
    case Command::Cut:
    case Command::Copy:
    case Command::Paste:
    case Command::Clear:
        EditText(item.command);
        break;
    default:
        app.Perform(item, paper == nullptr ? nullptr : &paper->Window());
    }
}

}  // namespace linealis::desktop
