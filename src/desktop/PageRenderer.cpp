#include "desktop/PageRenderer.h"

#include "desktop/PagePainter.h"
#include "pipeline/PageJob.h"

#include <QPainter>
#include <new>
#include <unordered_map>
#include <utility>

namespace linealis::desktop {

namespace {

/// A line narrower than this, in pixels, is painted this wide, or it would be gone on a page made small.
constexpr double thinnestPixels = 0.6;

/// Strokes are lit up on pages of this many bytes of content at most; on larger ones nobody can tell them apart.
constexpr std::size_t longestContentLitUp = std::size_t{8} << 20U;

constexpr PageColor light{0.95, 0.35, 0.0};

/// Of a larger page only the beginning is shown, so that it takes seconds and not minutes. Bytes.
constexpr std::size_t longestContentShown = std::size_t{64} << 20U;

/// The content, or as many of its first lines as are shown.
std::string_view WholeLines(std::string_view content)
{
    return content.size() <= longestContentShown ? content
                                                 : content.substr(0, content.rfind('\r', longestContentShown) + 1);
}

void StopIf(const std::atomic<bool>& stops)
{
    if (stops.load(std::memory_order_relaxed)) {
        throw PageStopped();
    }
}

/// What tells one stroke from another.
std::size_t KeyOf(PagePath path, const PagePen& pen)
{
    std::size_t key = 0;
    const auto add = [&key](double value) { key = key * 1099511628211U + std::hash<double>()(value); };
    for (const PathSegment& segment : path) {
        for (const Point& point : {segment.to, segment.control1, segment.control2}) {
            add(point.x);
            add(point.y);
        }
    }
    for (const double value : {pen.width, pen.color.red, pen.color.green, pen.color.blue,
                               static_cast<double>(pen.cap), pen.dashOn, pen.dashOff, pen.dashPhase}) {
        add(value);
    }
    return key;
}

using StrokeCounts = std::unordered_map<std::size_t, int>;

/// Counts the strokes of a content, until a newer wish has come.
class StrokeCounter final : public PageSink {
public:
    explicit StrokeCounter(const std::atomic<bool>& stops) : stop(stops) {}

    StrokeCounts counts;

    bool Scale(double /*sx*/, double /*sy*/) override { return true; }
    bool Stroke(PagePath path, const PagePen& pen) override
    {
        ++counts[KeyOf(path, pen)];
        return !stop.load(std::memory_order_relaxed);
    }
    bool Fill(PagePath /*path*/, const PageColor& /*color*/) override { return true; }
    bool FillAndStroke(PagePath /*path*/, const PageColor& /*color*/, const PagePen& /*pen*/) override
    {
        return true;
    }
    bool Text(const PageText& /*text*/) override { return true; }

private:
    const std::atomic<bool>& stop;
};

/// Paints until a newer wish has come.
class StoppablePainter : public PagePainter {
public:
    StoppablePainter(QPainter& thePainter, double pageHeight, double thinnestLine, const std::atomic<bool>& stops)
        : PagePainter(thePainter, pageHeight, thinnestLine), stop(stops)
    {}

protected:
    bool GoesOn() override { return !stop.load(std::memory_order_relaxed); }

private:
    const std::atomic<bool>& stop;
};

/// Paints only the strokes that another page does not have, as a light on them.
class Highlighter final : public StoppablePainter {
public:
    Highlighter(QPainter& thePainter, double pageHeight, double thinnestLine, const std::atomic<bool>& stops,
                StrokeCounts theOther)
        : StoppablePainter(thePainter, pageHeight, thinnestLine, stops), other(std::move(theOther))
    {}

