#include "desktop/page/LivePane.h"

#include "desktop/form/ElidedLabel.h"
#include "desktop/form/ToolIcon.h"
#include "desktop/page/LivePage.h"
#include "desktop/page/PageRuler.h"
#include "desktop/system/Text.h"
#include "desktop/system/WindowSettings.h"
#include "pipeline/page/PaperPage.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <cmath>

namespace linealis::desktop {

namespace {

const QString rulersKey = QStringLiteral("livePage/rulers");

/// Accepts the Return key, which would otherwise reach the window and generate the page.
class ZoomBox final : public QComboBox {
protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        QComboBox::keyPressEvent(event);
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            event->accept();
        }
    }
};

}  // namespace

LivePane::LivePane()
    : page(new LivePage), across(new PageRuler(Qt::Horizontal)), down(new PageRuler(Qt::Vertical)),
      unit(new QLabel), words(new ElidedLabel(Qt::ElideRight))
{
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    setLayoutDirection(Qt::LeftToRight);  // a page and its rulers begin at the left in every language
    unit->setObjectName(QStringLiteral("RulerUnit"));
    unit->setAlignment(Qt::AlignCenter);
    unit->setFont(across->font());  // that of the numbers, so that a longer unit fits above the ruler
    grid->addWidget(unit, 1, 0);
    grid->addWidget(across, 1, 1);
    grid->addWidget(down, 2, 0);
    grid->addWidget(page, 2, 1);
    grid->addWidget(words, 3, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    words->setObjectName(QStringLiteral("PageSummary"));
    words->setContentsMargins(6, 2, 6, 2);
    words->setLayoutDirection(QApplication::layoutDirection());

    auto* const rulers = new QAction(tr("Rulers"), page);
    rulers->setToolTip(tr("Rulers, true at 100 %"));
    rulers->setObjectName(QStringLiteral("ViewRulers"));
    rulers->setCheckable(true);
    rulers->setChecked(WindowSettings().value(rulersKey, true).toBool());
    ShowRulers(rulers->isChecked());
    connect(rulers, &QAction::toggled, this, [this](bool visible) {
        ShowRulers(visible);
        WindowSettings().setValue(rulersKey, visible);
    });
    page->AddViewAction(rulers);
    grid->addWidget(MakeTools(), 0, 0, 1, 2);

    connect(page, &LivePage::ViewChanged, this, &LivePane::ViewChanged);
    connect(page, &LivePage::PointerMoved, this, [this](QPointF place) {
        across->MarkPointer(place.x());
        down->MarkPointer(place.y());
    });
    connect(page, &LivePage::PointerLeft, this, [this] {
        across->MarkPointer(std::nullopt);
        down->MarkPointer(std::nullopt);
    });
}

QWidget* LivePane::MakeTools()
{
    auto* const tools = new QWidget;
    tools->setLayoutDirection(QApplication::layoutDirection());
    auto* const row = new QHBoxLayout(tools);
    row->setContentsMargins(4, 2, 4, 2);
    row->setSpacing(2);
    const auto add = [&](QAction* action, const QIcon& icon = {}) {
        auto* const button = new QToolButton;
        action->setIcon(icon);
        button->setDefaultAction(action);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setAccessibleName(action->text());
        row->addWidget(button);
    };
    zoom = new ZoomBox;
    zoom->setObjectName(QStringLiteral("Zoom"));
    zoom->setAccessibleName(tr("Zoom in percent of the actual size"));
    zoom->setToolTip(zoom->accessibleName());
    zoom->setEditable(true);
    zoom->setInsertPolicy(QComboBox::NoInsert);
    zoom->setCompleter(nullptr);
    for (const int percent : {25, 50, 75, 100, 150, 200, 400, 800, 1600}) {
        zoom->addItem(tr("%1 %").arg(percent));
    }
    zoom->setMinimumContentsLength(6);
    connect(zoom, &QComboBox::textActivated, this, &LivePane::ZoomEntered);
    connect(zoom->lineEdit(), &QLineEdit::returnPressed, this, [this] { ZoomEntered(zoom->currentText()); });
    const auto action = [this](const char* name) { return page->findChild<QAction*>(QString::fromLatin1(name)); };
    add(action("ViewFit"), MakeToolIcon(ToolIcon::Fit));
    add(action("ViewActualSize"));
    add(action("ViewZoomOut"));
    row->addWidget(zoom);
    add(action("ViewZoomIn"));
    add(action("ViewMargins"), MakeToolIcon(ToolIcon::Margins));
    add(action("ViewRulers"), MakeToolIcon(ToolIcon::Rulers));
    row->addStretch(1);
    return tools;
}

void LivePane::Show(const PaperPage& shown, const QString& summary)
{
    inInches = shown.frame.IsInInches();
    unit->setText(inInches ? Translated("in") : Translated("cm"));
    words->setText(summary);
    words->setToolTip(summary);
    page->Show(shown, summary);
    ViewChanged();
}

void LivePane::ShowRulers(bool visible)
{
    unit->setVisible(visible);
    across->setVisible(visible);
    down->setVisible(visible);
}

void LivePane::ViewChanged()
{
    const QPointF origin = page->Origin();
    const QSizeF paper = page->PaperInPixels() / page->PixelsPerPoint();
    across->Show({origin.x(), paper.width(), page->PixelsPerPoint(), inInches});
    down->Show({origin.y(), paper.height(), page->PixelsPerPoint(), inInches});
    if (!zoom->lineEdit()->hasFocus()) {  // do not overwrite what the user is typing
        zoom->setEditText(tr("%1 %").arg(std::lround(page->ZoomPercent())));
    }
}

void LivePane::ZoomEntered(const QString& text)
{
    bool isNumber = false;
    const double percent = QString(text).remove(QLatin1Char('%')).trimmed().toDouble(&isNumber);
    if (isNumber && percent > 0.0) {
        page->ZoomTo(percent);
    }
    page->setFocus();
    ViewChanged();
}

}  // namespace linealis::desktop
