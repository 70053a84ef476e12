#include "desktop/PaperView.h"

#include "desktop/FormDialog.h"
#include "desktop/FormView.h"
#include "desktop/PaperBars.h"
#include "desktop/Text.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QFileInfo>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QScopeGuard>
#include <QScreen>
#include <QStatusBar>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

namespace linealis::desktop {

namespace {

constexpr int millisecondsBeforeProgress = 400;

}  // namespace

QStringList SettingsFilesIn(const QMimeData& dragged)
{
    QStringList files;
    for (const QUrl& url : dragged.urls()) {
        const std::string extension = QFileInfo(url.toLocalFile()).suffix().toStdString();
        if (url.isLocalFile() && FindPaperKindByExtension(extension) != nullptr) {
            files << url.toLocalFile();
        }
    }
    return files;
}

PaperView::PaperView(DesktopPlatform& thePlatform, const PaperKind& theKind, PaperWindow& theWindow)
    : platform(thePlatform), kind(theKind), window(theWindow), history(theWindow)
{
    setWindowTitle(ToQt(kind.title));
    setObjectName(ToQt(kind.name));
    setAcceptDrops(true);
    LayOut();
    Connect();
    setWindowFlag(Qt::WindowMaximizeButtonHint, !kind.hasFixedSize);
}

PaperView::~PaperView()
{
    delete takeCentralWidget();  // before the form that it shows
}

void PaperView::LayOut()
{
    form = new FormView(window.form, GroupBoxes::withHeading,
                        [this](Swatch& canvas) { window.ColorCanvas_MouseDown(canvas); });
    auto* const content = new QWidget;
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    topBar = new PaperTopBar;
    bottomBar = new PaperBottomBar(form->TakeLastGroup(), window.GetWizard() != nullptr);
    column->addWidget(topBar);
    column->addWidget(new FormScrollArea(form), 1);
    column->addWidget(bottomBar);
    setCentralWidget(content);
    status = new StatusLine;
    statusBar()->setSizeGripEnabled(!kind.hasFixedSize);
    statusBar()->addWidget(status, 1);
}

void PaperView::Connect()
{
    connect(topBar->gallery, &QToolButton::clicked, this, &PaperView::GalleryWanted);
    connect(topBar->undo, &QToolButton::clicked, &history, &FormHistory::Undo);
    connect(topBar->redo, &QToolButton::clicked, &history, &FormHistory::Redo);
    connect(topBar->reset, &QToolButton::clicked, this, &PaperView::Reset);
    if (bottomBar->wizard != nullptr) {
        connect(bottomBar->wizard, &QPushButton::clicked, this, &PaperView::ShowWizard);
    }
    connect(bottomBar->cancel, &QPushButton::clicked, this, &PaperView::Cancel);
    connect(bottomBar->changeFile, &QPushButton::clicked, this, &PaperView::ChangeFile);
    connect(bottomBar->generate, &QPushButton::clicked, this, &PaperView::Generate);
    connect(form, &FormView::Committed, &history, [this] { history.Commit(tr("Change")); });
    connect(status, &QLabel::linkActivated, this, &PaperView::Follow);

    changeDelay.setSingleShot(true);  // what changes at once is one change
    connect(form, &FormView::Changed, &changeDelay, qOverload<>(&QTimer::start));
    connect(&history, &FormHistory::Changed, &changeDelay, qOverload<>(&QTimer::start));
    connect(&changeDelay, &QTimer::timeout, this, &PaperView::FormChanged);
    FormChanged();

    progressDelay.setSingleShot(true);
    progressDelay.setInterval(millisecondsBeforeProgress);
    connect(&progressDelay, &QTimer::timeout, this, [this] {
        if (QApplication::activeModalWidget() != nullptr) {
            progressDelay.start();  // the user is being asked: nothing is under way yet
        } else {
            bottomBar->ShowProgress(true);
        }
    });
}

/// No window is larger than the room on the screen.
void PaperView::Place()
{
    const QSize frame(8, 40);  // of a window manager, about
    const QSize room = screen()->availableSize() - frame;
    const QSize size = sizeHint().boundedTo(room);
    if (kind.hasFixedSize) {
        setFixedSize(size);
    } else {
        resize(size);
    }
}

void PaperView::FormChanged()
{
    topBar->undo->setEnabled(history.CanUndo());
    topBar->redo->setEnabled(history.CanRedo());
    const FolderItem& document = window.OurFolderItem();
    setWindowTitle(document.IsEmpty() ? ToQt(kind.title)
                                      : ToQt(document.Name()) + QStringLiteral("[*] - ") + ToQt(kind.title));
    setWindowModified(window.IsModified());
}

void PaperView::DoAsStep(const QString& name, const std::function<void(PaperWindow& window)>& change)
{
    history.Commit(tr("Change"));
    change(window);
    ChangedOutside(name);
}

void PaperView::ChangedOutside(const QString& name)
{
    const bool isStep = history.Commit(name);
    if (const QString note = platform.TakeNote(); !note.isEmpty()) {
        using Links = QList<QPair<QString, QString>>;
        Say(note, isStep ? Links{{tr("Undo"), QStringLiteral("undo")}} : Links{});
    }
    changeDelay.start();
}

void PaperView::Reset()
{
    DoAsStep(tr("Reset"), [this](PaperWindow& shown) {
        WindowState fresh = shown.State();
        const std::string file = shown.form.StaticFileName.Caption();
        fresh.form = kind.makePaper(platform).form->State();
        shown.Restore(fresh);
        shown.form.StaticFileName.SetCaption(file);
    });
    Say(tr("The form is as a fresh window has it"));
}

void PaperView::Generate()
{
    if (generating) {
        return;
    }
    MakePage();
    if (closeWhenDone) {
        close();
    }
}

void PaperView::MakePage()
{
    generating = true;
    stop = false;
    bottomBar->generate->setEnabled(false);
    progressDelay.start();
    const auto ended = qScopeGuard([this] {
        progressDelay.stop();
        bottomBar->ShowProgress(false);
        bottomBar->generate->setEnabled(true);
        generating = false;
    });
    Say({});
    platform.RunStoppable(stop, [this] { window.PushButtonGenerate_Action(); });
    SayHowPageEnded();
    ChangedOutside(tr("Generate"));  // by what the page corrected in the form
}

void PaperView::SayHowPageEnded()
{
    if (!window.LastPage()) {
        return;
    }
    const QString name = ToQt(window.OutputFile().Name());
    switch (*window.LastPage()) {
    case PageEnd::Written:
        Say(tr("Wrote %1").arg(name),
            {{tr("Open"), QStringLiteral("open")}, {tr("Show in Folder"), QStringLiteral("folder")}});
        break;
    case PageEnd::Failed:
        Say(tr("%1 was not written").arg(name));
        break;
    case PageEnd::Stopped:
        Say(tr("Cancelled; %1 is as it was").arg(name));
        break;
    }
}

void PaperView::ChangeFile()
{
    window.ChooseOutputFile();
    changeDelay.start();
}

void PaperView::Say(const QString& text, const QList<QPair<QString, QString>>& links)
{
    status->Say(text, links);
}

void PaperView::Follow(const QString& link)
{
    const FolderItem& page = window.OutputFile();
    if (link == QLatin1String("undo")) {
        history.Undo();
        Say({});
    } else if (link == QLatin1String("open") && !platform.Launch(page)) {
        Say(tr("No viewer could be started for %1").arg(ToQt(page.Name())));
    } else if (link == QLatin1String("folder")) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(ToQt(page.Path().parent_path().string())));
    }
}

