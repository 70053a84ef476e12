#pragma once

#include "desktop/page/PageRenderer.h"
#include "kinds/PadPlan.h"

#include <QImage>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace linealis::desktop {

/// A picture of the first sheet of a pad or booklet: its front, its back if it has one, the cuts or the fold, and
/// the numbers of the pages, which are drawn large enough to be read. Of a poster, shows all sheets glued together.
class PadPicture final : public QWidget {
    Q_OBJECT

public:
    /// Returns one of the different pages on the fronts, from 0.
    using FrontPages = std::function<const PaperPage&(std::size_t front)>;

    PadPicture();

    /// Shows the pages on the fronts, which belong to the plans from now on.
    void SetFronts(FrontPages pages);
    /// Shows another plan. The back counts only if the plan has one.
    void Show(PadPlan thePlan, std::optional<PaperPage> theBack);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// A page that is shown, drawn by a thread of its own.
    struct Shown {
        std::optional<std::size_t> front;  ///< none: the back
        PaperSize paper{};
        PageRenderer renderer;
        QImage image;  ///< null before it is drawn
    };

    /// Where the sides are in the widget.
    struct Places {
        double scale = 0.0;  ///< pixels per point
        QRectF front;
        QRectF back;
    };

    const Poster* ShownPoster() const { return std::get_if<Poster>(&plan.sheets); }
    /// Returns the size of what is shown of a side, in points.
    QSizeF SizeOfSide() const;
    Places FindPlaces() const;
    Shown* Find(const std::optional<std::size_t>& front) const;
    /// Draws the page if it is not shown yet.
    void Add(const std::optional<std::size_t>& front, PaperPage page);
    /// Adds the pages of the sides, and forgets all others.
    void TakePages(std::optional<PaperPage> back);
    /// Requests pictures of the pages at the scale at which they are shown.
    void RequestPages();

    void PaintSide(QPainter& painter, const QRectF& place, std::size_t number) const;
    void PaintPages(QPainter& painter, const QRectF& place, std::size_t number) const;

    FrontPages fronts;
    PadPlan plan;
    std::vector<PadSide> sides;  ///< of the first sheet
    std::vector<std::unique_ptr<Shown>> shown;
};

}  // namespace linealis::desktop
