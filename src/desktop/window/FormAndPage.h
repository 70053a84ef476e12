#pragma once

#include "desktop/page/LivePane.h"
#include "desktop/page/PageWindow.h"

#include <QWidget>

class QSplitter;
class QTabBar;

namespace linealis::desktop {

/// Where a window shows its page.
enum class PagePlace {
    Nowhere,
    WithForm,   ///< beside the form; under a tab if there is not enough room for both
    OwnWindow,  ///< in a second window
};

/// Arranges a form and its page.
class FormAndPage final : public QWidget {
    Q_OBJECT

public:
    /// Takes ownership of the form and the pane. `owner` is the window that contains them.
    FormAndPage(QWidget* theForm, LivePane* thePane, QWidget& owner);

    PagePlace Place() const { return place; }
    void SetPlace(PagePlace newPlace);
    /// Returns the width in pixels that the page takes beside the form; 0 if it is elsewhere.
    int PageWidth() const;
    /// Returns the width in pixels by which the window grows for the page: the one that was set last, or what the
    /// page prefers.
    int UsualPageWidth() const;
    void SetUsualPageWidth(int width) { usualPageWidth = width; }
    /// Makes the form visible if it is under a tab.
    void ShowForm();
    /// Returns the second window. It is visible only if the page is there.
    QWidget& OwnWindow() { return ownWindow; }

    QSize sizeHint() const override;

signals:
    /// Emitted when the page has become visible, so that its picture may be out of date.
    void PageShown();
    /// Emitted when the user has closed the second window. The page is still in there.
    void OwnWindowClosed();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    /// Shows the form, the page, and the tabs as the place and the width require. A page that comes beside the form
    /// gets all the width that the form does not need.
    void Arrange();
    /// Returns the least width in pixels at which the page is beside the form.
    int LeastForBoth() const;
    bool IsBeside() const { return place == PagePlace::WithForm && !isNarrow; }

    QWidget* form;
    LivePane* pane;
    QTabBar* tabs;
    QSplitter* splitter;
    PageWindow ownWindow;
    PagePlace place = PagePlace::WithForm;
    bool isNarrow = false;       ///< whether there is not enough room for both
    bool isSplitByUser = false;  ///< otherwise, the form has its natural width
    int usualPageWidth = 0;      ///< 0: what the page prefers
};

}  // namespace linealis::desktop
