#include "desktop/FormView.h"

#include "desktop/FormRow.h"
#include "desktop/Text.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace linealis::desktop {

namespace {

QString TitleOf(Group group)
{
    switch (group) {
    case Group::Page:
        return QStringLiteral("Page");
    case Group::Spacing:
        return QStringLiteral("Spacing");
    case Group::Axes:
        return QStringLiteral("Axes");
    case Group::Lines:
        return QStringLiteral("Lines and Colors");
    case Group::Text:
        return QStringLiteral("Text");
    case Group::Margins:
        return QStringLiteral("Margins:");
    case Group::File:
        return QStringLiteral("File");
    }
    return {};
}

/// The color of remarks: a red that stands out from the palette's background, be it light or dark.
QColor RemarkColor(const QPalette& palette)
{
    const bool isDark = palette.color(QPalette::Window).lightnessF() < 0.5F;
    return isDark ? QColor(0xFF, 0x8A, 0x80) : QColor(0xB0, 0x00, 0x20);
}

/// The remark on a field, for a person: "Circles: counts as 1". Empty if there is none.
QString RemarkText(const Control& control)
{
    if (control.Kind() != ControlKind::Text) {
        return {};
    }
    QString remark = ToQt(static_cast<const TextField&>(control).Remark());
    QString caption = CaptionText(control).replace(QLatin1Char('\n'), QLatin1Char(' '));
    if (remark.isEmpty() || caption.isEmpty()) {
        return remark;
    }
    if (!caption.endsWith(QLatin1Char(':'))) {
        caption += QLatin1Char(':');
    }
    return caption + QLatin1Char(' ') + remark;
}

FormRow::Place PlaceIn(const std::vector<Control*>& row, const Control* control)
{
    if (row.size() == 1) {
        return FormRow::Place::only;
    }
    if (control == row.front()) {
        return FormRow::Place::first;
    }
    return control == row.back() ? FormRow::Place::last : FormRow::Place::between;
}

}  // namespace

FormView::FormView(Form& theForm, GroupBoxes groupBoxes, std::function<void(Swatch& swatch)> onSwatch,
                   QWidget* parent)
    : QWidget(parent), form(theForm), swatchClicked(std::move(onSwatch)), column(new QVBoxLayout(this))
{
    column->setSpacing(6);
    for (const Group group : allGroups) {
        AddGroup(group, groupBoxes);
    }
    column->addStretch(1);
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget* /*old*/, const QWidget* now) {
        const auto has = [now](const auto& entry) { return entry.second.control.widget == now; };
        const auto found = std::find_if(controls.begin(), controls.end(), has);
        emit FocusMoved(found == controls.end() ? nullptr : found->first);
    });
    form.observer = [this](const Control& control) {
        Refresh(control);
        emit Changed();
    };
    RefreshAll();
}

FormView::~FormView()
{
    form.observer = nullptr;
}

QWidget* FormView::TakeLastGroup()
{
    QWidget* const group = lastRow->itemAt(0)->widget();
    lastRow->removeWidget(group);
    group->setParent(nullptr);
    return group;
}

void FormView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange) {
        RefreshAll();
    }
    QWidget::changeEvent(event);
}

bool FormView::IsCaptionOfAField(const Control& control) const
{
    return std::any_of(form.Controls().begin(), form.Controls().end(),
                       [&](const Control* field) { return field->CaptionLabel() == &control; });
}

std::vector<FormView::Row> FormView::RowsOf(Group group) const
{
    std::vector<Row> rows;
    for (Control* const control : form.Controls()) {
        if (control->InGroup() != group || IsCaptionOfAField(*control)) {
            continue;
        }
        const bool sameRow = control->Declared().beside || control->Declared().captionAbove;
        if (rows.empty() || !sameRow) {
            rows.emplace_back();
        }
        rows.back().push_back(control);
    }
    return rows;
}

void FormView::AddGroup(Group group, GroupBoxes groupBoxes)
{
    const std::vector<Row> rows = RowsOf(group);
    if (rows.empty()) {
        return;
    }
    QWidget* const box = groupBoxes == GroupBoxes::withHeading ? new QGroupBox(TitleOf(group)) : new QWidget;
    auto* const grid = new QGridLayout(box);
    grid->setVerticalSpacing(4);
    grid->setHorizontalSpacing(8);
    for (const Row& row : rows) {
        if (row.back()->Declared().captionAbove && &row == &rows.front()) {
            AddHeadings(*grid, row);
        }
        AddRow(*grid, row);
        AddRemark(*grid, row);
    }
    grid->setColumnStretch(FormRow::columns - 1, 1);
    lastRow = new QHBoxLayout;
    lastRow->addWidget(box);
    column->addLayout(lastRow);
}

