#include "desktop/form/FormView.h"

#include "desktop/form/ElidedLabel.h"
#include "desktop/form/FieldEdit.h"
#include "desktop/form/FormGroup.h"
#include "desktop/form/FormRow.h"
#include "desktop/system/Text.h"
#include "pipeline/form/FieldWords.h"
#include "pipeline/form/LengthText.h"
#include "text/Numbers.h"

#include <QApplication>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
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

/// The remark on a field, for a person: "Circles: counts as 1". Empty if there is none.
QString RemarkText(const Form& form, const TextField& field)
{
    const auto typed = TypedNumber(field.Text(), form, field);
    QString remark =
        typed ? QStringLiteral("becomes %1 when you leave the field").arg(ToQt(Str(*typed))) : ToQt(field.Remark());
    QString caption = CaptionText(field).replace(QLatin1Char('\n'), QLatin1Char(' '));
    if (remark.isEmpty() || caption.isEmpty()) {
        return remark;
    }
    if (!caption.endsWith(QLatin1Char(':'))) {
        caption += QLatin1Char(':');
    }
    return caption + QLatin1Char(' ') + remark;
}

FormRow::Place PlaceIn(const Form::Row& row, const Control* control)
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
    : QWidget(parent), form(theForm), events{std::move(onSwatch), [this] { emit Committed(); }},
      column(new QVBoxLayout(this))
{
    column->setSpacing(6);
    for (const Group group : allGroups) {
        AddGroup(group, groupBoxes);
    }
    column->addStretch(1);
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget* /*old*/, const QWidget* now) {
        const auto has = [now](const auto& entry) {
            const QWidget* const widget = entry.second.control.widget;
            return now != nullptr && (widget == now || widget->isAncestorOf(now));  // a group of buttons
        };
        const auto found = std::find_if(controls.begin(), controls.end(), has);
        emit FocusMoved(found == controls.end() ? nullptr : found->first);
    });
    form.observer = [this](const Control& control) {
        Refresh(control);
        ShowReadouts();
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

void FormView::AddGroup(Group group, GroupBoxes groupBoxes)
{
    const std::vector<Form::Row> rows = form.Rows(group);
    if (rows.empty()) {
        return;
    }
    const bool hasHeading = groupBoxes == GroupBoxes::withHeading;
    auto* const box = new FormGroup(hasHeading ? TitleOf(group) : QString(),
                                    QStringLiteral("Remark") + ToQt(rows.front().front()->Name()));
    groups[group] = box;
    auto* const grid = new QGridLayout(box);
    grid->setVerticalSpacing(4);
    grid->setHorizontalSpacing(8);
    for (const Form::Row& row : rows) {
        if (row.back()->Declared().captionAbove && &row == &rows.front()) {
            AddHeadings(*grid, row);
        }
        AddRow(*grid, row, hasHeading && group != Group::Page && group != Group::Text);
    }
    if (QLabel* const below = box->SaidBelow()) {
        grid->addWidget(below, grid->rowCount(), 0, 1, FormRow::columns);
    }
    grid->setColumnStretch(FormRow::columns - 1, 1);
    lastRow = new QHBoxLayout;
    lastRow->addWidget(box);
    column->addLayout(lastRow);
}

void FormView::AddHeadings(QGridLayout& grid, const Form::Row& row)
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

void FormView::AddRow(QGridLayout& grid, const Form::Row& row, bool hasReadout)
{
    FormRow line(grid);
    for (Control* const control : row) {
        QWidget* const widget = MakeWidget(*control);
        line.Add(*control, widget, MakeCaption(*control), PlaceIn(row, control));
    }
    if (hasReadout) {
        auto* const readout = new ElidedLabel(Qt::ElideRight);
        readout->setObjectName(QStringLiteral("Readout") + ToQt(row.front()->Name()));
        line.AddAtEnd(readout);
        readouts.push_back({row, readout});
    }
}

QWidget* FormView::MakeWidget(Control& control)
{
    controls[&control].control = MakeControlWidget(form, control, events);
    return controls[&control].control.widget;
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
    if (control.Kind() == ControlKind::Text) {
        ShowRemarks(control.InGroup());
    }
}

void FormView::RefreshAll()
{
    for (const Control* const control : form.Controls()) {
        Refresh(*control);
    }
    ShowReadouts();
}

void FormView::ShowReadouts()
{
    for (const RowReadout& readout : readouts) {
        const QString text = ToQt(Readout(readout.row, form.UnitOfLengths()));
        if (readout.label->text() != text) {
            readout.label->setText(text);
            readout.label->setToolTip(text);
        }
    }
}

void FormView::ShowSummary(const QString& words)
{
    summary = words;
    if (groups.contains(Group::Spacing)) {
        ShowRemarks(Group::Spacing);
    }
}

void FormView::FinishEdit()
{
    if (auto* const edit = qobject_cast<FieldEdit*>(QApplication::focusWidget()); edit && isAncestorOf(edit)) {
        edit->Finish();
    }
}

void FormView::ShowRemarks(Group group)
{
    QStringList remarks;
    for (const Control* const control : form.Controls()) {
        if (control->InGroup() == group && control->Kind() == ControlKind::Text && controls.contains(control)) {
            remarks << ShowRemark(static_cast<const TextField&>(*control));
        }
    }
    remarks.removeAll(QString());
    groups.at(group)->Say(remarks.join(QStringLiteral("; ")), group == Group::Spacing ? summary : QString());
}

QString FormView::ShowRemark(const TextField& field)
{
    auto& edit = static_cast<FieldEdit&>(*controls.at(&field).control.widget);
    QString remark = RemarkText(form, field);
    edit.Mark(!remark.isEmpty());
    const QString hint = ToQt(HintOf(field));
    edit.setAccessibleDescription(remark.isEmpty() ? hint : remark + QStringLiteral(". ") + hint);
    return remark;
}

}  // namespace linealis::desktop
