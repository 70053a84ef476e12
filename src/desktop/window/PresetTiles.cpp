#include "desktop/window/PresetTiles.h"

#include "desktop/system/Text.h"
#include "desktop/window/GallerySearch.h"
#include "desktop/window/PresetPictures.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>
#include <climits>
#include <cstdlib>
#include <functional>
#include <utility>

namespace linealis::desktop {

namespace {

constexpr int tileGap = 8;       // device-independent pixels, around and between the parts of a tile
constexpr int linesOfTitle = 2;  // of a tile
constexpr int mostInLine = 26;   // of a title, in average characters; a longer line is shortened

enum ItemRole { PresetRole = Qt::UserRole, GroupRole };  // the index of the preset; the group of every item

QFont HeadingFont(const QFont& font)
{
    QFont heading = font;
    heading.setBold(true);
    return heading;
}

/// Breaks a title that is too wide into two lines: after a comma if both lines fit, otherwise where they are about
/// as wide as each other.
QStringList BrokenTitle(const QString& title, const QFontMetrics& font, int width)
{
    QStringList lines{title};
    if (font.horizontalAdvance(title) > width) {
        std::pair best(true, INT_MAX);  // whether it is no comma where both fit, and the width of the wider line
        for (qsizetype blank = title.indexOf(QLatin1Char(' ')); blank > 0;
             blank = title.indexOf(QLatin1Char(' '), blank + 1)) {
            const QStringList halves{title.left(blank), title.mid(blank + 1)};
            const int wider = std::max(font.horizontalAdvance(halves[0]), font.horizontalAdvance(halves[1]));
            const std::pair found(wider > width || !halves[0].endsWith(QLatin1Char(',')), wider);
            if (found < best) {
                best = found;
                lines = halves;
            }
        }
    }
    return lines;
}

/// Returns the least width at which the title fits into two lines.
int LeastWidth(const QString& title, const QFontMetrics& font)
{
    int width = 0;
    for (const QString& line : BrokenTitle(title, font, 0)) {
        width = std::max(width, font.horizontalAdvance(line));
    }
    return width;
}

/// Draws headings and tiles.
class TileDelegate final : public QStyledItemDelegate {
public:
    using PictureFor = std::function<QImage(const QModelIndex& index)>;

    TileDelegate(PictureFor thePictureFor, QObject* parent)
        : QStyledItemDelegate(parent), pictureFor(std::move(thePictureFor))
    {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        painter->save();
        if (index.data(PresetRole).isNull()) {
            PaintHeading(*painter, option, index.data().toString());
        } else {
            PaintTile(*painter, option, index);
        }
        painter->restore();
    }

private:
    static void PaintHeading(QPainter& painter, const QStyleOptionViewItem& option, const QString& text)
    {
        painter.setFont(HeadingFont(option.font));
        painter.setPen(option.palette.color(QPalette::Active, QPalette::Text));
        painter.drawText(option.rect.adjusted(tileGap, 0, 0, -tileGap / 2), Qt::AlignLeft | Qt::AlignBottom, text);
    }

