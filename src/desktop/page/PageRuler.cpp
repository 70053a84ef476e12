#include "desktop/page/PageRuler.h"

#include "desktop/system/Text.h"
#include "pdf/Units.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace linealis::desktop {

namespace {

constexpr double closestMarks = 4.0;     // pixels
constexpr double closestNumbers = 38.0;  // pixels

/// One way to divide a ruler.
struct Division {
    double mark;         ///< from one mark to the next, in inches or centimeters
    int marksPerNumber;  ///< how many marks lead from one number to the next
};

// From fine to coarse.
constexpr std::array inchDivisions = {Division{1.0 / 32, 8}, Division{1.0 / 16, 8}, Division{1.0 / 16, 16},
                                      Division{1.0 / 8, 8},  Division{1.0 / 2, 4},  Division{1.0, 5},
                                      Division{2.0, 5},      Division{5.0, 4}};
constexpr std::array cmDivisions = {Division{0.05, 10}, Division{0.1, 5},  Division{0.1, 10},
                                    Division{0.2, 10},  Division{0.5, 10}, Division{1.0, 10},
                                    Division{2.0, 10},  Division{5.0, 10}, Division{10.0, 10}};

}  // namespace

RulerSteps StepsOf(const RulerView& view)
{
    const double unit = view.inInches ? pointsPerInch : pointsPerInch / cmPerInch;
    const std::span<const Division> divisions =
        view.inInches ? std::span<const Division>(inchDivisions) : cmDivisions;
    const auto fits = [&](const Division& division) {
        const double pixels = division.mark * unit * view.pixelsPerPoint;
        return pixels >= closestMarks && pixels * division.marksPerNumber >= closestNumbers;
    };
    const auto found = std::find_if(divisions.begin(), divisions.end(), fits);
    const Division& division = found == divisions.end() ? divisions.back() : *found;
    return {division.mark * unit, division.marksPerNumber, division.mark * division.marksPerNumber};
}

PageRuler::PageRuler(Qt::Orientation theDirection) : direction(theDirection)
{
    setObjectName(IsAcross() ? QStringLiteral("RulerAcross") : QStringLiteral("RulerDown"));
    QFont small = font();
    small.setPointSizeF(std::max(small.pointSizeF() * 0.8, 6.0));
    setFont(small);
    setSizePolicy(IsAcross() ? QSizePolicy::Ignored : QSizePolicy::Fixed,
                  IsAcross() ? QSizePolicy::Fixed : QSizePolicy::Ignored);
}

int PageRuler::Thickness() const
{
    return fontMetrics().height() + 6;
}

QSize PageRuler::sizeHint() const
{
    return {Thickness(), Thickness()};
}

void PageRuler::Show(const RulerView& newView)
{
    if (view != newView) {
        view = newView;
        update();
    }
}

void PageRuler::MarkPointer(std::optional<double> place)
{
    if (pointer != place) {
        pointer = place;
        update();
    }
}

void PageRuler::PaintMark(QPainter& painter, double place, double depth) const
{
    const double edge = Thickness();
    if (IsAcross()) {
        painter.drawLine(QPointF(place, edge), QPointF(place, edge - depth));
    } else {
        painter.drawLine(QPointF(edge, place), QPointF(edge - depth, place));
    }
}

void PageRuler::PaintNumber(QPainter& painter, double place, double number) const
{
    const QString text = ToQt(Message::Number(QString::number(number).toStdString()));
    painter.save();
    if (IsAcross()) {
        painter.translate(place + 2.0, fontMetrics().ascent());
    } else {  // turned upward, so that the ruler need not be wider than the text is high
        painter.translate(fontMetrics().ascent(), place - 2.0);
        painter.rotate(-90.0);
    }
    painter.drawText(QPointF(0.0, 0.0), text);
    painter.restore();
}

void PageRuler::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setPen(palette().color(QPalette::Text));
    const RulerSteps steps = StepsOf(view);
    const double shown = IsAcross() ? width() : height();
    const double pixels = steps.mark * view.pixelsPerPoint;
    // Start one number before the visible part: its digits may reach into view. Marks exist only on the paper; the
    // tolerance keeps the mark on its far edge despite rounding.
    const auto first =
        static_cast<std::int64_t>(std::max(std::floor(-view.origin / pixels) - steps.marksPerNumber, 0.0));
    const auto last = static_cast<std::int64_t>(
        std::min(std::floor((shown - view.origin) / pixels), std::floor(view.length / steps.mark + 1e-6)));
    for (std::int64_t i = first; i <= last; ++i) {
        const double place = view.origin + static_cast<double>(i) * pixels;
        const bool hasNumber = i % steps.marksPerNumber == 0;
        const bool isHalf = steps.marksPerNumber % 2 == 0 && i % (steps.marksPerNumber / 2) == 0;
        PaintMark(painter, place, hasNumber ? Thickness() : isHalf ? 7.0 : 4.0);
        if (hasNumber) {
            const std::int64_t numbersBefore = i / steps.marksPerNumber;
            PaintNumber(painter, place, static_cast<double>(numbersBefore) * steps.number);
        }
    }
    if (pointer) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2.0));
        PaintMark(painter, *pointer, Thickness());
    }
}

}  // namespace linealis::desktop