void FormView::AddHeadings(QGridLayout& grid, const Row& row)
{
    int place = 0;
    for (Control* const control : row) {
        if (!control->Declared().captionAbove) {
            place += control->Kind() == ControlKind::Label ? 1 : 2;
            continue;
        }
        Label* const label = control->CaptionLabel();
        QWidget* const heading = label == nullptr ? new QLabel(CaptionText(*control)) : MakeWidget(*label);
        grid.addWidget(heading, 0, place, Qt::AlignLeft | Qt::AlignBottom);
        ++place;
    }
}

void FormView::AddRow(QGridLayout& grid, const Row& row)
{
    FormRow line(grid);
    for (Control* const control : row) {
        QWidget* const widget = MakeWidget(*control);
        line.Add(*control, widget, MakeCaption(*control), PlaceIn(row, control));
    }
}

void FormView::AddRemark(QGridLayout& grid, const Row& row)
{
    const bool hasText = std::any_of(row.begin(), row.end(),
                                     [](const Control* control) { return control->Kind() == ControlKind::Text; });
    if (!hasText) {
        return;
    }
    auto* const remark = new QLabel;
    remark->setTextFormat(Qt::PlainText);
    remark->setWordWrap(true);
    remark->setObjectName(QStringLiteral("Remark") + ToQt(row.front()->Name()));
    remark->hide();
    grid.addWidget(remark, grid.rowCount(), 0, 1, FormRow::columns);
    for (const Control* const control : row) {
        controls[control].remark = remark;
        controls[control].row = row;
    }
}

QWidget* FormView::MakeWidget(Control& control)
{
    controls[&control].control = MakeControlWidget(control, swatchClicked);
    QWidget* const widget = controls[&control].control.widget;
    WatchEdits(*widget);
    return widget;
}

/// Tells of each change that the user has ended. It is in the form by then.
void FormView::WatchEdits(QWidget& widget)
{
    if (auto* const edit = qobject_cast<QLineEdit*>(&widget)) {
        connect(edit, &QLineEdit::editingFinished, this, [this, edit] {
            if (edit->isModified()) {
                edit->setModified(false);
                emit Committed();
            }
        });
    } else if (auto* const popup = qobject_cast<QComboBox*>(&widget)) {
        connect(popup, &QComboBox::activated, this, &FormView::Committed);
    } else if (auto* const button = qobject_cast<QAbstractButton*>(&widget)) {
        connect(button, &QAbstractButton::clicked, this, &FormView::Committed);
    }
    for (const auto* const button : widget.findChildren<QAbstractButton*>()) {
        connect(button, &QAbstractButton::clicked, this, &FormView::Committed);
    }
}

QLabel* FormView::MakeCaption(Control& control)
{
    const bool hasNone = control.Caption().empty() || control.Declared().captionAbove ||
                         control.Kind() == ControlKind::Check || control.Kind() == ControlKind::Label;
    if (hasNone) {
        return nullptr;
    }
    QLabel* caption = nullptr;
    if (Label* const label = control.CaptionLabel()) {
        caption = static_cast<QLabel*>(MakeWidget(*label));
    } else {
        caption = new QLabel(CaptionText(control));
        controls[&control].caption = caption;
    }
    caption->setBuddy(controls[&control].control.widget);
    return caption;
}

void FormView::Refresh(const Control& control)
{
    const auto found = controls.find(&control);
    if (found == controls.end()) {
        return;
    }
    const Shown& shown = found->second;
    shown.control.refresh();
    shown.control.widget->setEnabled(control.IsEnabled());
    if (shown.caption != nullptr) {
        shown.caption->setEnabled(control.IsEnabled());
    }
    if (shown.remark != nullptr) {
        ShowRemarks(shown);
    }
}

void FormView::RefreshAll()
{
    for (const Control* const control : form.Controls()) {
        Refresh(*control);
    }
}

void FormView::ShowRemarks(const Shown& shown)
{
    const QColor color = RemarkColor(palette());
    const QString border = QStringLiteral("QLineEdit { border: 1px solid %1; }").arg(color.name());
    QStringList texts;
    for (const Control* const control : shown.row) {
        const QString text = RemarkText(*control);
        const QString style = text.isEmpty() ? QString() : border;
        if (QWidget* const field = controls[control].control.widget; field->styleSheet() != style) {
            field->setStyleSheet(style);
        }
        if (!text.isEmpty()) {
            texts << text;
        }
    }
    QPalette colors = shown.remark->palette();
    colors.setColor(QPalette::WindowText, color);
    shown.remark->setPalette(colors);
    shown.remark->setText(texts.join(QStringLiteral("; ")));
    shown.remark->setVisible(!texts.isEmpty());
}

}  // namespace linealis::desktop
