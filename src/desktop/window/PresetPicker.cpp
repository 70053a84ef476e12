#include "desktop/window/PresetPicker.h"

#include "desktop/system/MetricForms.h"
#include "desktop/system/Text.h"
#include "desktop/window/GallerySearch.h"
#include "desktop/window/PresetTiles.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

namespace linealis::desktop {

PresetPicker::PresetPicker(PresetPictures& pictures, FolderItem thePreferencesFolder, const PaperKind* kind,
                           QWidget* parent)
    : QDialog(parent), preferencesFolder(std::move(thePreferencesFolder)), tiles(new PresetTiles(pictures))
{
    setObjectName(QStringLiteral("PresetPicker"));
    setWindowTitle(tr("Choose a Preset"));
    LayOut();
    connect(field, &QLineEdit::textChanged, this, &PresetPicker::Search);
    connect(field, &QLineEdit::returnPressed, tiles, &PresetTiles::Choose);
    connect(groups, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0) {
            tiles->GoTo(tiles->Groups()[static_cast<std::size_t>(row)]);
        }
    });
    connect(tiles->verticalScrollBar(), &QScrollBar::valueChanged, this, &PresetPicker::FollowTiles);
    connect(tiles, &QListWidget::currentRowChanged, this, &PresetPicker::FollowTiles);
    connect(tiles, &PresetTiles::Typed, this, &PresetPicker::Type);
    connect(tiles, &PresetTiles::Chosen, this, [this](const PaperHit& preset) {
        chosen = preset;
        accept();
    });
    Search();
    SetSize();
    if (kind != nullptr) {
        tiles->GoTo(*kind);
    }
    tiles->setFocus();
}

void PresetPicker::LayOut()
{
    constexpr int space = 8;          // pixels
    constexpr int weakStrength = 70;  // of 255
    field = new QLineEdit;
    field->setObjectName(QStringLiteral("PresetPickerField"));
    field->setPlaceholderText(tr("Search presets"));
    field->setAccessibleName(tr("Search presets"));
    field->setClearButtonEnabled(true);
    MakeHintReadable(*field, palette());
    field->installEventFilter(this);
    groups = new QListWidget;
    groups->setObjectName(QStringLiteral("PresetPickerGroups"));
    groups->setAccessibleName(tr("Groups of presets"));
    groups->setFrameShape(QFrame::NoFrame);
    groups->viewport()->setAutoFillBackground(false);
    groups->setSpacing(space / 4);
    // Weaker than the selection of the tiles, where Return has its effect.
    QPalette weak = groups->palette();
    QColor ground = weak.color(QPalette::Highlight);
    ground.setAlpha(weakStrength);
    weak.setColor(QPalette::Highlight, ground);
    weak.setColor(QPalette::HighlightedText, weak.color(QPalette::WindowText));
    weak.setColor(QPalette::Text, weak.color(QPalette::WindowText));
    groups->setPalette(weak);
    groups->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    groups->installEventFilter(this);
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(space, space, space, space);
    grid->setSpacing(space);
    grid->addWidget(field, 0, 0, 1, 2);
    grid->addWidget(groups, 1, 0);
    grid->addWidget(tiles, 1, 1);
    grid->setColumnStretch(1, 1);
}

void PresetPicker::SetSize()
{
    constexpr int columns = 5, rows = 3;
    constexpr int titleBar = 40, border = 8;  // the approximate size of window decorations
    ensurePolished();
    const QMargins margins = layout()->contentsMargins();
    groups->setFixedWidth(groups->sizeHintForColumn(0) + 2 * (groups->spacing() + margins.left()));
    const QSize room = screen()->availableSize();
    const QSize most(room.width() - border, room.height() * 2 / 3 - titleBar);
    const QSize list = tiles->SizeFor(columns, rows);
    const QSize around(groups->width() + margins.left() + margins.right() + layout()->spacing(),
                       field->sizeHint().height() + margins.top() + margins.bottom() + layout()->spacing());
    resize((list + around).boundedTo(most));
}

void PresetPicker::Type(const QString& text)
{
    field->setFocus(Qt::ShortcutFocusReason);
    field->setText(field->text() + text);
}

void PresetPicker::Search()
{
    tiles->Show(FindPresets(field->text().toStdString(), preferencesFolder, PrefersMetric(), LanguageOfWindows()));
    const QSignalBlocker quiet(groups);
    groups->clear();
    for (const PresetGroup group : tiles->Groups()) {
        groups->addItem(Translated(TitleOf(group)));
    }
    groups->setCurrentRow(0);
}

void PresetPicker::FollowTiles()
{
    if (const std::vector<PresetGroup> shown = tiles->Groups(); !shown.empty()) {
        const QSignalBlocker quiet(groups);
        const auto row = std::find(shown.begin(), shown.end(), tiles->VisibleGroup()) - shown.begin();
        groups->setCurrentRow(static_cast<int>(row));
    }
}

/// Handles the keys that lead from the field and the groups to the tiles. Letters typed in the groups search.
bool PresetPicker::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
        if ((watched == field && key == Qt::Key_Down) || (watched == groups && isReturn)) {
            tiles->setFocus(Qt::TabFocusReason);
            return true;
        }
        const QString text = static_cast<QKeyEvent*>(event)->text();
        if (watched == groups && !text.isEmpty() && text.front().isLetterOrNumber()) {
            Type(text);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

/// Escape first clears the search.
void PresetPicker::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && !field->text().isEmpty()) {
        field->clear();
        tiles->setFocus();
    } else {
        QDialog::keyPressEvent(event);
    }
}

}  // namespace linealis::desktop
