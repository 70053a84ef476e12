#include "desktop/form/FormGroup.h"

#include "desktop/form/ElidedLabel.h"

#include <QStyle>
#include <QStyleOptionGroupBox>

namespace linealis::desktop {

QColor RemarkColor(const QPalette& palette)
{
    const bool isDark = palette.color(QPalette::Window).lightnessF() < 0.5F;
    return isDark ? QColor(0xFF, 0x8A, 0x80) : QColor(0xB0, 0x00, 0x20);
}

FormGroup::FormGroup(const QString& title, const QString& name) : said(new ElidedLabel(Qt::ElideRight))
{
    setTitle(title);
    setFlat(title.isEmpty());
    said->setParent(this);
    said->setObjectName(name);
    said->setTextFormat(Qt::PlainText);
}

QLabel* FormGroup::SaidBelow() const
{
    return title().isEmpty() ? said : nullptr;
}

void FormGroup::Say(const QString& remark, const QString& known)
{
    QPalette colors = palette();
    if (!remark.isEmpty()) {
        colors.setColor(QPalette::WindowText, RemarkColor(palette()));
    }
    said->setPalette(colors);
    said->setText(remark.isEmpty() ? known : remark);
    said->setToolTip(said->text());
    said->setAccessibleName(said->text());
}

void FormGroup::resizeEvent(QResizeEvent* event)
{
    QGroupBox::resizeEvent(event);
    if (!title().isEmpty()) {
        constexpr int gap = 16;
        QStyleOptionGroupBox option;
        initStyleOption(&option);
        const QRect heading = style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, this);
        said->setGeometry(heading.right() + gap, heading.top(), width() - heading.right() - 2 * gap,
                          heading.height());
    }
}

}  // namespace linealis::desktop
