#include "desktop/form/ControlWidgets.h"

#include "desktop/form/ColorSwatch.h"
#include "desktop/form/ElidedLabel.h"
#include "desktop/form/FieldEdit.h"
#include "desktop/system/Text.h"
#include "pipeline/form/FieldWords.h"
#include "pipeline/form/FormLayout.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QWheelEvent>
#include <algorithm>
#include <array>

namespace linealis::desktop {

namespace {

/// Returns the color in words: "#0000FF (blue)", with the nearest of a few named colors.
QString ColorWords(const QColor& color)
{
    static const std::array<const char*, 16> names = {"black", "white",  "gray", "silver", "red",    "maroon",
                                                      "green", "lime",   "blue", "navy",   "yellow", "orange",
                                                      "brown", "purple", "pink", "teal"};
    const auto distance = [&](const char* name) {
        const QColor other(QString::fromLatin1(name));
        const int red = other.red() - color.red(), green = other.green() - color.green(),
                  blue = other.blue() - color.blue();
        return red * red + green * green + blue * blue;
    };
    const char* const nearest = *std::min_element(
        names.begin(), names.end(), [&](const char* a, const char* b) { return distance(a) < distance(b); });
    return QStringLiteral("%1 (%2)").arg(color.name().toUpper(), QString::fromLatin1(nearest));
}

/// A popup that reacts to the wheel only while it has the focus. Otherwise the wheel scrolls the form, so that
/// users do not change a popup by accident.
class PopupBox final : public QComboBox {
public:
    PopupBox() { setFocusPolicy(Qt::StrongFocus); }

protected:
    void wheelEvent(QWheelEvent* event) override { hasFocus() ? QComboBox::wheelEvent(event) : event->ignore(); }
};

/// Makes the widget and its refresh function for each type of control. All lambdas hold references to the control,
/// which outlives its widget.
struct WidgetMaker {
    const Form& form;
    const ControlEvents& events;

    ControlWidget operator()(TextField& field) const;
    ControlWidget operator()(Popup& popup) const;
    ControlWidget operator()(RadioGroup& group) const;
    ControlWidget operator()(CheckBox& box) const;
    ControlWidget operator()(Swatch& swatch) const;
    ControlWidget operator()(Label& label) const;
};

ControlWidget WidgetMaker::operator()(TextField& field) const
{
    auto* const edit = new FieldEdit(field, form);
    QObject::connect(edit, &FieldEdit::Committed, edit,
                     [&field, committed = events.onCommitted] { committed(field); });
    return {edit, [edit] { edit->Refresh(); }};
}

ControlWidget WidgetMaker::operator()(Popup& popup) const
{
    auto* const box = new PopupBox;
    for (const std::string_view item : popup.Items()) {
        box->addItem(Translated(item));
    }
    QObject::connect(box, &QComboBox::currentIndexChanged, box,
                     [&popup, committed = events.onCommitted](int index) {
                         if (index != popup.ListIndex()) {
                             popup.SetListIndex(index);
                             committed(popup);
                         }
                     });
    // On Unix, the accessible name of a popup is the item that it shows, so the description gets the control's
    // name.
    box->setAccessibleDescription(ToQt(WholeName(form, popup)));
    return {box, [box, &popup] { box->setCurrentIndex(popup.ListIndex()); }};
}

ControlWidget WidgetMaker::operator()(RadioGroup& group) const
{
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* const buttons = new QButtonGroup(row);
    for (std::size_t i = 0; i < group.Items().size(); ++i) {
        auto* const button = new QRadioButton(Translated(group.Items()[i]));
        button->setObjectName(ToQt(group.Name()) + QString::number(i));
        layout->addWidget(button);
        buttons->addButton(button, static_cast<int>(i));
    }
    QObject::connect(buttons, &QButtonGroup::idToggled, row,
                     [&group, committed = events.onCommitted](int index, bool on) {
                         if (on && index != group.ListIndex()) {
                             group.SetListIndex(index);
                             committed(group);
                         }
                     });
    return {row, [buttons, &group] { buttons->button(group.ListIndex())->setChecked(true); }};
}

ControlWidget WidgetMaker::operator()(CheckBox& box) const
{
    auto* const check = new QCheckBox(CaptionText(box));
    QObject::connect(check, &QCheckBox::toggled, check, [&box, committed = events.onCommitted](bool on) {
        if (on != box.Value()) {
            box.Click(on);
            committed(box);
        }
    });
    return {check, [check, &box] { check->setChecked(box.Value()); }};
}

ControlWidget WidgetMaker::operator()(Swatch& swatch) const
{
    auto* const canvas = new ColorSwatch;
    QObject::connect(canvas, &ColorSwatch::clicked, canvas, [&swatch, events = events] {
        events.onSwatch(swatch);
        events.onCommitted(swatch);
    });
    return {canvas, [canvas, &swatch] {
                canvas->SetColor(swatch.Shown());
                const QColor color(swatch.Shown().red, swatch.Shown().green, swatch.Shown().blue);
                const QString said = ColorWords(color);
                canvas->setAccessibleDescription(said);
                canvas->setToolTip(Translated("%1. Click to choose another color").arg(said));
            }};
}

ControlWidget WidgetMaker::operator()(Label& label) const
{
    QLabel* const text = label.InGroup() == Group::File ? new ElidedLabel(Qt::ElideMiddle) : new QLabel;
    text->setTextFormat(Qt::PlainText);
    return {text, [text, &label] { text->setText(CaptionText(label)); }};
}

}  // namespace

ControlWidget MakeControlWidget(const Form& form, Control& control, const ControlEvents& events)
{
    ControlWidget made = Visit(control, WidgetMaker{form, events});
    made.widget->setObjectName(ToQt(control.Name()));
    if (control.Kind() != ControlKind::Label) {
        made.widget->setAccessibleName(ToQt(WholeName(form, control)));
    }
    return made;
}

QString CaptionText(const Control& control)
{
    return ToQt(CaptionOf(control));
}

}  // namespace linealis::desktop
