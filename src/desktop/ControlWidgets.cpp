#include "desktop/ControlWidgets.h"

#include "desktop/ColorSwatch.h"
#include "desktop/ElidedLabel.h"
#include "desktop/Text.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QWheelEvent>

namespace linealis::desktop {

namespace {

constexpr int numberFieldCharacters = 9;
constexpr int proseFieldCharacters = 26;

/// A popup that lets the wheel scroll the form, unless it has the focus: nobody changes it in passing.
class PopupBox final : public QComboBox {
public:
    PopupBox() { setFocusPolicy(Qt::StrongFocus); }

protected:
    void wheelEvent(QWheelEvent* event) override { hasFocus() ? QComboBox::wheelEvent(event) : event->ignore(); }
};

/// One for each type of control.
struct WidgetMaker {
    const std::function<void(Swatch& swatch)>& onSwatch;

    ControlWidget operator()(TextField& field) const;
    ControlWidget operator()(Popup& popup) const;
    ControlWidget operator()(RadioGroup& group) const;
    ControlWidget operator()(CheckBox& box) const;
    ControlWidget operator()(Swatch& swatch) const;
    ControlWidget operator()(Label& label) const;
};

ControlWidget WidgetMaker::operator()(TextField& field) const
{
    auto* const edit = new QLineEdit;
    const bool isProse = field.MeansNow() == Meaning::Prose;
    const int characters = isProse ? proseFieldCharacters : numberFieldCharacters;
    edit->setFixedWidth(edit->fontMetrics().averageCharWidth() * characters + 12);
    QObject::connect(edit, &QLineEdit::textEdited, edit,
                     [&field](const QString& text) { field.Type(text.toStdString()); });
    return {edit, [edit, &field] {
                edit->setToolTip(ToQt(HintFor(field.MeansNow())));
                if (const QString text = ToQt(field.Text()); edit->text() != text) {
                    edit->setText(text);
                    edit->setCursorPosition(0);
                }
            }};
}

ControlWidget WidgetMaker::operator()(Popup& popup) const
{
    auto* const box = new PopupBox;
    for (const std::string_view item : popup.Items()) {
        box->addItem(ToQt(item));
    }
    QObject::connect(box, &QComboBox::activated, box, [&popup](int index) {
        if (index != popup.ListIndex()) {  // choosing the same item again is no change
            popup.SetListIndex(index);
        }
    });
    return {box, [box, &popup] { box->setCurrentIndex(popup.ListIndex()); }};
}

ControlWidget WidgetMaker::operator()(RadioGroup& group) const
{
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* const buttons = new QButtonGroup(row);
    for (std::size_t i = 0; i < group.Items().size(); ++i) {
        auto* const button = new QRadioButton(ToQt(group.Items()[i]));
        button->setObjectName(ToQt(group.Name()) + QString::number(i));
        layout->addWidget(button);
        buttons->addButton(button, static_cast<int>(i));
    }
    QObject::connect(buttons, &QButtonGroup::idClicked, row, [&group](int index) { group.SetListIndex(index); });
    return {row, [buttons, &group] { buttons->button(group.ListIndex())->setChecked(true); }};
}

ControlWidget WidgetMaker::operator()(CheckBox& box) const
{
    auto* const check = new QCheckBox(CaptionText(box));
    QObject::connect(check, &QCheckBox::clicked, check, [&box](bool on) { box.Click(on); });
    return {check, [check, &box] { check->setChecked(box.Value()); }};
}

ControlWidget WidgetMaker::operator()(Swatch& swatch) const
{
    auto* const canvas = new ColorSwatch;
    canvas->setToolTip(QStringLiteral("Click to choose another color"));
    QObject::connect(canvas, &ColorSwatch::clicked, canvas, [&swatch, clicked = onSwatch] { clicked(swatch); });
    return {canvas, [canvas, &swatch] { canvas->SetColor(swatch.Shown()); }};
}

ControlWidget WidgetMaker::operator()(Label& label) const
{
    QLabel* const text = label.InGroup() == Group::File ? new ElidedLabel(Qt::ElideMiddle) : new QLabel;
    text->setTextFormat(Qt::PlainText);
    return {text, [text, &label] { text->setText(CaptionText(label)); }};
}

}  // namespace

ControlWidget MakeControlWidget(Control& control, const std::function<void(Swatch& swatch)>& onSwatch)
{
    ControlWidget made = Visit(control, WidgetMaker{onSwatch});
    made.widget->setObjectName(ToQt(control.Name()));
    if (control.Kind() != ControlKind::Label) {
        made.widget->setAccessibleName(CaptionText(control));
    }
    return made;
}

QString CaptionText(const Control& control)
{
    return ToQt(control.Caption()).replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

}  // namespace linealis::desktop
