#pragma once

#include <QWidget>

namespace linealis::desktop {

/// The second window of a form, for its page. It has the menu shortcuts of the form's window; keys that the page
/// does not use, and files dropped on it, go to that window too.
class PageWindow final : public QWidget {
    Q_OBJECT

public:
    /// `theOwner` is the window of the form, and must outlive this one.
    explicit PageWindow(QWidget& theOwner);

signals:
    /// Emitted when the user closes the window, or presses Escape in it.
    void Closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QWidget& owner;
};

}  // namespace linealis::desktop
