#pragma once

#include <QWidget>
#include <optional>

namespace linealis::desktop {

/// How a page lies in its view, along one direction.
struct RulerView {
    double origin = 0.0;          ///< where the page begins, in pixels
    double length = 0.0;          ///< of the page, in points
    double pixelsPerPoint = 1.0;  ///< above 0
    bool inInches = false;        ///< otherwise in centimeters

    bool operator==(const RulerView&) const = default;
};

/// How a ruler is divided so that its marks stay apart. Lengths in points.
struct RulerSteps {
    double mark = 0.0;  ///< from one mark to the next
    int marksPerNumber = 1;
    double number = 0.0;  ///< what is counted on from one number to the next, in inches or centimeters
};

RulerSteps StepsOf(const RulerView& view);

/// A ruler along an edge of the live page, to hold paper against. It counts from the paper's upper left corner.
class PageRuler final : public QWidget {
    Q_OBJECT

public:
    explicit PageRuler(Qt::Orientation theDirection);

    void Show(const RulerView& newView);
    /// Marks the place of the pointer, in pixels; none without one.
    void MarkPointer(std::optional<double> place);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool IsAcross() const { return direction == Qt::Horizontal; }
    int Thickness() const;
    void PaintMark(QPainter& painter, double place, double depth) const;
    void PaintNumber(QPainter& painter, double place, double number) const;

    Qt::Orientation direction;
    RulerView view;
    std::optional<double> pointer;
};

}  // namespace linealis::desktop
