#include "desktop/window/PresetPictures.h"

#include "app/OwnPresets.h"
#include "desktop/page/PagePainter.h"
#include "desktop/system/Text.h"
#include "pdf/Units.h"
#include "pipeline/page/PageJob.h"
#include "platform/ScreenlessPlatform.h"

#include <QDateTime>
#include <QFileInfo>
#include <QPainter>
#include <algorithm>
#include <new>

namespace linealis::desktop {

namespace {

constexpr double shownMillimeters = 35.0;
constexpr double cornerScale = PresetPictures::side / (shownMillimeters * pointsPerMm);  // pixels per point

constexpr QRgb paperWhite = 0xFFFFFFFF;

constexpr std::int64_t mostContentPainted = std::int64_t{8} << 20U;  // bytes

/// Returns the preset's page, as much of it as can be painted soon.
DrawnPage PageOf(const PaperHit& hit, Turns& turns)
{
    ScreenlessPlatform platform;
    const auto window = hit.preset != nullptr ? MakeWindow(*hit.preset, platform) : MakeWindow(*hit.kind, platform);
    if (hit.preset == nullptr) {
        LayOver(OwnPreset{hit.title, hit.file}, *window, platform);
    }
    return DrawBeginning(window->ReadPage(), turns, mostContentPainted);
}

/// Whether so little of the image is printed that nobody would recognize the paper.
bool IsNearlyEmpty(const QImage& image)
{
    constexpr int blocks = 14, leastInked = 24;  // a row's blocks, and how many of all blocks must have ink
    int inked = 0;
    const QImage small = image.scaled(blocks, blocks, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    for (int y = 0; y < blocks; ++y) {
        for (int x = 0; x < blocks; ++x) {
            inked += small.pixel(x, y) == paperWhite ? 0 : 1;
        }
    }
    return inked < leastInked;
}

/// Paints the part of the page whose upper left corner is at `origin`, in points from that of the page.
QImage PaintPart(const DrawnPage& page, const QPointF& origin, double pixelRatio, const std::atomic<bool>& stops)
{
    QImage image(QSize(PresetPictures::side, PresetPictures::side) * pixelRatio, QImage::Format_RGB32);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(cornerScale, cornerScale);
    painter.translate(-origin);
    const auto height = static_cast<double>(page.frame.paperHeight);
    StoppablePainter sink(painter, height, PagePainter::ThinLines::Faded, stops);
    ReadPage(page.content, sink);
    return image;
}

/// Returns how far what is printed in an image is from its upper and left edges, in device-independent pixels.
/// Returns 0 if nothing is printed in it.
QPoint BlankAbove(const QImage& image)
{
    QPoint blank(image.width(), image.height());
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != paperWhite) {
                blank = {std::min(blank.x(), x), std::min(blank.y(), y)};
            }
        }
    }
    return blank.x() == image.width() ? QPoint() : blank / image.devicePixelRatio();
}

/// Paints the upper left corner of what is printed on the page, with a little of the margins. Where that is nearly
/// empty, as on round and triangular papers and on those with a high head, paints a part of the left edge or the
/// middle of the page instead.
QImage PaintCorner(const PaperHit& hit, double pixelRatio, const std::atomic<bool>& stops)
{
    constexpr int marginShown = 12;  // device-independent pixels
    Turns turns([&stops] {
        if (stops) {
            throw PageStopped();
        }
    });
    const DrawnPage page = PageOf(hit, turns);
    const double shown = shownMillimeters * pointsPerMm;
    const QPoint blank = BlankAbove(PaintPart(page, {}, pixelRatio, stops));
    const QPointF corner(std::max(blank.x() - marginShown, 0) / cornerScale,
                         std::max(blank.y() - marginShown, 0) / cornerScale);
    const QPointF edge(corner.x(), shown);
    const QPointF middle((static_cast<double>(page.frame.paperWidth) - shown) / 2.0,
                         (static_cast<double>(page.frame.paperHeight) - shown) / 2.0);
    QImage picture;
    for (const QPointF& origin : {corner, edge, middle}) {
        picture = PaintPart(page, origin, pixelRatio, stops);
        if (!IsNearlyEmpty(picture)) {
            break;
        }
    }
    return picture;
}

/// Returns a name that changes with everything that the picture depends on.
QString PictureKey(const PaperHit& hit, double pixelRatio)
{
    if (hit.preset != nullptr) {
        return QStringLiteral("%1 %2").arg(ToQt(hit.preset->id)).arg(pixelRatio);
    }
    const QFileInfo file(ToQt(hit.file.Path().string()));
    return QStringLiteral("/%1 %2 %3")
        .arg(pixelRatio)
        .arg(file.lastModified().toMSecsSinceEpoch())
        .arg(file.filePath());
}

}  // namespace

PresetPictures::PresetPictures(QObject* parent) : QObject(parent)
{
    pool.setMaxThreadCount(1);
}

PresetPictures::~PresetPictures()
{
    stops = true;
    pool.clear();
    pool.waitForDone();
}

QImage PresetPictures::PictureOf(const PaperHit& hit, double pixelRatio)
{
    const QString key = PictureKey(hit, pixelRatio);
    if (const auto found = pictures.constFind(key); found != pictures.constEnd()) {
        return *found;
    }
    pictures.insert(key, {});
    pool.start([this, hit, key, pixelRatio] {
        QImage painted;
        try {
            painted = PaintCorner(hit, pixelRatio, stops);
        } catch (const std::bad_alloc&) {  // no picture; the title remains
        }
        QMetaObject::invokeMethod(
            this,
            [this, key, painted] {
                pictures.insert(key, painted);
                emit Painted();
            },
            Qt::QueuedConnection);
    });
    return {};
}

}  // namespace linealis::desktop
