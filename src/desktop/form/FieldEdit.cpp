#include "desktop/form/FieldEdit.h"

#include "desktop/form/FormGroup.h"
#include "desktop/system/Text.h"
#include "pipeline/form/FieldWords.h"
#include "pipeline/form/LengthText.h"
#include "pipeline/form/Stepping.h"
#include "text/Numbers.h"

#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <utility>

namespace linealis::desktop {

namespace {

constexpr int numberCharacters = 9;
constexpr int proseCharacters = 26;
constexpr double stepsOfAPage = 10.0;

}  // namespace

FieldEdit::FieldEdit(TextField& theField, const Form& theForm) : field(theField), form(theForm)
{
    ShowCharacters(field.MeansNow() == Meaning::Prose ? proseCharacters : numberCharacters);
    connect(this, &QLineEdit::textChanged, this, &FieldEdit::Take);
    connect(this, &QLineEdit::editingFinished, this, &FieldEdit::Finish);
}

void FieldEdit::ShowCharacters(int characters)
{
    constexpr int frame = 12;  // pixels, both sides together
    setFixedWidth(fontMetrics().averageCharWidth() * characters + frame);
}

void FieldEdit::Refresh()
{
    setToolTip(ToQt(HintOf(field)));
    if (const QString shown = ToQt(field.Text()); text() != shown) {
        const QSignalBlocker holdsItAlready(this);
        setText(shown);
        setCursorPosition(0);
    }
}

/// The text may come from the keyboard, the clipboard, or a screen reader, which can set it without the focus.
void FieldEdit::Take(const QString& entered)
{
    isEntered = true;
    field.Type(entered.toStdString());
    if (!hasFocus()) {
        Finish();  // a field without the focus is never left, so editingFinished does not follow
    }
}

void FieldEdit::Mark(bool isRemarkedOn)
{
    if (isMarked != isRemarkedOn) {
        isMarked = isRemarkedOn;
        update();
    }
}

void FieldEdit::paintEvent(QPaintEvent* event)
{
    QLineEdit::paintEvent(event);
    if (isMarked) {
        QPainter painter(this);
        painter.setPen(RemarkColor(window()->palette()));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void FieldEdit::Finish()
{
    if (!std::exchange(isEntered, false)) {
        return;
    }
    if (const auto number = TypedNumber(field.Text(), form, field)) {
        field.Type(Str(*number));
    }
    emit Committed();
}

void FieldEdit::Step(double steps)
{
    const std::string stepped = Stepped(field.MeansNow(), field.Text(), steps, UnitOf(form, field));
    if (stepped != field.Text()) {
        selectAll();
        insert(ToQt(stepped));  // like typing, so that the field can undo it
        selectAll();
    }
}

void FieldEdit::keyPressEvent(QKeyEvent* event)
{
    const bool isNumber = field.MeansNow() != Meaning::Prose && !isReadOnly();
    if (isNumber && event->key() == Qt::Key_Up) {
        Step(1.0);
    } else if (isNumber && event->key() == Qt::Key_Down) {
        Step(-1.0);
    } else if (isNumber && event->key() == Qt::Key_PageUp) {
        Step(stepsOfAPage);
    } else if (isNumber && event->key() == Qt::Key_PageDown) {
        Step(-stepsOfAPage);
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

}  // namespace linealis::desktop
