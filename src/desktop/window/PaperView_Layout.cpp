#include "desktop/window/PaperView.h"

#include "desktop/form/FormView.h"
#include "desktop/form/QuickHands.h"
#include "desktop/page/LivePage.h"
#include "desktop/page/LivePane.h"
#include "desktop/system/Text.h"
#include "desktop/system/WindowPlace.h"
#include "desktop/system/WindowSettings.h"
#include "desktop/window/FormAndPage.h"
#include "desktop/window/PageDrag.h"
#include "desktop/window/PaperBars.h"
#include "desktop/window/PresetMenu.h"
#include "desktop/window/RecentMenu.h"
#include "pipeline/form/FieldWords.h"

#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QToolButton>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>

namespace linealis::desktop {

namespace {

/// Returns the key of a setting for the windows of a kind.
QString KeyOf(const PaperKind& kind, const char* what)
{
    return QStringLiteral("windows/%1/%2").arg(ToQt(kind.window), QString::fromLatin1(what));
}

}  // namespace

void PaperView::LayOut()
{
    form = new FormView(window.form, GroupBoxes::withHeading,
                        [this](Swatch& canvas) { window.ColorCanvas_MouseDown(canvas); });
    auto* const content = new QWidget;
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    topBar = new PaperTopBar;
    bottomBar = new PaperBottomBar(form->TakeLastGroup(), window.GetWizard() != nullptr,
                                   window.GetRangeWizard() != nullptr);
    column->addWidget(topBar);
    livePane = new LivePane;
    livePage = &livePane->Page();
    livePageAction = new QAction(tr("Live Page"), this);
    livePageAction->setObjectName(QStringLiteral("ViewLivePage"));
    livePageAction->setShortcut(Qt::Key_F9);
    livePageAction->setCheckable(true);
    ownWindowAction = new QAction(tr("Page in Its Own Window"), this);
    ownWindowAction->setObjectName(QStringLiteral("ViewOwnWindow"));
    ownWindowAction->setShortcut(Qt::SHIFT | Qt::Key_F9);
    ownWindowAction->setCheckable(true);
    middle = new FormAndPage(new FormScrollArea(form), livePane, *this);
    middle->OwnWindow().setWindowTitle(tr("%1 - Page").arg(ToQt(kind.title)));
    column->addWidget(middle, 1);
    column->addWidget(bottomBar);
    setCentralWidget(content);
    setWindowFlag(Qt::WindowMaximizeButtonHint, !kind.hasFixedSize);
    status = new StatusLine;
    statusBar()->setSizeGripEnabled(!kind.hasFixedSize);
    statusBar()->addWidget(status, 1);
    checks = new CheckButton;
    statusBar()->addPermanentWidget(checks);
}

void PaperView::Connect()
{
    ConnectWork();
    connect(topBar->gallery, &QToolButton::clicked, this, &PaperView::GalleryWanted);
    MakePresetMenu();
    MakeMarkerChooser();
    new PageDrag(*this, window, *form, *livePage);  // belongs to the page
    connect(topBar->undo, &QToolButton::clicked, this, &PaperView::Undo);
    connect(topBar->redo, &QToolButton::clicked, this, &PaperView::Redo);
    connect(topBar->reset, &QToolButton::clicked, this, &PaperView::Reset);
    if (bottomBar->wizard != nullptr) {
        connect(bottomBar->wizard, &QPushButton::clicked, this, &PaperView::ShowWizard);
    }
    if (bottomBar->dataRange != nullptr) {
        connect(bottomBar->dataRange, &QPushButton::clicked, this, &PaperView::ShowRangeWizard);
    }
    connect(bottomBar->changeFile, &QPushButton::clicked, this, &PaperView::ChangeFile);
    connect(bottomBar->generate, &QPushButton::clicked, this, &PaperView::Generate);
    connect(form, &FormView::Committed, history.get(), &FormHistory::CommitChangeOf);
    const auto fillAsStep = [this](const QString& step, const std::function<void()>& fill) {
        DoAsStep(step, [&fill](PaperWindow&) { fill(); });
    };
    connect(form, &FormView::FillWanted, this, fillAsStep);
    AddQuickHands(window.form, *form, fillAsStep);
    connect(bottomBar->print, &QPushButton::clicked, this, &PaperView::Print);
    connect(form, &FormView::FocusMoved, this, [this](const Control* control) {
        focused = control;
        LightUp();
    });
    connect(checks, &CheckButton::Chosen, this, &PaperView::FocusOn);
    connect(livePage, &LivePage::Clicked, this, [this](QPointF place) {
        if (const Control* const control = ControlAt(place)) {
            FocusOn(ToQt(control->Name()));
        }
    });
    connect(livePage, &LivePage::Rested, this, [this](QPointF place, const QPoint& onScreen) {
        const auto handle = livePage->HandleAt(livePage->viewport()->mapFromGlobal(onScreen));
        const std::optional<Side> side = SideOf(handle);
        const Control* const control = side ? &MarginOf(window.form, *side) : ControlAt(place);
        QToolTip::showText(onScreen, control == nullptr ? QString() : ToQt(WholeName(window.form, *control)),
                           livePage);
    });
    connect(livePageAction, &QAction::triggered, this, &PaperView::ShowLivePage);
    connect(ownWindowAction, &QAction::triggered, this, &PaperView::ShowPageInOwnWindow);
    connect(middle, &FormAndPage::OwnWindowClosed, this, [this] { ShowPageInOwnWindow(false); });
    connect(middle, &FormAndPage::PageShown, &changeDelay, qOverload<>(&QTimer::start));
    connect(livePage, &LivePage::Painted, this, [this] { ShowWarningsOfPage(livePage->Picture().warnings); });
    connect(status, &QLabel::linkActivated, this, &PaperView::Follow);

    changeDelay.setSingleShot(true);  // simultaneous changes count as one
    connect(form, &FormView::Changed, &changeDelay, qOverload<>(&QTimer::start));
    connect(form, &FormView::Changed, this, [this] {
        if (!status->text().isEmpty()) {
            Say({});  // the message is out of date
        }
        if (!livePage->isVisible()) {  // a visible one will deliver the warnings of the new page
            pageWarnings.clear();
        }
    });
    connect(history.get(), &FormHistory::Changed, &changeDelay, qOverload<>(&QTimer::start));
    connect(&changeDelay, &QTimer::timeout, this, &PaperView::FormChanged);
    FormChanged();
}

void PaperView::ConnectWork()
{
    connect(&work, &PageWork::Started, this, [this] {
        bottomBar->generate->setEnabled(false);
        Say({});
    });
    connect(&work, &PageWork::TakesTime, this, [this] { bottomBar->ShowProgress(true); });
    connect(&work, &PageWork::Ended, this, [this] {
        bottomBar->ShowProgress(false);
        bottomBar->generate->setEnabled(true);
    });
    connect(bottomBar->cancel, &QPushButton::clicked, &work, &PageWork::Stop);
}

void PaperView::MakePresetMenu()
{
    presets = new QMenu(tr("&Presets"), this);
    presets->setObjectName(QStringLiteral("PresetsMenu"));
    const auto lay = [this](const QString& title, const PresetMenuHost::Lay& change) { LayOver(title, change); };
    const auto save = [this] {
        if (const auto name = SaveAsPreset(*this, platform, kind, window)) {
            Say(tr("Saved as the preset %1").arg(ToQt(*name)));
        }
    };
    const auto useAsDefault = [this](bool on) {
        if (UseAsDefault(platform, kind, window, on)) {
            Say(on ? tr("This window now opens like this")
                   : tr("This window opens with its original defaults again"));
        }
    };
    const auto remove = [this](const OwnPreset& preset) {
        if (DeletePreset(platform, preset)) {
            Say(tr("Deleted the preset %1").arg(ToQt(preset.name)));
        }
    };
    FillPresetMenu(*presets, {kind, platform, lay, [this] { BringBack(); }, save, useAsDefault, remove,
                              [this] { emit PickerWanted(); }});
    topBar->presets->setMenu(presets);
    connect(topBar->presets, &QToolButton::clicked, this, &PaperView::PickerWanted);
}

void PaperView::Place()
{
    const WindowSettings settings;
    const auto setting = [&](const char* what, const QVariant& usual = {}) {
        return settings.value(KeyOf(kind, what), usual);
    };
    const bool isOwn = setting("ownWindow").toBool();
    PlacePage(!setting("livePage", true).toBool() ? PagePlace::Nowhere
              : isOwn                             ? PagePlace::OwnWindow
                                                  : PagePlace::WithForm);
    const bool wasPlaced = restoreGeometry(setting("geometry").toByteArray());
    if (!wasPlaced && openingPlace.isValid()) {
        CenterOver(*this, openingPlace);
    }
    BringOnScreen(*this);
}

QSize PaperView::LargestSize() const
{
    return screen()->availableSize() - windowDecorations;
}

QSize PaperView::FirstSize() const
{
    constexpr double share = 0.85;  // of the screen, for a window that the user cannot resize
    const bool growsWithScreen = kind.hasFixedSize && middle->Place() == PagePlace::WithForm;
    return growsWithScreen ? sizeHint().expandedTo(LargestSize() * share) : sizeHint();
}

void PaperView::ShowLivePage(bool visible)
{
    PlacePage(visible ? PagePlace::WithForm : PagePlace::Nowhere);
}

void PaperView::ShowPageInOwnWindow(bool isOwn)
{
    PlacePage(isOwn ? PagePlace::OwnWindow : PagePlace::WithForm);
}

void PaperView::PlacePage(PagePlace place)
{
    const bool stays = place == middle->Place();
    const int pageWidth = middle->PageWidth();
    QWidget& own = middle->OwnWindow();
    if (place == PagePlace::OwnWindow && !own.isVisible()) {
        own.restoreGeometry(WindowSettings().value(KeyOf(kind, "pageGeometry")).toByteArray());
        BringOnScreen(own);
    } else if (own.isVisible()) {
        WindowSettings().setValue(KeyOf(kind, "pageGeometry"), own.saveGeometry());
    }
    middle->SetPlace(place);
    livePageAction->setChecked(place != PagePlace::Nowhere);
    ownWindowAction->setChecked(place == PagePlace::OwnWindow);
    centralWidget()->updateGeometry();  // so that the size hint is that of the new place
    QSize wanted = placed ? size() : FirstSize();
    if (placed && place == PagePlace::WithForm && !stays) {
        wanted.rwidth() += middle->UsualPageWidth();
    } else if (placed && pageWidth > 0 && !stays) {
        wanted.setWidth(std::max(wanted.width() - pageWidth, sizeHint().width()));
        middle->SetUsualPageWidth(std::max(width() - wanted.width(), 0));
    }
    const QSize possible = wanted.boundedTo(LargestSize());
    if (kind.hasFixedSize) {
        setFixedSize(possible);
    } else if (!isMaximized()) {
        resize(possible);
    }
    changeDelay.start();
}

void PaperView::Keep() const
{
    WindowSettings settings;
    settings.setValue(KeyOf(kind, "livePage"), middle->Place() != PagePlace::Nowhere);
    settings.setValue(KeyOf(kind, "ownWindow"), middle->Place() == PagePlace::OwnWindow);
    settings.setValue(KeyOf(kind, "geometry"), saveGeometry());
    if (middle->Place() == PagePlace::OwnWindow) {
        settings.setValue(KeyOf(kind, "pageGeometry"), middle->OwnWindow().saveGeometry());
    }
}

void PaperView::AddMenus()
{
    const auto menu = [this](const char* name) { return menuBar()->findChild<QMenu*>(QString::fromLatin1(name)); };
    const auto add = [this](QMenu& to, const QString& text, const QString& name, const QKeySequence& key,
                            auto act) {
        QAction* const action = to.addAction(text);
        action->setObjectName(name);
        action->setShortcut(key);
        connect(action, &QAction::triggered, this, act);
        return action;
    };
    QMenu& file = *menu("FileMenu");
    file.addSeparator();
    add(file, tr("&Print..."), QStringLiteral("FilePrint"), QKeySequence::Print, &PaperView::Print);
    add(file, tr("Print P&ad..."), QStringLiteral("FilePrintPad"), {}, &PaperView::PrintPad);
    add(file, tr("Copy &Link"), QStringLiteral("FileCopyLink"), {}, &PaperView::CopyLink);
    add(file, tr("&Export..."), QStringLiteral("FileExport"), Qt::CTRL | Qt::SHIFT | Qt::Key_E, &PaperView::Export);
    QMenu& recent = *file.addMenu(tr("Open &Recent"));
    recent.setObjectName(QStringLiteral("RecentMenu"));
    FillRecentMenu(recent, RecentFiles(platform.PreferencesFolder()),
                   [this](const QString& path) { emit FilesWanted({path}); });
    QMenu& edit = *menu("EditMenu");
    edit.addSeparator();
    QAction* const redo = add(edit, tr("Redo"), QStringLiteral("EditRedo"), {}, &PaperView::Redo);
    redo->setShortcuts({Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y});
    connect(&edit, &QMenu::aboutToShow, redo, [this, redo] { redo->setEnabled(history->CanRedo()); });
    connect(&edit, &QMenu::aboutToHide, redo, [redo] { redo->setEnabled(true); });  // so that the shortcut works
    add(edit, tr("Copy Page"), QStringLiteral("EditCopyPage"), Qt::CTRL | Qt::SHIFT | Qt::Key_C,
        &PaperView::CopyPage);
    add(edit, tr("Reset Form"), QStringLiteral("EditReset"), {}, &PaperView::Reset);
    if (window.GetRangeWizard() != nullptr) {
        add(edit, tr("From Data Range..."), QStringLiteral("EditDataRange"), {}, &PaperView::ShowRangeWizard);
    }
    menuBar()->addMenu(presets);
    QMenu& view = *menuBar()->addMenu(tr("&View"));
    view.addAction(livePageAction);
    view.addAction(ownWindowAction);
    view.addSeparator();
    view.addActions(livePage->ViewActions());
    view.addSeparator();
    QMenu& help = *menuBar()->addMenu(tr("&Help"));
    add(help, tr("Manual"), QStringLiteral("HelpManual"), Qt::Key_F1, &PaperView::ManualWanted);
    add(help, tr("Calibration Sheet..."), QStringLiteral("HelpCalibration"), {}, &PaperView::Calibrate);
    add(view, tr("Gallery"), QStringLiteral("ViewGallery"), {}, &PaperView::GalleryWanted);
}

}  // namespace linealis::desktop
