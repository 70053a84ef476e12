#include "desktop/form/FieldEdit.h"

#include "desktop/form/FormGroup.h"
#include "desktop/system/Text.h"
#include "pipeline/form/FieldWords.h"
#include "pipeline/form/LengthText.h"
#include "pipeline/form/Stepping.h"
#include "text/Numbers.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <utility>

namespace linealis::desktop {

namespace {

constexpr int numberCharacters = 9;
constexpr int proseCharacters = 26;
constexpr double stepsOfAPage = 10.0;
constexpr int arrowOverlap = 4;  // pixels of the arrows in the room that short numbers leave
constexpr int millisecondsBeforeRepetition = 400, millisecondsOfRepetition = 60;

}  // namespace

FieldEdit::FieldEdit(TextField& theField, const Form& theForm) : field(theField), form(theForm)
{
    ShowCharacters(HasArrows() ? numberCharacters : proseCharacters);
    setTextMargins(0, 0, HasArrows() ? ArrowWidth() : 0, 0);
    setMouseTracking(true);
    connect(this, &QLineEdit::textChanged, this, &FieldEdit::Take);
    connect(this, &QLineEdit::editingFinished, this, &FieldEdit::Finish);
}

void FieldEdit::ShowCharacters(int characters)
{
    constexpr int frame = 12;  // pixels, both sides together
    const int room = HasArrows() ? ArrowWidth() - arrowOverlap : 0;
    setFixedWidth(fontMetrics().averageCharWidth() * characters + frame + room);
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
    QPainter painter(this);
    if (HasArrows()) {
        PaintArrows(painter);
    }
    if (isMarked) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(RemarkColor(window()->palette()));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

bool FieldEdit::HasArrows() const
{
    return field.MeansNow() != Meaning::Prose;
}

int FieldEdit::ArrowWidth() const
{
    return fontMetrics().averageCharWidth() + 4;
}

double FieldEdit::ArrowAt(QPoint position) const
{
    if (!HasArrows() || isReadOnly() || !rect().contains(position) || position.x() < width() - ArrowWidth()) {
        return 0.0;
    }
    return position.y() < height() / 2 ? 1.0 : -1.0;
}

void FieldEdit::PaintArrows(QPainter& painter) const
{
    const double half = (ArrowWidth() - 4) / 2.0, middle = height() / 2.0;
    const double x = width() - ArrowWidth() / 2.0 - 2.0;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (const double direction : {1.0, -1.0}) {
        const bool isStrong = direction == pressed;
        painter.setBrush(isStrong || !isEnabled() ? palette().color(QPalette::Text) : WeakColor(palette()));
        const double base = middle - direction * 2.0, tip = base - direction * half;
        painter.drawPolygon(QPolygonF({QPointF(x - half, base), QPointF(x + half, base), QPointF(x, tip)}));
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void FieldEdit::mousePressEvent(QMouseEvent* event)
{
    pressed = event->button() == Qt::LeftButton ? ArrowAt(event->position().toPoint()) : 0.0;
    if (pressed == 0.0) {
        QLineEdit::mousePressEvent(event);
        return;
    }
    Step(pressed);
    repetition.start(millisecondsBeforeRepetition, this);
    update();
}

/// The second press of a quick pair of clicks on an arrow is another step.
void FieldEdit::mouseDoubleClickEvent(QMouseEvent* event)
{
    ArrowAt(event->position().toPoint()) != 0.0 ? mousePressEvent(event) : QLineEdit::mouseDoubleClickEvent(event);
}

void FieldEdit::mouseMoveEvent(QMouseEvent* event)
{
    if (pressed == 0.0) {
        setCursor(ArrowAt(event->position().toPoint()) != 0.0 ? Qt::ArrowCursor : Qt::IBeamCursor);
        QLineEdit::mouseMoveEvent(event);
    }
}

void FieldEdit::mouseReleaseEvent(QMouseEvent* event)
{
    if (std::exchange(pressed, 0.0) == 0.0) {
        QLineEdit::mouseReleaseEvent(event);
        return;
    }
    repetition.stop();
    update();
}

void FieldEdit::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == repetition.timerId()) {
        Step(pressed);
        repetition.start(millisecondsOfRepetition, this);
    } else {
        QLineEdit::timerEvent(event);
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
    const bool isNumber = HasArrows() && !isReadOnly();
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
