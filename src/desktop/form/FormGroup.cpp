#include "desktop/form/FormGroup.h"

#include "desktop/form/ElidedLabel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace linealis::desktop {

namespace {

bool IsDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightnessF() < 0.5F;
}

QLabel* MakeHeading(const QString& text)
{
    auto* const heading = new QLabel(text);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    return heading;
}

}  // namespace

QColor RemarkColor(const QPalette& palette)
{
    return IsDark(palette) ? QColor(0xFF, 0x8A, 0x80) : QColor(0xB0, 0x00, 0x20);
}

QColor WeakColor(const QPalette& palette)
{
    constexpr float share = 0.65F;  // of the text's color
    const QColor text = palette.color(QPalette::WindowText), ground = palette.color(QPalette::Window);
    const auto mixed = [](float a, float b) { return share * a + (1.0F - share) * b; };
    return QColor::fromRgbF(mixed(text.redF(), ground.redF()), mixed(text.greenF(), ground.greenF()),
                            mixed(text.blueF(), ground.blueF()));
}

FormGroup::FormGroup(const QString& heading, const QString& name)
    : said(new ElidedLabel(Qt::ElideRight)), fields(new QGridLayout)
{
    setContentsMargins(0, 0, 0, 0);
    setAccessibleName(heading);
    said->setObjectName(name);
    said->setTextFormat(Qt::PlainText);
    fields->setVerticalSpacing(4);
    fields->setHorizontalSpacing(8);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    if (heading.isEmpty()) {
        column->addLayout(fields);
        column->addWidget(said);
        said->setVisible(!name.isEmpty());
    } else {
        head = new QHBoxLayout;
        head->setSpacing(16);
        head->addWidget(MakeHeading(heading));
        head->addWidget(said, 1);
        column->addLayout(head);
        column->addLayout(fields);
    }
}

void FormGroup::AddToHeading(QWidget* widget)
{
    head->insertWidget(1, widget);
}

void FormGroup::Say(const QString& remark, const QString& known)
{
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, remark.isEmpty() ? WeakColor(palette()) : RemarkColor(palette()));
    said->setPalette(colors);
    said->setText(remark.isEmpty() ? known : remark);
    said->setToolTip(said->text());
    said->setAccessibleName(said->text());
}

/// Paints nothing: the heading is a label, and a group has no frame.
void FormGroup::paintEvent(QPaintEvent* /*event*/) {}

// Passed over because a group box would reserve room for its frame here.

void FormGroup::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
}

void FormGroup::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
}

}  // namespace linealis::desktop
