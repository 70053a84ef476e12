#pragma once

#include "desktop/page/LivePage.h"
#include "pipeline/document/PaperWindow.h"

#include <QObject>
#include <vector>

namespace linealis::desktop {

class FormView;
class PaperView;

/// Lets the user move the margins and titles of a form on the live page. A whole drag is one step; Escape brings
/// the form back to what it was.
class PageDrag final : public QObject {
    Q_OBJECT

public:
    /// The object belongs to the page. The other arguments must outlive it.
    PageDrag(PaperView& theView, PaperWindow& theWindow, FormView& theForm, LivePage& thePage);

private:
    void Begin(const PageHandle& handle);
    void Move(QPointF distance, Grain grain);
    void End();
    void Cancel();
    /// Shows the name and the place of what is being dragged beside the pointer.
    void ShowPlace() const;

    PaperView& view;
    PaperWindow& window;
    FormView& form;
    LivePage& page;
    PageHandle moved;    ///< or was moved last
    PageFrame frame;     ///< of the page when the drag began
    PrintedField title;  ///< what is moved if it is a title
    std::vector<ControlState> before;
};

}  // namespace linealis::desktop
