#include "desktop/page/PageRenderer.h"

#include "desktop/page/PagePainter.h"
#include "desktop/system/Text.h"
#include "exchange/FontCheck.h"
#include "pipeline/page/PageJob.h"

#include <QPainter>
#include <new>
#include <utility>

namespace linealis::desktop {

namespace {

/// The largest content, in bytes, on which roles are highlighted. The strokes of a larger page are too dense to
/// tell apart.
constexpr std::size_t longestContentLitUp = std::size_t{8} << 20U;

constexpr PageColor light{0.95, 0.35, 0.0};

/// The most content that is drawn, in bytes. A larger page shows only its beginning, so that drawing takes seconds
/// and not minutes.
constexpr std::int64_t mostContentShown = std::int64_t{64} << 20U;

void StopIf(const std::atomic<bool>& stops)
{
    if (stops.load(std::memory_order_relaxed)) {
        throw PageStopped();
    }
}

/// Repaints only the strokes and texts that have one of the roles, in the highlight color.
class Highlighter final : public StoppablePainter {
public:
    Highlighter(QPainter& thePainter, double pageHeight, const std::atomic<bool>& stops, const RoleSet& theRoles)
        : StoppablePainter(thePainter, pageHeight, ThinLines::Widened, stops), roles(theRoles)
    {}

    void BeginRole(Role role) override { isLit = Includes(roles, role); }
    bool Stroke(PagePath path, const PagePen& pen) override
    {
        PagePen lit = pen;
        lit.color = light;
        return isLit ? StoppablePainter::Stroke(path, lit) : GoesOn();
    }
    bool Fill(PagePath /*path*/, const PageColor& /*color*/) override { return GoesOn(); }
    bool FillAndStroke(PagePath /*path*/, const PageColor& /*color*/, const PagePen& /*pen*/) override
    {
        return GoesOn();
    }
    bool Text(const PageText& text) override
    {
        PageText lit = text;
        lit.color = light;
        return isLit ? StoppablePainter::Text(lit) : GoesOn();
    }

private:
    RoleSet roles;
    bool isLit = false;
};

}  // namespace

PageRenderer::PageRenderer(QObject* parent) : QObject(parent), thread([this] { Work(); }) {}

PageRenderer::~PageRenderer()
{
    {
        const std::lock_guard lock(mutex);
        ends = true;
        isNew = true;  // both flags, to abort drawing as well as painting
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
    });
}

void PageRenderer::LightUp(const RoleSet& lit)
{
    Want([&](Wish& wish) { wish.lit = lit; });
}

void PageRenderer::SetExcerpt(const PageExcerpt& excerpt)
{
    Want([&](Wish& wish) { wish.excerpt = excerpt; });  // aborts painting, but not the drawing of the page
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
        } catch (const PageStopped&) {  // a newer request has arrived: handle it
        } catch (const std::bad_alloc&) {
            emit Rendered({{}, wish.excerpt, tr("There is not enough memory to show the page"), {}});
        }
    }
}

void PageRenderer::Draw(const PaperPage& page)
{
    Turns turns([this] { StopIf(pageIsNew); });
    MyPDFGenerator pdf(turns, mostContentShown);
    drawnProblem.clear();
    try {
        DrawContent(page, pdf, turns, {});
    } catch (const PageTooLarge&) {
        drawnProblem = tr("The page is very large; only its beginning is shown");
    } catch (const PageGivenUp& givenUp) {
        drawnProblem = ToQt(Message(givenUp.reason));
    }
    roles = pdf.Roles();
    content = pdf.Stream();
}

void PageRenderer::Fulfil(const Wish& wish)
{
    if (drawnPage != wish.page) {
        drawnPage = nullptr;  // if drawing is aborted, `content` belongs to no page
        Draw(*wish.page);
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
    painter.save();
    StoppablePainter shown(painter, paper.height(), PagePainter::ThinLines::Faded, isNew);
    const PageDamage damage = ReadPage(content, shown);
    painter.restore();
    StopIf(isNew);
    if (wish.lit != RoleSet{} && content.size() <= longestContentLitUp) {
        Highlighter lights(painter, paper.height(), isNew, wish.lit);
        ReadPage(content, roles, lights);
        StopIf(isNew);
    }
    painter.end();
    const QString problem = damage.message.empty() || !drawnProblem.isEmpty()
                                ? drawnProblem
                                : tr("The page is damaged: %1").arg(QString::fromStdString(damage.message));
    emit Rendered({image, excerpt, problem, drawnWarnings, drawnTitles});
    if (warningsAreMissing) {  // the checks take time, so the picture has been sent before
        StopIf(isNew);
        warningsAreMissing = false;
        drawnWarnings.clear();
        drawnTitles.clear();
        if (content.size() <= longestContentChecked) {
            drawnWarnings = ContentWarnings(*wish.page, content, roles);
            drawnTitles = TextAreas(content, roles, {"title"});
            const PageWarnings ofFonts = FontWarnings(content);
            drawnWarnings.insert(drawnWarnings.end(), ofFonts.begin(), ofFonts.end());
        }
        emit Rendered({std::move(image), excerpt, problem, drawnWarnings, drawnTitles});
    }
}

}  // namespace linealis::desktop
