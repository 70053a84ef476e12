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

/// The live page with what stands about it: a row of tools, rulers, and the page in words.
class LivePane final : public QWidget {
    Q_OBJECT

public:
    LivePane();

    LivePage& Page() { return *page; }
    /// Shows another page. `summary` tells it in words.
    void Show(const PaperPage& shown, const QString& summary);

    QSize sizeHint() const override { return {420, 560}; }

private:
    QWidget* MakeTools();
    void ShowRulers(bool visible);
    void ViewChanged();
    /// What the user has typed or chosen as the zoom.
    void ZoomEntered(const QString& text);

    LivePage* page;
    PageRuler* across;
    PageRuler* down;
    QComboBox* zoom = nullptr;
    QLabel* words;
    bool inInches = false;
};

}  // namespace linealis::desktop