    void PaintTile(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
    {
        const bool isSelected = option.state & QStyle::State_Selected;
        PaintGround(painter, option, isSelected);
        const int left = option.rect.left() + (option.rect.width() - PresetPictures::side) / 2;
        const QRect place(left, option.rect.top() + tileGap, PresetPictures::side, PresetPictures::side);
        painter.fillRect(place, Qt::white);
        painter.drawImage(place, pictureFor(index));
        painter.setPen(QColor(0, 0, 0, 90));  // a frame for white paper on a white ground
        painter.drawRect(QRectF(place).adjusted(-0.5, -0.5, 0.5, 0.5));
        painter.setPen(option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
        QRect line(option.rect.left() + tileGap / 2, place.bottom() + 1 + tileGap / 2,
                   option.rect.width() - tileGap, option.fontMetrics.lineSpacing());
        for (const QString& text : BrokenTitle(index.data().toString(), option.fontMetrics, line.width())) {
            painter.drawText(line, Qt::AlignHCenter | Qt::AlignVCenter,
                             option.fontMetrics.elidedText(text, Qt::ElideMiddle, line.width()));
            line.translate(0, line.height());
        }
    }

    /// Shows whether the tile is selected or below the pointer.
    static void PaintGround(QPainter& painter, const QStyleOptionViewItem& option, bool isSelected)
    {
        constexpr double radius = 4.0;
        constexpr int hoverStrength = 40;  // of 255
        if (!isSelected && !(option.state & QStyle::State_MouseOver)) {
            return;
        }
        QColor ground = option.palette.color(QPalette::Highlight);
        ground.setAlpha(isSelected ? ground.alpha() : hoverStrength);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground);
        painter.drawRoundedRect(QRectF(option.rect).adjusted(1.0, 1.0, -1.0, -1.0), radius, radius);
        painter.setBrush(Qt::NoBrush);
    }

    PictureFor pictureFor;
};

}  // namespace

PresetTiles::PresetTiles(PresetPictures& thePictures, QWidget* parent) : QListWidget(parent), pictures(thePictures)
{
    setObjectName(QStringLiteral("PresetPickerList"));
    setAccessibleName(tr("Presets"));
    setViewMode(QListView::IconMode);
    setMovement(QListView::Static);
    setResizeMode(QListView::Adjust);
    setSelectionRectVisible(false);
    viewport()->setAttribute(Qt::WA_Hover);  // for the tile below the pointer
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollBarPolicy(
        Qt::ScrollBarAlwaysOn);  // the width of headings must not change while they are placed
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalScrollBar()->setSingleStep(TileSize().height() / 4);
    const auto pictureFor = [this](const QModelIndex& index) {
        const PaperHit* const preset = PresetIn(index.row());
        return preset == nullptr ? QImage() : pictures.PictureOf(*preset, devicePixelRatioF());
    };
    setItemDelegate(new TileDelegate(pictureFor, this));
    connect(&pictures, &PresetPictures::Painted, viewport(), qOverload<>(&QWidget::update));
    connect(this, &QListWidget::itemClicked, this, &PresetTiles::Choose);
}

void PresetTiles::Show(std::vector<PaperHit> thePresets)
{
    clear();
    presets = std::move(thePresets);
    for (std::size_t i = 0; i < presets.size(); ++i) {
        if (i == 0 || GroupOf(presets[i]) != GroupOf(presets[i - 1])) {
            AddHeading(GroupOf(presets[i]));
        }
        AddTile(i);
    }
    if (presets.empty()) {
        (new QListWidgetItem(tr("Nothing found"), this))->setFlags(Qt::NoItemFlags);
    }
    MeasureTitles();
    SetSizes();
    setCurrentRow(presets.empty() ? -1 : 1);
    scrollToTop();
}

void PresetTiles::AddHeading(PresetGroup group)
{
    auto* const heading = new QListWidgetItem(Translated(TitleOf(group)), this);
    heading->setFlags(Qt::NoItemFlags);
    heading->setData(GroupRole, static_cast<int>(group));
}

void PresetTiles::AddTile(std::size_t preset)
{
    const PaperHit& hit = presets[preset];
    auto* const tile = new QListWidgetItem(Translated(hit.title).simplified(), this);
    tile->setData(PresetRole, static_cast<int>(preset));
    tile->setData(GroupRole, static_cast<int>(GroupOf(hit)));
    tile->setData(Qt::AccessibleTextRole, LineOf(hit));
    tile->setToolTip(LineOf(hit));
}

void PresetTiles::MeasureTitles()
{
    for (int row = 0; row < count(); ++row) {
        if (PresetIn(row) != nullptr) {
            titleWidth = std::max(titleWidth, LeastWidth(item(row)->text(), fontMetrics()));
        }
    }
    titleWidth = std::min(titleWidth, mostInLine * fontMetrics().averageCharWidth());
}

QSize PresetTiles::TileSize() const
{
    return {std::max(PresetPictures::side, titleWidth) + 2 * tileGap,
            PresetPictures::side + 2 * tileGap + linesOfTitle * fontMetrics().lineSpacing()};
}

void PresetTiles::SetSizes()
{
    const QSize ofTile = TileSize();
    const QFontMetrics headingFont(HeadingFont(font()));
    const QSize ofHeading(viewport()->width() - 1, headingFont.lineSpacing() + 2 * tileGap);
    for (int row = 0; row < count(); ++row) {
        item(row)->setSizeHint(PresetIn(row) == nullptr ? ofHeading : ofTile);
    }
}

QSize PresetTiles::SizeFor(int columns, int rows) const
{
    const QSize tile = TileSize();
    return {columns * tile.width() + verticalScrollBar()->sizeHint().width() + 2 * frameWidth() + 1,
            rows * tile.height() + 2 * frameWidth()};
}

const PaperHit* PresetTiles::PresetIn(int row) const
{
    const QListWidgetItem* const tile = item(row);
    const QVariant preset = tile == nullptr ? QVariant() : tile->data(PresetRole);
    return preset.isNull() ? nullptr : &presets[static_cast<std::size_t>(preset.toInt())];
}

std::vector<PresetGroup> PresetTiles::Groups() const
{
    std::vector<PresetGroup> groups;
    for (const PaperHit& preset : presets) {
        if (groups.empty() || groups.back() != GroupOf(preset)) {
            groups.push_back(GroupOf(preset));
        }
    }
    return groups;
}

void PresetTiles::GoTo(PresetGroup group)
{
    for (int row = 1; row < count(); ++row) {
        if (PresetIn(row) != nullptr && GroupOf(*PresetIn(row)) == group) {
            setCurrentRow(row);
            scrollToItem(item(row - 1), QAbstractItemView::PositionAtTop);
            return;
        }
    }
}

void PresetTiles::GoTo(const PaperKind& kind)
{
    for (int row = 0; row < count(); ++row) {
        if (PresetIn(row) != nullptr && PresetIn(row)->kind == &kind) {
            GoTo(GroupOf(*PresetIn(row)));
            setCurrentRow(row);  // scrolls only if the tile is not visible
            return;
        }
    }
}

PresetGroup PresetTiles::VisibleGroup() const
{
    if (const PaperHit* const selected = PresetIn(currentRow());
        selected != nullptr && viewport()->rect().intersects(visualItemRect(currentItem()))) {
        return GroupOf(*selected);
    }
    PresetGroup group = GroupOf(presets.front());
    for (int row = 0; row < count() && visualItemRect(item(row)).top() <= tileGap; ++row) {
        group = static_cast<PresetGroup>(item(row)->data(GroupRole).toInt());
    }
    return group;
}

void PresetTiles::Choose()
{
    if (const PaperHit* const preset = PresetIn(currentRow())) {
        emit Chosen(*preset);
    }
}

int PresetTiles::TileBeside(int step) const
{
    for (int row = currentRow() + step; row >= 0 && row < count(); row += step) {
        if (PresetIn(row) != nullptr) {
            return row;
        }
    }
    return currentRow();
}

int PresetTiles::TileAcross(bool isDown) const
{
    const QPoint from = visualItemRect(currentItem()).topLeft();
    int found = currentRow();
    std::pair<int, int> least;  // the vertical distance comes first, so the result is in the adjacent line
    for (int row = 0; row < count(); ++row) {
        const QPoint to = visualItemRect(item(row)).topLeft();
        const bool isThere = isDown ? to.y() > from.y() : to.y() < from.y();
        const std::pair distance(std::abs(to.y() - from.y()), std::abs(to.x() - from.x()));
        if (PresetIn(row) != nullptr && isThere && (found == currentRow() || distance < least)) {
            found = row;
            least = distance;
        }
    }
    return found;
}

QModelIndex PresetTiles::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    if (PresetIn(currentRow()) == nullptr) {
        return {};
    }
    switch (action) {
    case MoveLeft:
        return model()->index(TileBeside(-1), 0);
    case MoveRight:
        return model()->index(TileBeside(1), 0);
    case MoveUp:
    case MoveDown:
        return model()->index(TileAcross(action == MoveDown), 0);
    case MoveHome:
        return model()->index(1, 0);  // below the first heading
    case MoveEnd:
        return model()->index(count() - 1, 0);
    default:
        return QListWidget::moveCursor(action, modifiers);
    }
}

void PresetTiles::keyPressEvent(QKeyEvent* event)
{
    constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString text = event->text();
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Choose();
    } else if (!(event->modifiers() & commands) && !text.isEmpty() && text.front().isLetterOrNumber()) {
        emit Typed(text);
    } else {
        QListWidget::keyPressEvent(event);
    }
}

void PresetTiles::resizeEvent(QResizeEvent* event)
{
    SetSizes();
    QListWidget::resizeEvent(event);
}

void PresetTiles::changeEvent(QEvent* event)
{
    QListWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        titleWidth = 0;
        MeasureTitles();
        SetSizes();
    }
}

}  // namespace linealis::desktop
