#pragma once

#include "check/PageCheck.h"
#include "pdf/PageHit.h"
#include "pipeline/page/PaperPage.h"

#include <QImage>
#include <QObject>
#include <QPointF>
#include <QSize>
#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace linealis::desktop {

/// The visible part of a page and its scale. All pixels are device-independent, as widgets count them.
struct PageExcerpt {
    double scale = 1.0;       ///< pixels per point of the page
    QPointF origin;           ///< the position of the page's upper left corner in the picture, in pixels
    QSize size;               ///< of the picture, in pixels
    double pixelRatio = 1.0;  ///< physical pixels per device-independent pixel

    bool operator==(const PageExcerpt&) const = default;
};

/// A picture of a page, or of as much of it as could be drawn.
struct PagePicture {
    QImage image;                       ///< null if there was not enough memory
    PageExcerpt excerpt;                ///< what the image shows
    QString problem;                    ///< why the picture does not show the whole page; empty if it does
    PageWarnings warnings;              ///< about the content; empty if the page is too large to check
    std::vector<TextArea> titles = {};  ///< of the page; empty if it is too large to check
};

/// Draws pages and paints their content on a separate thread. Only the newest request counts: it aborts the work
/// on earlier ones. All public functions return at once.
class PageRenderer final : public QObject {
    Q_OBJECT

public:
    explicit PageRenderer(QObject* parent = nullptr);
    ~PageRenderer() override;
    PageRenderer(const PageRenderer&) = delete;
    PageRenderer& operator=(const PageRenderer&) = delete;

    /// Requests another page.
    void SetPage(PaperPage page);
    /// Requests that everything with one of the roles be highlighted. An empty set highlights nothing.
    void LightUp(const RoleSet& lit);
    /// Requests another part or another scale of the page. An empty size requests no picture.
    void SetExcerpt(const PageExcerpt& excerpt);

signals:
    /// Emitted on the renderer's thread for each picture. A new page gets two pictures; the first one still has
    /// the warnings and titles of the previous page.
    void Rendered(const linealis::desktop::PagePicture& picture);

private:
    struct Wish {
        std::shared_ptr<const PaperPage> page;
        RoleSet lit;
        PageExcerpt excerpt;
    };

    /// Changes the current request under the lock, and wakes the thread.
    template <typename Change>
    void Want(Change change);
    /// Runs the thread: waits for requests and fulfills them until the renderer is destroyed.
    void Work();
    /// Draws the page if it is new, paints the picture, and checks a new page. Throws PageStopped if a newer
    /// request arrives.
    void Fulfil(const Wish& wish);
    /// Draws a page into `content`, or as much of it as the limits allow. Throws PageStopped if another page is
    /// requested.
    void Draw(const PaperPage& page);

    std::mutex mutex;
    std::condition_variable changed;
    Wish wanted;
    std::atomic<bool> isNew = false;      ///< `wanted` has changed: aborts painting
    std::atomic<bool> pageIsNew = false;  ///< its page has changed: aborts drawing
    bool ends = false;

    // Used by the thread only.
    std::shared_ptr<const PaperPage> drawnPage;
    std::string content;
    PageRoles roles;
    QString drawnProblem;
    PageWarnings drawnWarnings;
    std::vector<TextArea> drawnTitles;
    bool warningsAreMissing = false;

    std::thread thread;  ///< the last member, because it starts at once and uses all others
};

}  // namespace linealis::desktop