    bool Stroke(PagePath path, const PagePen& pen) override
    {
        if (const auto same = other.find(KeyOf(path, pen)); same != other.end() && same->second > 0) {
            --same->second;
            return GoesOn();
        }
        PagePen lit = pen;
        lit.color = light;
        return StoppablePainter::Stroke(path, lit);
    }
    bool Fill(PagePath /*path*/, const PageColor& /*color*/) override { return GoesOn(); }
    bool FillAndStroke(PagePath /*path*/, const PageColor& /*color*/, const PagePen& /*pen*/) override
    {
        return GoesOn();
    }
    bool Text(const PageText& /*text*/) override { return GoesOn(); }

private:
    StrokeCounts other;
};

}  // namespace

PageRenderer::PageRenderer(QObject* parent) : QObject(parent), thread([this] { Work(); }) {}

PageRenderer::~PageRenderer()
{
    {
        const std::lock_guard lock(mutex);
        ends = true;
        isNew = true;
        pageIsNew = true;
    }
    changed.notify_one();
    thread.join();
}

template <typename Change>
void PageRenderer::Want(Change change)
{
    {
        const std::lock_guard lock(mutex);
        change(wanted);
        isNew = true;
    }
    changed.notify_one();
}

void PageRenderer::SetPage(PaperPage page)
{
    Want([&](Wish& wish) {
        pageIsNew = true;
        wish.page = std::make_shared<PaperPage>(std::move(page));
        wish.other = nullptr;
    });
}

void PageRenderer::LightUp(std::optional<PaperPage> other)
{
    Want([&](Wish& wish) { wish.other = other ? std::make_shared<PaperPage>(std::move(*other)) : nullptr; });
}

void PageRenderer::SetExcerpt(const PageExcerpt& excerpt)
{
    Want([&](Wish& wish) { wish.excerpt = excerpt; });  // the page itself goes on being drawn
}

void PageRenderer::Work()
{
    for (;;) {
        Wish wish;
        {
            std::unique_lock lock(mutex);
            changed.wait(lock, [this] { return isNew.load(); });
            if (ends) {
                return;
            }
            isNew = false;
            pageIsNew = false;
            wish = wanted;
        }
        try {
            if (wish.page && !wish.excerpt.size.isEmpty()) {
                Fulfil(wish);
            }
        } catch (const PageStopped&) {  // a newer wish has come
        } catch (const std::bad_alloc&) {
            emit Rendered({{}, wish.excerpt, tr("There is not enough memory to show the page"), {}});
        }
    }
}

std::shared_ptr<const std::string> PageRenderer::Draw(const PaperPage& page, QString& problem,
                                                      const std::atomic<bool>& stops)
{
    Turns turns([&stops] { StopIf(stops); });
    MyPDFGenerator pdf(turns);
    problem.clear();
    try {
        DrawContent(page, pdf, turns, {});
    } catch (const PageGivenUp& givenUp) {
        problem = QString::fromUtf8(givenUp.reason);
    }
    const std::string_view shown = WholeLines(pdf.Stream());
    if (problem.isEmpty() && shown.size() < pdf.Stream().size()) {
        problem = tr("The page is very large; only its first lines are shown");
    }
    return std::make_shared<std::string>(shown);
}

void PageRenderer::Fulfil(const Wish& wish)
{
    if (drawnPage != wish.page) {
        drawnPage = nullptr;
        content = Draw(*wish.page, drawnProblem, pageIsNew);
        drawnPage = wish.page;
        warningsAreMissing = true;
    }
    const PageExcerpt& excerpt = wish.excerpt;
    QImage image(excerpt.size * excerpt.pixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(excerpt.pixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.translate(excerpt.origin);
    painter.scale(excerpt.scale, excerpt.scale);
    const PageFrame& frame = wish.page->frame;
    const QSizeF paper(static_cast<double>(frame.paperWidth), static_cast<double>(frame.paperHeight));
    const QRectF sheet(QPointF(), paper);
    painter.fillRect(sheet, Qt::white);
    painter.setClipRect(sheet);
    const double thinnest = thinnestPixels / (excerpt.scale * excerpt.pixelRatio);
    painter.save();
    StoppablePainter shown(painter, paper.height(), thinnest, isNew);
    const PageDamage damage = ReadPage(*content, shown);
    painter.restore();
    StopIf(isNew);
    if (wish.other && content->size() <= longestContentLitUp) {
        if (drawnOther != wish.other) {
            drawnOther = nullptr;
            QString problem;
            otherContent = Draw(*wish.other, problem, isNew);
            if (!problem.isEmpty()) {  // nothing to compare with
                otherContent = content;
            }
            drawnOther = wish.other;
        }
        StrokeCounter counter(isNew);
        ReadPage(*otherContent, counter);
        Highlighter lights(painter, paper.height(), 2.0 * thinnest, isNew, std::move(counter.counts));
        ReadPage(*content, lights);
        StopIf(isNew);
    }
    painter.end();
    const QString problem = damage.message.empty() || !drawnProblem.isEmpty()
                                ? drawnProblem
                                : tr("The page is damaged: %1").arg(QString::fromStdString(damage.message));
    emit Rendered({image, excerpt, problem, drawnWarnings});
    if (warningsAreMissing) {  // the picture goes first
        StopIf(isNew);
        warningsAreMissing = false;
        drawnWarnings =
            content->size() <= longestContentChecked ? ContentWarnings(frame, *content) : PageWarnings();
        emit Rendered({std::move(image), excerpt, problem, drawnWarnings});
    }
}

}  // namespace linealis::desktop
