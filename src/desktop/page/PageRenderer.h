#pragma once

#include "check/PageCheck.h"
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

/// What of a page is looked at, and how large.
struct PageExcerpt {
    double scale = 1.0;  ///< pixels of the screen, as widgets count them, for a point of the page
    QPointF origin;      ///< where the page's upper left corner stands in the picture, in the same pixels
    QSize size;          ///< of the picture, likewise
    double pixelRatio = 1.0;

    bool operator==(const PageExcerpt&) const = default;
};

/// A picture of a page, as far as it was drawn.
struct PagePicture {
    QImage image;
    PageExcerpt excerpt;
    QString problem;        ///< why it is not the whole page; empty if it is
    PageWarnings warnings;  ///< of the page's content; none of a very large one
};

/// Draws pages and paints their content on a thread of its own. Only the newest wish counts: what it supersedes
/// stops at once.
class PageRenderer final : public QObject {
    Q_OBJECT

public:
    explicit PageRenderer(QObject* parent = nullptr);
    ~PageRenderer() override;
    PageRenderer(const PageRenderer&) = delete;
    PageRenderer& operator=(const PageRenderer&) = delete;

    /// Wants another page shown.
    void SetPage(PaperPage page);
    /// Wants all lit up that has one of the roles.
    void LightUp(const RoleSet& lit);
    /// Wants another part of the page.
    void SetExcerpt(const PageExcerpt& excerpt);

signals:
    void Rendered(const linealis::desktop::PagePicture& picture);

private:
    struct Wish {
        std::shared_ptr<const PaperPage> page;
        RoleSet lit;
        PageExcerpt excerpt;
    };

    template <typename Change>
    void Want(Change change);
    void Work();
    void Fulfil(const Wish& wish);
    /// Takes the content of a page, or as much of it as there is.
    void Draw(const PaperPage& page);

    std::mutex mutex;
    std::condition_variable changed;
    Wish wanted;
    std::atomic<bool> isNew = false;      ///< the wish: what is being painted stops
    std::atomic<bool> pageIsNew = false;  ///< its page: what is being drawn stops
    bool ends = false;

    // Of the thread alone.
    std::shared_ptr<const PaperPage> drawnPage;
    std::string content;
    PageRoles roles;
    QString drawnProblem;
    PageWarnings drawnWarnings;
    bool warningsAreMissing = false;

    std::thread thread;
};

}  // namespace linealis::desktop
