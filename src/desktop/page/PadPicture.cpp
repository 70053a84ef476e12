#include "desktop/page/PadPicture.h"

#include "desktop/page/PadOverlay.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

namespace linealis::desktop {

namespace {

// In device-independent pixels.
constexpr double gap = 16.0;
constexpr double shadow = 2.0;

double CaptionHeight(const QWidget& widget)
{
    return widget.fontMetrics().height() + gap / 2.0;
}

QSizeF PaperPoints(const PaperSize& paper)
{
    return {static_cast<double>(paper.width), static_cast<double>(paper.height)};
}

}  // namespace

PadPicture::PadPicture()
{
    setObjectName(QStringLiteral("PadPicture"));
    setAccessibleName(tr("Picture of the first sheet"));
}

void PadPicture::SetFronts(FrontPages pages)
{
    shown.clear();
    fronts = std::move(pages);
}

void PadPicture::Show(PadPlan thePlan, std::optional<PaperPage> theBack)
{
    plan = std::move(thePlan);
    sides.clear();
    for (std::size_t side = 0; side < (plan.IsOnBothSides() ? 2 : 1); ++side) {
        sides.push_back(plan.Side(side));
    }
    TakePages(std::move(theBack));
    RequestPages();
    update();
}

QSize PadPicture::sizeHint() const
{
    return {380, 340};
}

QSize PadPicture::minimumSizeHint() const
{
    return {240, 240};
}

QSizeF PadPicture::SizeOfSide() const
{
    if (const Poster* const poster = ShownPoster()) {
        return AreaOf(*poster);
    }
    const PadSide& side = sides.front();
    const Shown* const page = side.isPlain ? Find(side.pages.front().front) : nullptr;
    return PaperPoints(page == nullptr ? side.size : page->paper);
}

/// Puts the sides beside each other or above each other, whichever makes them larger.
PadPicture::Places PadPicture::FindPlaces() const
{
    const double count = static_cast<double>(sides.size()), caption = CaptionHeight(*this);
    const QSizeF side = SizeOfSide();
    const auto scaleOf = [&](double across, double down) {
        const double roomX = (width() - (across + 1.0) * gap) / across;
        const double roomY = (height() - (down + 1.0) * gap) / down - caption;
        return std::max(std::min(roomX / side.width(), roomY / side.height()), 0.0);
    };
    const double beside = scaleOf(count, 1.0), above = scaleOf(1.0, count);
    const bool isBeside = beside >= above;
    Places places;
    places.scale = std::max(beside, above);
    const QSizeF size = side * places.scale;
    const double across = isBeside ? count : 1.0, down = isBeside ? 1.0 : count;
    const QSizeF all(across * size.width() + (across - 1.0) * gap,
                     down * (size.height() + caption) + (down - 1.0) * gap);
    const QPointF corner(std::round((width() - all.width()) / 2.0), std::round((height() - all.height()) / 2.0));
    places.front = {corner, size};
    places.back = places.front.translated(isBeside ? size.width() + gap : 0.0,
                                          isBeside ? 0.0 : size.height() + caption + gap);
    return places;
}

PadPicture::Shown* PadPicture::Find(const std::optional<std::size_t>& front) const
{
    const auto found =
        std::find_if(shown.begin(), shown.end(), [&](const auto& page) { return page->front == front; });
    return found == shown.end() ? nullptr : found->get();
}

void PadPicture::Add(const std::optional<std::size_t>& front, PaperPage page)
{
    if (Find(front) != nullptr) {
        return;
    }
    Shown& added = *shown.emplace_back(std::make_unique<Shown>());
    added.front = front;
    added.paper = {page.frame.paperWidth, page.frame.paperHeight};
    // Pictures that are on their way when the page is forgotten go to no one.
    connect(&added.renderer, &PageRenderer::Rendered, &added.renderer, [this, &added](const PagePicture& rendered) {
        added.image = rendered.image;
        update();
    });
    added.renderer.SetPage(std::move(page));
}

void PadPicture::TakePages(std::optional<PaperPage> back)
{
    const auto isOnASide = [this](const std::optional<std::size_t>& front) {
        return std::any_of(sides.begin(), sides.end(), [&](const PadSide& side) {
            return std::any_of(side.pages.begin(), side.pages.end(),
                               [&](const PlacedPage& page) { return page.front == front; });
        });
    };
    std::erase_if(shown, [&](const auto& page) { return !page->front || !isOnASide(page->front); });
    for (const PadSide& side : sides) {
        for (const PlacedPage& page : side.pages) {
            if (page.front) {
                Add(page.front, fronts(*page.front));
            } else if (back) {
                Add(page.front, *back);
            }
        }
    }
}

void PadPicture::RequestPages()
{
    if (sides.empty()) {
        return;
    }
    PageExcerpt excerpt;
    excerpt.scale = FindPlaces().scale;
    excerpt.pixelRatio = devicePixelRatioF();
    for (const auto& page : shown) {
        const QSizeF size = PaperPoints(page->paper) * excerpt.scale;
        excerpt.size = {static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height()))};
        page->renderer.SetExcerpt(excerpt);
    }
}

void PadPicture::PaintPages(QPainter& painter, const QRectF& place, std::size_t number) const
{
    const double scale = place.width() / SizeOfSide().width();
    for (const PlacedPage& placed : sides[number].pages) {
        const Shown* const page = Find(placed.front);
        if (page == nullptr || page->image.isNull()) {
            continue;
        }
        const QSizeF size = PaperPoints(page->paper) * scale;
        const QPointF corner(placed.corner.x * scale, place.height() - placed.corner.y * scale - size.height());
        const bool isPoster = ShownPoster() != nullptr;  // which begins at its upper left corner
        painter.drawImage(QRectF(place.topLeft() + (isPoster ? QPointF() : corner), size), page->image);
    }
}

void PadPicture::PaintSide(QPainter& painter, const QRectF& place, std::size_t number) const
{
    painter.fillRect(place.translated(shadow, shadow), QColor(0, 0, 0, 0x50));
    painter.fillRect(place, Qt::white);
    painter.save();
    painter.setClipRect(place);
    PaintPages(painter, place, number);
    PaintOverlay(painter, place, plan, number);
    painter.restore();
    painter.setPen(QColor(0x80, 0x80, 0x80));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(place);
    painter.setPen(palette().color(QPalette::WindowText));
    const QStringList captions = CaptionsOf(plan, number);
    const double width = place.width() / static_cast<double>(captions.size());
    for (qsizetype column = 0; column < captions.size(); ++column) {
        const QRectF below(place.left() + static_cast<double>(column) * width, place.bottom() + gap / 4.0, width,
                           CaptionHeight(*this));
        painter.drawText(below, Qt::AlignHCenter | Qt::AlignTop | Qt::TextDontClip, captions[column]);
    }
}

void PadPicture::paintEvent(QPaintEvent* /*event*/)
{
    if (sides.empty()) {
        return;
    }
    QPainter painter(this);
    const Places places = FindPlaces();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    PaintSide(painter, places.front, 0);
    if (sides.size() > 1) {
        PaintSide(painter, places.back, 1);
    }
}

void PadPicture::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    RequestPages();
}

}  // namespace linealis::desktop