void PaperView::ShowWizard()
{
    Wizard& wizard = *window.GetWizard();
    FormDialog dialog(QStringLiteral("Easy Graph Wizard"), wizard.Fields(), this);
    if (platform.RunModal(dialog) == QDialog::Accepted) {
        DoAsStep(tr("Easy Graph Wizard"), [&wizard](PaperWindow&) { wizard.PushButton1_Action(); });
    } else {
        wizard.PushButton2_Action();
    }
}

/// Return is the default button's, from wherever no other control has taken it. With shift it forgets the file too.
void PaperView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Generate();
    } else if (event->key() == Qt::Key_Escape && generating) {
        Cancel();
    } else {
        QMainWindow::keyPressEvent(event);
    }
}

void PaperView::dragEnterEvent(QDragEnterEvent* event)
{
    if (!SettingsFilesIn(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void PaperView::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    emit FilesDropped(SettingsFilesIn(*event->mimeData()));
}

/// Only now the window has all that it is to make room for.
void PaperView::showEvent(QShowEvent* event)
{
    if (!placed) {
        placed = true;
        Place();
    }
    QMainWindow::showEvent(event);
}

void PaperView::closeEvent(QCloseEvent* event)
{
    if (generating) {  // first the page ends, and then the window
        closeWhenDone = true;
        Cancel();
        event->ignore();
        return;
    }
    event->accept();
    End();
}

void PaperView::End()
{
    hide();
    emit Closed(kind);
}

}  // namespace linealis::desktop
