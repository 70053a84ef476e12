#include "desktop/window/PresetMenu.h"

#include "desktop/page/PagePainter.h"
#include "desktop/system/DesktopPlatform.h"
#include "desktop/system/MetricForms.h"
#include "desktop/system/Text.h"
#include "pipeline/page/PageJob.h"
#include "platform/ScreenlessPlatform.h"

#include <QIconEngine>
#include <QInputDialog>
#include <QPainter>
#include <QPixmapCache>
#include <QProxyStyle>
#include <QStyleOption>

namespace linealis::desktop {

namespace {

constexpr QSize pictureSize{48, 62};  // device-independent pixels

constexpr std::int64_t mostContentShown = std::int64_t{8} << 20U;  // bytes; drawing more would delay the menu

/// Paints the page on white paper with a thin border, scaled to fit into `size`.
QPixmap Paint(const PaperPage& page, const QSize& size, double pixelRatio)
{
    const QSizeF paper(static_cast<double>(page.frame.paperWidth), static_cast<double>(page.frame.paperHeight));
    const QSizeF shown = paper.scaled(size, Qt::KeepAspectRatio);
    QPixmap picture((shown * pixelRatio).toSize());
    picture.setDevicePixelRatio(pixelRatio);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    const double scale = shown.width() / paper.width();
    painter.save();
    painter.scale(scale, scale);
    Turns turns([] {});
    PaintPage(painter, paper, DrawBeginning(page, turns, mostContentShown).content, PagePainter::ThinLines::Faded);
    painter.restore();
    painter.setPen(QPen(Qt::gray, 0.0));
    painter.drawRect(QRectF(QPointF(0.0, 0.0), shown - QSizeF(1.0, 1.0) / pixelRatio));
    return picture;
}

/// An icon that draws the page of a preset only when the icon is painted.
class PresetIcon final : public QIconEngine {
public:
    explicit PresetIcon(const Preset& thePreset) : preset(thePreset) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        const QPixmap picture =
            PresetPicture(preset, place.size().boundedTo(pictureSize), painter->device()->devicePixelRatio());
        const QSizeF shown = picture.deviceIndependentSize();
        painter->drawPixmap(QPointF(place.center()) - QPointF(shown.width() / 2.0, shown.height() / 2.0), picture);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        return PresetPicture(preset, size.boundedTo(pictureSize), 1.0);
    }
    QIconEngine* clone() const override { return new PresetIcon(preset); }

private:
    const Preset& preset;
};

/// A menu style with icons as large as the pictures of presets.
class PictureMenuStyle final : public QProxyStyle {
public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
    {
        return metric == PM_SmallIconSize ? pictureSize.height() : QProxyStyle::pixelMetric(metric, option, widget);
    }

    /// Draws the check box of an item separately. The base style would draw it as large as the icons.
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override
    {
        const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (element != CE_MenuItem || item == nullptr || item->checkType == QStyleOptionMenuItem::NotCheckable) {
            QProxyStyle::drawControl(element, option, painter, widget);
            return;
        }
        QStyleOptionMenuItem plain(*item);
        plain.checkType = QStyleOptionMenuItem::NotCheckable;
        QProxyStyle::drawControl(element, &plain, painter, widget);
        QStyleOptionButton box;
        box.palette = item->palette;
        box.state = (item->state & State_Enabled) | (item->checked ? State_On : State_Off);
        const QRect column(item->rect.topLeft(), QSize(item->maxIconWidth, item->rect.height()));
        const QSize size(pixelMetric(PM_IndicatorWidth, &box, widget),
                         pixelMetric(PM_IndicatorHeight, &box, widget));
        box.rect =
            alignedRect(item->direction, Qt::AlignCenter, size, visualRect(item->direction, item->rect, column));
        drawPrimitive(PE_IndicatorCheckBox, &box, painter, widget);
    }
};

/// Fills a preset menu once.
class PresetMenuFiller {
public:
    PresetMenuFiller(QMenu& theMenu, const PresetMenuHost& theHost)
        : menu(theMenu), host(theHost), own(theHost.platform.PreferencesFolder())
    {}

