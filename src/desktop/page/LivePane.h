#pragma once

#include <QWidget>

class QComboBox;
class QLabel;

namespace linealis {
struct PaperPage;
}

namespace linealis::desktop {

class LivePage;
class PageRuler;

/// Shows the live page together with its tool bar, its rulers, and a description of the page in words.
class LivePane final : public QWidget {
    Q_OBJECT

public:
    LivePane();

    LivePage& Page() { return *page; }
    /// Shows another page. `summary` describes it in words.
    void Show(const PaperPage& shown, const QString& summary);

    QSize sizeHint() const override { return {520, 560}; }

private:
    QWidget* MakeTools();
    void ShowRulers(bool visible);
    /// Updates the rulers and the zoom box to the view of the page.
    void ViewChanged();
    /// Applies the zoom that the user has typed or chosen, in percent. Ignores a text that is not a positive
    /// number.
    void ZoomEntered(const QString& text);

    LivePage* page;
    PageRuler* across;
    PageRuler* down;
    QComboBox* zoom = nullptr;
    QLabel* unit;   ///< of the rulers
    QLabel* words;  ///< describe the page
    bool inInches = false;
};

}  // namespace linealis::desktop
