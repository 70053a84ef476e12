#include "desktop/window/FormAndPage.h"

#include <QSplitter>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>

namespace linealis::desktop {

namespace {

// The tabs, in this order.
constexpr int formTab = 0, pageTab = 1;

constexpr int narrowWidth = 900;  // pixels; below it, the page is always under a tab

/// Returns the size that the page prefers, which is no less than that of its tools.
QSize PreferredSize(const LivePane& pane)
{
    return pane.sizeHint().expandedTo(pane.minimumSizeHint());
}

}  // namespace

FormAndPage::FormAndPage(QWidget* theForm, LivePane* thePane, QWidget& owner)
    : form(theForm), pane(thePane), tabs(new QTabBar), splitter(new QSplitter), ownWindow(owner)
{
    tabs->setObjectName(QStringLiteral("FormAndPageTabs"));
    tabs->setExpanding(false);
    tabs->insertTab(formTab, tr("Form"));
    tabs->insertTab(pageTab, tr("Page"));
    splitter->addWidget(form);
    splitter->addWidget(pane);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(tabs);
    column->addWidget(splitter, 1);
    ownWindow.setObjectName(QStringLiteral("PageWindow"));
    connect(splitter, &QSplitter::splitterMoved, this, [this] { isSplitByUser = true; });
    connect(tabs, &QTabBar::currentChanged, this, &FormAndPage::Arrange);
    connect(&ownWindow, &PageWindow::Closed, this, &FormAndPage::OwnWindowClosed);
    Arrange();
}

void FormAndPage::SetPlace(PagePlace newPlace)
{
    if (place == newPlace) {
        return;
    }
    place = newPlace;
    if (place == PagePlace::OwnWindow) {
        ownWindow.layout()->addWidget(pane);
    } else {
        splitter->addWidget(pane);
        splitter->setStretchFactor(1, 1);
    }
    ownWindow.setVisible(place == PagePlace::OwnWindow);
    Arrange();
    updateGeometry();
}

int FormAndPage::PageWidth() const
{
    return IsBeside() ? pane->width() + splitter->handleWidth() : 0;
}

int FormAndPage::UsualPageWidth() const
{
    return usualPageWidth > 0 ? usualPageWidth : PreferredSize(*pane).width() + splitter->handleWidth();
}

void FormAndPage::ShowForm()
{
    tabs->setCurrentIndex(formTab);
}

QSize FormAndPage::sizeHint() const
{
    const QSize formSize = form->sizeHint();
    if (place != PagePlace::WithForm) {
        return formSize;
    }
    const QSize pageSize = PreferredSize(*pane);
    return {std::max(formSize.width() + splitter->handleWidth() + pageSize.width(), narrowWidth),
            std::max(formSize.height(), pageSize.height())};
}

int FormAndPage::LeastForBoth() const
{
    // With a large font, the form may leave less room than the tools of the page need.
    return std::max(narrowWidth,
                    form->sizeHint().width() + splitter->handleWidth() + pane->minimumSizeHint().width());
}

void FormAndPage::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Arrange();
}

void FormAndPage::Arrange()
{
    const bool wasShown = pane->isVisible();
    isNarrow = width() < LeastForBoth();
    const bool hasTabs = place == PagePlace::WithForm && isNarrow;
    const bool isPageInFront = hasTabs && tabs->currentIndex() == pageTab;
    tabs->setVisible(hasTabs);
    form->setVisible(!isPageInFront);
    pane->setVisible(place == PagePlace::OwnWindow ||
                     (place == PagePlace::WithForm && (!hasTabs || isPageInFront)));
    isSplitByUser = isSplitByUser && IsBeside();
    if (IsBeside() && !isSplitByUser) {
        layout()->activate();  // gives the splitter its new width
        const int formWidth = form->sizeHint().width();
        splitter->setSizes({formWidth, splitter->width() - formWidth - splitter->handleWidth()});
    }
    if (pane->isVisible() && !wasShown) {
        emit PageShown();
    }
}

}  // namespace linealis::desktop