    void Fill()
    {
        Clear();
        AddChoosing();
        AddBuiltIn();
        const std::vector<OwnPreset> saved = own.List(host.kind);
        AddOwn(saved);
        menu.addSeparator();
        AddLeft();
        AddSaving();
        AddDeleting(saved);
    }

private:
    /// Removes the old items. They are deleted later, because one of them may have caused the current event. Their
    /// names are cleared so that a search by name finds the new items.
    void Clear()
    {
        for (QAction* const old : menu.actions()) {
            menu.removeAction(old);
            QObject* const owner = old->menu() == nullptr ? static_cast<QObject*>(old) : old->menu();
            owner->setObjectName({});
            owner->deleteLater();
        }
    }

    QAction& AddLaying(const QString& title, const QString& name, const PresetMenuHost::Lay& lay)
    {
        QAction* const action = menu.addAction(MenuText(title));
        action->setObjectName(name);
        QObject::connect(action, &QAction::triggered, &menu,
                         [layOver = host.layOver, title, lay] { layOver(title, lay); });
        return *action;
    }

    PresetMenuHost::Lay LayOf(const OwnPreset& preset) const
    {
        return [preset, &platform = host.platform](PaperWindow& window) { LayOver(preset, window, platform); };
    }

    void AddChoosing()
    {
        QAction* const choose = menu.addAction(Translated("Choose a Preset..."));
        choose->setObjectName(QStringLiteral("PresetChoose"));
        QObject::connect(choose, &QAction::triggered, &menu, [ask = host.choosePreset] { ask(); });
        menu.addSeparator();
    }

    void AddBuiltIn()
    {
        Platform& platform = host.platform;
        for (const Preset* const preset : PresetsFor(PrefersMetric())) {
            if (preset->kind != host.kind.name) {
                continue;
            }
            QAction& action =
                AddLaying(Translated(preset->title), QStringLiteral("Preset.") + ToQt(preset->id),
                          [preset, &platform](PaperWindow& window) { LayOver(*preset, window, platform); });
            action.setIcon(QIcon(new PresetIcon(*preset)));  // the icon owns the engine
            action.setIconVisibleInMenu(true);
        }
    }

    void AddOwn(const std::vector<OwnPreset>& saved)
    {
        if (!saved.empty()) {
            menu.addSeparator();
        }
        for (const OwnPreset& preset : saved) {
            AddLaying(ToQt(preset.name), QStringLiteral("OwnPreset.") + ToQt(preset.name), LayOf(preset));
        }
    }

    void AddLeft()
    {
        QAction* const left = menu.addAction(Translated("As I Left It"));
        left->setObjectName(QStringLiteral("PresetLeft"));
        left->setEnabled(own.LeftFile(host.kind).Exists());
        QObject::connect(left, &QAction::triggered, &menu, [bringBack = host.bringBack] { bringBack(); });
    }

    void AddSaving()
    {
        QAction* const save = menu.addAction(Translated("Save as Preset..."));
        save->setObjectName(QStringLiteral("PresetSave"));
        QObject::connect(save, &QAction::triggered, &menu, [ask = host.saveAsPreset] { ask(); });
        QAction* const useAsDefault = menu.addAction(Translated("Use as My Default"));
        useAsDefault->setObjectName(QStringLiteral("PresetDefault"));
        useAsDefault->setCheckable(true);
        useAsDefault->setChecked(own.DefaultFile(host.kind).Exists());
        QObject::connect(useAsDefault, &QAction::triggered, &menu, [use = host.useAsDefault](bool on) { use(on); });
    }

    void AddDeleting(const std::vector<OwnPreset>& saved)
    {
        QMenu* const deleting = menu.addMenu(Translated("Delete Preset"));
        deleting->setObjectName(QStringLiteral("PresetDelete"));
        deleting->setEnabled(!saved.empty());
        for (const OwnPreset& preset : saved) {
            QAction* const action = deleting->addAction(MenuText(ToQt(preset.name)));
            QObject::connect(action, &QAction::triggered, &menu,
                             [remove = host.deletePreset, preset] { remove(preset); });
        }
    }

