#pragma once

#include <QWidget>
#include <optional>

namespace linealis::desktop {

/// The position and scale of a page in its view, along one direction.
struct RulerView {
    double origin = 0.0;          ///< the position of the page's edge in the view, in pixels
    double length = 0.0;          ///< of the page, in points
    double pixelsPerPoint = 1.0;  ///< above 0
    bool inInches = false;        ///< otherwise in centimeters

    bool operator==(const RulerView&) const = default;
};

/// The division of a ruler.
struct RulerSteps {
    double mark = 0.0;       ///< from one mark to the next, in points
    int marksPerNumber = 1;  ///< how many marks lead from one number to the next
    double number = 0.0;     ///< from one number to the next, in inches or centimeters
};

/// Returns the finest division whose marks and numbers are far enough apart on the screen, or else the coarsest.
RulerSteps StepsOf(const RulerView& view);

/// Draws a ruler along an edge of the live page. Its numbers start at the upper left corner of the paper.
class PageRuler final : public QWidget {
    Q_OBJECT

public:
    explicit PageRuler(Qt::Orientation theDirection);

    void Show(const RulerView& newView);
    /// Marks the position of the pointer, in pixels along the ruler. No value removes the mark.
    void MarkPointer(std::optional<double> place);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool IsAcross() const { return direction == Qt::Horizontal; }
    int Thickness() const;
    /// Paints a mark of that length, `depth`, inward from the edge next to the page. Both are in pixels.
    void PaintMark(QPainter& painter, double place, double depth) const;
    void PaintNumber(QPainter& painter, double place, double number) const;

    Qt::Orientation direction;
    RulerView view;
    std::optional<double> pointer;
};

}  // namespace linealis::desktop
