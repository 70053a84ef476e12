#include "desktop/page/PageWindow.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QVBoxLayout>

namespace linealis::desktop {

PageWindow::PageWindow(QWidget& theOwner) : owner(theOwner)
{
    setAcceptDrops(true);
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
}

/// Takes over the shortcuts of the menus, which belong to the active window only.
void PageWindow::showEvent(QShowEvent* event)
{
    for (const QMenu* const menu : owner.findChildren<QMenu*>()) {
        addActions(menu->actions());
    }
    QWidget::showEvent(event);
}

void PageWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    emit Closed();
}

void PageWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QCoreApplication::sendEvent(&owner, event);
    }
}

void PageWindow::dragEnterEvent(QDragEnterEvent* event)
{
    QCoreApplication::sendEvent(&owner, event);
}

void PageWindow::dropEvent(QDropEvent* event)
{
    QCoreApplication::sendEvent(&owner, event);
}

}  // namespace linealis::desktop
