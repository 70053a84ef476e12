#pragma once

#include <QMainWindow>

class QLabel;
class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace linealis::desktop {

/// Shows the built-in manual: its chapters, its text, and a search. Loads the manual in the constructor.
class ManualWindow final : public QMainWindow {
    Q_OBJECT

public:
    ManualWindow();

    /// Goes to the chapter with the given heading, such as "Lined Paper", or to the beginning if there is none.
    void ShowChapter(const QString& heading);

signals:
    /// Emitted when the window has been closed. It can be shown again.
    void Closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* MakeBar();
    void ListChapters();
    /// Searches for the next or previous hit from the current position. Continues from the other end if there is
    /// none.
    void Find(bool backwards);
    /// Sets the font size, in steps from the original size. Clamps the steps to -5 to 15.
    void Zoom(int steps);

    QTextBrowser* text;
    QListWidget* chapters;
    QLineEdit* search = nullptr;
    QLabel* result = nullptr;
    int zoom = 0;  ///< steps from the original font size
};

}  // namespace linealis::desktop
