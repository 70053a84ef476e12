#include "desktop/window/GallerySearch.h"

#include "desktop/system/MetricForms.h"
#include "desktop/system/Text.h"
#include "desktop/window/GalleryPicture.h"
#include "desktop/window/MetricFormsBox.h"
#include "desktop/window/PresetMenu.h"
#include "desktop/window/RecentMenu.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <algorithm>
#include <utility>

namespace linealis::desktop {

namespace {

constexpr QSize hitPictureSize{28, 36};  // device-independent pixels
constexpr int gap = 8;

QPixmap PictureOf(const PaperHit& hit, double pixelRatio)
{
    return hit.preset != nullptr ? PresetPicture(*hit.preset, hitPictureSize, pixelRatio)
                                 : GalleryPicture(hit.kind->picture, hitPictureSize, pixelRatio);
}

/// Returns an icon with the picture centered in an area that is the same for all hits. It looks the same if
/// selected.
QIcon IconOf(const QPixmap& picture, double pixelRatio)
{
    QPixmap place(hitPictureSize * pixelRatio);
    place.setDevicePixelRatio(pixelRatio);
    place.fill(Qt::transparent);
    if (!picture.isNull()) {
        const QSizeF free = hitPictureSize - picture.deviceIndependentSize();
        QPainter(&place).drawPixmap(QPointF(free.width() / 2.0, free.height() / 2.0), picture);
    }
    QIcon icon(place);
    icon.addPixmap(place, QIcon::Selected);
    return icon;
}

}  // namespace

void MakeHintReadable(QLineEdit& field, const QPalette& palette)
{
    constexpr int strength = 180;  // of 255
    QPalette changed;
    QColor color = palette.color(QPalette::Text);
    color.setAlpha(strength);
    changed.setColor(QPalette::PlaceholderText, color);
    field.setPalette(changed);
}

QString LineOf(const PaperHit& hit)
{
    QString title = Translated(hit.title).simplified();
    const QString kind = Translated(hit.kind->galleryTitle);
    switch (hit.sort) {
    case PaperHit::Sort::Preset:
        return GallerySearch::tr("%1 - %2").arg(title, kind);
    case PaperHit::Sort::OwnPreset:
        return GallerySearch::tr("%1 - your preset, %2").arg(title, kind);
    case PaperHit::Sort::RecentFile:
        return GallerySearch::tr("%1 - in %2").arg(title, ShortFolder(hit.file));
    case PaperHit::Sort::Kind:
        break;
    }
    return title;
}

GallerySearch::GallerySearch(FolderItem thePreferencesFolder, QWidget* parent)
    : QWidget(parent), preferencesFolder(std::move(thePreferencesFolder))
{
    setObjectName(QStringLiteral("GallerySearch"));
    LayOut();
    SetColors();
    pictureTimer.setSingleShot(true);
    connect(&pictureTimer, &QTimer::timeout, this, &GallerySearch::MakeNextPicture);
    connect(field, &QLineEdit::textChanged, this, [this] {
        list->clear();  // so that Refresh selects the first hit
        Refresh();
    });
    connect(field, &QLineEdit::returnPressed, this, [this] { Choose(list->currentRow()); });
    connect(list, &QListWidget::itemClicked, this, [this] { Choose(list->currentRow()); });
    connect(open, &QPushButton::clicked, this, &GallerySearch::OpenWanted);
    connect(choose, &QPushButton::clicked, this, &GallerySearch::PickerWanted);
}

void GallerySearch::LayOut()
{
    field = new QLineEdit;
    field->setObjectName(QStringLiteral("GallerySearchField"));
    field->setPlaceholderText(tr("Search papers, presets, files"));
    field->setAccessibleName(tr("Search papers, presets, files"));
    field->setToolTip(tr("Return opens what is selected in the list below"));
    field->setClearButtonEnabled(true);
    field->setAcceptDrops(false);  // the window handles dropped files
    field->installEventFilter(this);
    list = new QListWidget;
    list->setObjectName(QStringLiteral("GalleryResults"));
    list->setAccessibleName(tr("What was found"));
    list->setIconSize(hitPictureSize);
    list->setUniformItemSizes(true);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->installEventFilter(this);
    open = new QPushButton(tr("Open Settings..."));
    open->setObjectName(QStringLiteral("GalleryOpenSettings"));
    open->setToolTip(tr("Open settings files of any kind of paper"));
    choose = new QPushButton(tr("Choose a Preset..."));
    choose->setObjectName(QStringLiteral("GalleryChoosePreset"));
    choose->setToolTip(tr("Choose a preset from pictures"));
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(gap);
    grid->addWidget(field, 0, 0);
    grid->addWidget(choose, 0, 1);
    if (TakeMetricOffer()) {
        metric = MakeMetricFormsBox();
        connect(metric, &QCheckBox::toggled, this, &UseMetricForms);
        grid->addWidget(metric, 1, 0, 1, 2);
    }
    grid->addWidget(list, 2, 0, 3, 1);
    grid->addWidget(open, 2, 1);
    grid->setRowStretch(3, 1);
    grid->setColumnStretch(0, 1);
}

void GallerySearch::LeaveFree(const QSize& size)
{
    auto* const grid = static_cast<QGridLayout*>(layout());
    grid->setRowMinimumHeight(4, size.height());
    grid->setColumnMinimumWidth(1, size.width());
}

void GallerySearch::SetColors()
{
    settingColors = true;
    MakeHintReadable(*field, palette());
    settingColors = false;
}

std::vector<QWidget*> GallerySearch::TabStops() const
{
    std::vector<QWidget*> stops = {field, list, open, choose};
    if (metric != nullptr) {
        stops.push_back(metric);
    }
    return stops;
}

void GallerySearch::Type(const QString& text)
{
    field->setFocus(Qt::ShortcutFocusReason);
    field->setText(field->text() + text);
}

void GallerySearch::Refresh()
{
    const int selected = list->currentRow();
    const QString line = selected < 0 ? QString() : list->item(selected)->text();
    hits = FindPapers(field->text().toStdString(), preferencesFolder, PrefersMetric(), LanguageOfWindows());
    list->clear();
    const QIcon noPicture = IconOf({}, 1.0);
    for (const PaperHit& hit : hits) {
        auto* const item = new QListWidgetItem(noPicture, LineOf(hit), list);
        item->setToolTip(hit.file.IsEmpty() ? item->text() : ToQt(hit.file.Path().string()));
    }
    if (hits.empty()) {
        (new QListWidgetItem(noPicture, tr("Nothing found"), list))->setFlags(Qt::NoItemFlags);
    }
    const QList<QListWidgetItem*> same = list->findItems(line, Qt::MatchExactly);
    const int first = field->text().isEmpty() ? -1 : 0;  // Return must not open a suggestion that nobody chose
    list->setCurrentRow(same.isEmpty() ? first : list->row(same.first()));
    nextPicture = 0;
    pictureTimer.start(0);
}

void GallerySearch::MakeNextPicture()
{
    if (static_cast<std::size_t>(nextPicture) < hits.size()) {
        const double ratio = devicePixelRatioF();
        const PaperHit& hit = hits[static_cast<std::size_t>(nextPicture)];
        list->item(nextPicture)->setIcon(IconOf(PictureOf(hit, ratio), ratio));
        ++nextPicture;
        pictureTimer.start(0);
    }
}

void GallerySearch::Choose(int row)
{
    if (row >= 0 && static_cast<std::size_t>(row) < hits.size()) {
        const PaperHit hit = hits[static_cast<std::size_t>(row)];  // a copy: receivers may cause a Refresh
        emit Chosen(hit);
    }
}

bool GallerySearch::FieldKey(int key)
{
    if (key == Qt::Key_Down) {
        if (list->count() == 0) {
            Refresh();  // the widget has not been painted yet
        }
        list->setCurrentRow(std::min(list->currentRow() + 1, list->count() - 1));
        list->setFocus(Qt::TabFocusReason);
        return true;
    }
    if (key == Qt::Key_Escape) {
        field->clear();
        return true;
    }
    return false;
}

bool GallerySearch::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) {
        return QWidget::eventFilter(watched, event);
    }
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (watched == field) {
        return FieldKey(key);
    }
    if (key == Qt::Key_Up && list->currentRow() <= 0) {
        field->setFocus(Qt::BacktabFocusReason);
        return true;
    }
    if (key == Qt::Key_Escape) {
        field->clear();
        field->setFocus(Qt::OtherFocusReason);
        return true;
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        Choose(list->currentRow());
        return true;
    }
    return false;
}

void GallerySearch::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange && !settingColors && field != nullptr) {
        SetColors();
    }
    QWidget::changeEvent(event);
}

bool GallerySearch::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate && isPainted) {
        Refresh();
        if (metric != nullptr) {
            metric->setChecked(UsesMetricForms());  // the preferences dialog may have changed it
        }
    }
    return QWidget::event(event);
}

void GallerySearch::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    if (!isPainted) {
        isPainted = true;
        QTimer::singleShot(0, this, &GallerySearch::Refresh);
    }
}

}  // namespace linealis::desktop
