#include "desktop/PaperView.h"

#include "desktop/FormDialog.h"
#include "desktop/FormView.h"
#include "desktop/Text.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QScopeGuard>
#include <QVBoxLayout>

namespace linealis::desktop {

namespace {

constexpr int millisecondsBeforeProgress = 400;

}  // namespace

PaperView::PaperView(DesktopPlatform& thePlatform, const PaperKind& theKind, PaperWindow& theWindow)
    : platform(thePlatform), kind(theKind), window(theWindow)
{
    setWindowTitle(ToQt(kind.title));
    setObjectName(ToQt(kind.name));
    auto* const form = new FormView(window.form, GroupBoxes::withHeading,
                                    [this](Swatch& canvas) { window.ColorCanvas_MouseDown(canvas); });
    form->AddBesideLastGroup(MakeButtons());
    setCentralWidget(form);
    if (kind.hasFixedSize) {
        layout()->setSizeConstraint(QLayout::SetFixedSize);
        setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    }

    progressDelay.setSingleShot(true);
    progressDelay.setInterval(millisecondsBeforeProgress);
    connect(&progressDelay, &QTimer::timeout, this, [this] {
        if (QApplication::activeModalWidget() != nullptr) {
            progressDelay.start();  // the user is being asked: nothing is under way yet
        } else {
            ShowProgress(true);
        }
    });
}

PaperView::~PaperView()
{
    delete takeCentralWidget();  // before the form that it shows
}

QWidget* PaperView::MakeButtons()
{
    auto* const row = new QWidget;
    auto* const layout = new QVBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 4);
    if (window.GetWizard() != nullptr) {
        auto* const wizard = new QPushButton(QStringLiteral("Easy Graph Wizard"));
        wizard->setObjectName(QStringLiteral("PushButtonEasyWizard"));
        wizard->setAutoDefault(false);
        connect(wizard, &QPushButton::clicked, this, &PaperView::ShowWizard);
        layout->addWidget(wizard);
    }
    progress = new QProgressBar;
    progress->setRange(0, 0);
    progress->setFixedWidth(150);
    progress->setObjectName(QStringLiteral("Progress"));
    cancelButton = new QPushButton(QStringLiteral("Cancel"));
    cancelButton->setObjectName(QStringLiteral("PushButtonCancel"));
    connect(cancelButton, &QPushButton::clicked, this, &PaperView::Cancel);
    generateButton = new QPushButton(QStringLiteral("Generate"));
    generateButton->setObjectName(QStringLiteral("PushButtonGenerate"));
    generateButton->setDefault(true);
    generateButton->setToolTip(QStringLiteral("Make the page. With the shift key, ask for the file again"));
    connect(generateButton, &QPushButton::clicked, this, &PaperView::Generate);
    layout->addWidget(progress);
    layout->addWidget(cancelButton);
    layout->addWidget(generateButton);
    ShowProgress(false);
    return row;
}

void PaperView::ShowProgress(bool visible)
{
    progress->setVisible(visible);
    cancelButton->setVisible(visible);
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
    generateButton->setEnabled(false);
    progressDelay.start();
    const auto ended = qScopeGuard([this] {
        progressDelay.stop();
        ShowProgress(false);
        generateButton->setEnabled(true);
        generating = false;
    });
    platform.RunStoppable(stop, [this] { window.PushButtonGenerate_Action(); });
}

void PaperView::ShowWizard()
{
    Wizard& wizard = *window.GetWizard();
    FormDialog dialog(QStringLiteral("Easy Graph Wizard"), wizard.Fields(), this);
    if (platform.RunModal(dialog) == QDialog::Accepted) {
        wizard.PushButton1_Action();
    } else {
        wizard.PushButton2_Action();
    }
}

/// Return is the default button's, from wherever no other control has taken it. With shift it forgets the file too.
void PaperView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Generate();
    } else {
        QMainWindow::keyPressEvent(event);
    }
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