    QMenu& menu;
    const PresetMenuHost& host;
    OwnPresets own;
};

/// Asks for a name and proposes `earlier`. Returns nothing if the user cancels.
std::optional<std::string> AskForName(QWidget& parent, DesktopPlatform& platform, const QString& earlier)
{
    QInputDialog dialog(&parent);
    dialog.setWindowTitle(Translated("Save as Preset"));
    dialog.setLabelText(Translated("Name of the preset:"));
    dialog.setTextValue(earlier);
    return platform.RunModal(dialog) == QDialog::Accepted ? std::optional(dialog.textValue().toStdString())
                                                          : std::nullopt;
}

/// Returns true if the file does not exist, or if the user agrees to replace it.
bool MayReplace(Platform& platform, const FolderItem& file, const std::string& name)
{
    if (!file.Exists()) {
        return true;
    }
    MessageDialog dialog;
    dialog.message = Message("There is a preset “%1” already. Replace it?", name);
    dialog.actionButton = Message("Replace");
    dialog.cancelButton = Message("Cancel");
    return platform.ShowModal(dialog) == MessageDialog::Button::Action;
}

}  // namespace

QPixmap PresetPicture(const Preset& preset, const QSize& size, double pixelRatio)
{
    const QString key = QStringLiteral("preset %1 %2 %3 %4")
                            .arg(ToQt(preset.id))
                            .arg(size.width())
                            .arg(size.height())
                            .arg(pixelRatio);
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        ScreenlessPlatform platform;
        picture = Paint(MakeWindow(preset, platform)->ReadPage(), size, pixelRatio);
        QPixmapCache::insert(key, picture);
    }
    return picture;
}

void FillPresetMenu(QMenu& menu, const PresetMenuHost& host)
{
    auto* const style = new PictureMenuStyle;
    style->setParent(&menu);
    menu.setStyle(style);
    const auto fill = [&menu, host] { PresetMenuFiller(menu, host).Fill(); };
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, fill);
    fill();
}

std::optional<std::string> SaveAsPreset(QWidget& parent, DesktopPlatform& platform, const PaperKind& kind,
                                        const PaperWindow& window)
{
    const OwnPresets own(platform.PreferencesFolder());
    std::string entered;
    while (const auto name = AskForName(parent, platform, ToQt(entered))) {
        entered = *name;
        if (const Message problem = OwnPresets::NameProblem(entered); !problem.IsEmpty()) {
            platform.MsgBox(problem);
            continue;
        }
        const FolderItem file = own.File(entered, kind);
        if (!MayReplace(platform, file, entered)) {
            continue;
        }
        if (const std::error_code error = own.Save(entered, kind, window)) {
            platform.ShowFileError(file, Message("The preset could not be saved."),
                                   Message::Verbatim(error.message()));
            continue;
        }
        return entered;
    }
    return std::nullopt;
}

bool UseAsDefault(Platform& platform, const PaperKind& kind, const PaperWindow& window, bool on)
{
    const OwnPresets own(platform.PreferencesFolder());
    if (const std::error_code error = on ? own.SaveDefault(kind, window) : own.ForgetDefault(kind)) {
        platform.ShowFileError(own.DefaultFile(kind),
                               on ? Message("The default could not be saved.")
                                  : Message("The default could not be forgotten."),
                               Message::Verbatim(error.message()));
        return false;
    }
    return true;
}

bool DeletePreset(Platform& platform, const OwnPreset& preset)
{
    MessageDialog dialog;
    dialog.message = Message("Delete the preset “%1”?", preset.name);
    dialog.actionButton = Message("Delete");
    dialog.cancelButton = Message("Cancel");
    if (platform.ShowModal(dialog) != MessageDialog::Button::Action) {
        return false;
    }
    if (const std::error_code error = OwnPresets::Delete(preset)) {
        platform.ShowFileError(preset.file, Message("The preset could not be deleted."),
                               Message::Verbatim(error.message()));
        return false;
    }
    return true;
}

}  // namespace linealis::desktop
