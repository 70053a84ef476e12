#pragma once

#include <QMainWindow>

class QLabel;
class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace linealis::desktop {

/// The manual inside the program: its chapters, its text, and a search. It is read when it is made, and not before.
class ManualWindow final : public QMainWindow {
    Q_OBJECT

public:
    ManualWindow();

    /// Goes to the chapter of a heading, given in words: "Lined Paper". The beginning if there is none.
    void ShowChapter(const QString& heading);

signals:
    /// The user has closed it. It may be shown again.
    void Closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* MakeBar();
    void ListChapters();
    /// Searches on from where the last hit stands, and from the other end after the last one.
    void Find(bool backwards);
    /// Steps of the letters' size away from the size at the start.
    void Zoom(int steps);

    QTextBrowser* text;
    QListWidget* chapters;
    QLineEdit* search = nullptr;
    QLabel* result = nullptr;
    int zoom = 0;
};

}  // namespace linealis::desktop
