#include "desktop/form/FormView.h"

#include "desktop/form/ElidedLabel.h"
#include "desktop/form/FieldEdit.h"
#include "desktop/form/FormGroup.h"
#include "desktop/form/FormRows.h"
#include "desktop/form/QuickButton.h"
#include "desktop/system/Text.h"
#include "pipeline/form/FieldWords.h"
#include "pipeline/form/LengthText.h"
#include "pipeline/form/SetControl.h"
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

/// Returns the remark on a field with its caption: "Circles: counts as 1". Empty if there is none.
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

bool IsTableRow(const Form::Row& row)
{
    return row.back()->Declared().captionAbove;
}

bool HasTables(const Form& form)
{
    return std::any_of(form.Controls().begin(), form.Controls().end(),
                       [](const Control* control) { return control->Declared().captionAbove; });
}

/// Returns how many cells a line may have. Simple forms stay narrow. A form with tables is as wide as its tables,
/// so its lines can be longer.
std::size_t CellsPerLine(const Form& form, Group group)
{
    constexpr std::size_t few = 2, many = FormRows::columns;
    return HasTables(form) && group != Group::Page ? many : few;
}

bool HoldsLength(const TextField& field)
{
    const Quantity quantity = FactsOf(field.Declared().meaning).quantity;
    return quantity == Quantity::Length || quantity == Quantity::CountPerUnit;
}

/// Returns what the full name of a field adds to its caption: "X axis" for the caption "Title:" of "X axis title".
/// Empty if the caption is enough.
QString RowNameOf(const Control& control)
{
    const QString name = ToQt(control.Declared().fullName);
    const QString caption = QLatin1Char(' ') + CaptionText(control).remove(QLatin1Char(':')).toLower();
    return name.endsWith(caption) ? name.chopped(caption.size()) : QString();
}

/// Returns the width of the widest caption at the start of a row, in pixels.
int CaptionWidth(const QGridLayout& grid)
{
    int width = 0;
    for (int line = 0; line < grid.rowCount(); ++line) {
        const QLayoutItem* const item = grid.itemAtPosition(line, 0);
        width = std::max(width, item == nullptr ? 0 : item->sizeHint().width());
    }
    return width;
}

}  // namespace

FormView::FormView(Form& theForm, GroupBoxes groupBoxes, std::function<void(Swatch& swatch)> onSwatch,
                   QWidget* parent)
    : QWidget(parent), form(theForm), events{std::move(onSwatch),
                                             [this](const Control& control) {
                                                 FollowLink(control);
                                                 emit Committed(control);
                                             }},
      column(new QVBoxLayout(this))
{
    column->setContentsMargins(8, 4, 8, 4);
    column->setSpacing(10);
    for (const Group group : allGroups) {
        AddGroup(group, groupBoxes);
    }
    column->addStretch(1);
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget* /*old*/, const QWidget* now) {
        const auto has = [now](const auto& entry) {
            const QWidget* const widget = entry.second.control.widget;
            // A group of radio buttons is one widget with the buttons inside.
            return now != nullptr && (widget == now || widget->isAncestorOf(now));
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
    Align();  // after RefreshAll, which sets the texts of the captions
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

void FormView::AddBeside(const Control& control, QWidget* widget)
{
    QWidget* const neighbor = controls.at(&control).control.widget;
    controls.at(&control).beside = widget;
    widget->setEnabled(control.IsEnabled());
    auto* const pair = new QWidget;
    auto* const row = new QHBoxLayout(pair);
    row->setContentsMargins(0, 0, 0, 0);
    delete neighbor->parentWidget()->layout()->replaceWidget(neighbor, pair);
    row->addWidget(neighbor);
    for (const ShownReadout& readout : readouts) {
        if (readout.fields.size() == 1 && readout.fields.front() == &control) {
            row->addWidget(readout.label);
        }
    }
    row->addWidget(widget);
    QWidget* last = neighbor;
    for (QWidget* const part : widget->findChildren<QWidget*>()) {
        setTabOrder(last, part);
        last = part;
    }
}

void FormView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange) {
        RefreshAll();
    }
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        Align();
    }
    QWidget::changeEvent(event);
}

void FormView::AddGroup(Group group, GroupBoxes groupBoxes)
{
    const std::vector<Form::Row> rows = form.Rows(group);
    if (rows.empty()) {
        return;
    }
    const bool hasHeading = groupBoxes == GroupBoxes::withHeading && group != Group::File;
    const bool hasFields = std::any_of(rows.begin(), rows.end(), [](const Form::Row& row) {
        return std::any_of(row.begin(), row.end(),
                           [](const Control* control) { return control->Kind() == ControlKind::Text; });
    });
    auto* const box = new FormGroup(hasHeading ? TitleOf(group) : QString(),
                                    group == Group::File || !hasFields
                                        ? QString()
                                        : QStringLiteral("Remark") + ToQt(rows.front().front()->Name()));
    groups[group] = box;
    const bool textsHaveChecks = std::any_of(rows.begin(), rows.end(), [](const Form::Row& row) {
        return row.size() > 1 && IsProse(*row[0]) && row[1]->Kind() == ControlKind::Check;
    });
    FormRows lines(box->Fields(), CellsPerLine(form, group), textsHaveChecks);
    for (const Form::Row& row : rows) {
        if (!IsTableRow(row)) {
            AddRow(lines, row);
            continue;
        }
        if (&row == &rows.front()) {
            AddHeadings(box->Fields(), row);
        }
        AddTableRow(lines, row, &row == &rows.front() ? nullptr : &row - 1);
    }
    if (hasHeading && group == Group::Margins) {
        box->AddToHeading(MakeLinkButton());
    }
    box->Fields().setColumnStretch(FormRows::columns - 1, 1);
    lastRow = new QHBoxLayout;
    lastRow->addWidget(box);
    column->addLayout(lastRow);
}

void FormView::AddHeadings(QGridLayout& grid, const Form::Row& row)
{
    const int line = grid.rowCount();
    int place = 0;
    for (Control* const control : row) {
        if (control->Declared().captionAbove) {
            Label* const label = control->CaptionLabel();
            QWidget* const heading = label == nullptr ? new QLabel(CaptionText(*control)) : MakeWidget(*label);
            grid.addWidget(heading, line, place, Qt::AlignLeft | Qt::AlignBottom);
        }
        ++place;
    }
}

void FormView::AddTableRow(FormRows& rows, const Form::Row& row, const Form::Row* above)
{
    std::vector<RowItem> items;
    for (Control* const control : row) {
        items.push_back({control, MakeWidget(*control)});
    }
    std::vector<QWidget*> behind = {MakeReadout(row, false, true)};
    if (above != nullptr) {
        behind.push_back(MakeCopyButton(row, *above));
    }
    rows.AddToTable(items, behind);
}

QWidget* FormView::MakeCopyButton(const Form::Row& row, const Form::Row& above)
{
    const auto plain = [](const Control& control) { return CaptionText(control).remove(QLatin1Char(':')); };
    const QString name = tr("%1 like %2").arg(plain(*row.front()), plain(*above.front()));
    QToolButton* const button =
        MakeQuickButton(ToolIcon::FromAbove, QStringLiteral("Copy") + ToQt(row.front()->Name()), name);
    connect(button, &QToolButton::clicked, this, [this, row, above, name] {
        emit FillWanted(name, [&] {
            for (std::size_t i = 0; i < std::min(row.size(), above.size()); ++i) {
                if (row[i]->Kind() != ControlKind::Label) {
                    SetControl({}, form, {row[i]->Name(), ValueOf(*above[i])});
                }
            }
        });
    });
    return button;
}

QWidget* FormView::MakeLinkButton()
{
    QToolButton* const button =
        MakeQuickButton(ToolIcon::Link, QStringLiteral("LinkMargins"), tr("Keep all four margins equal"));
    button->setCheckable(true);
    connect(button, &QToolButton::toggled, this, [this](bool isOn) { marginsAreLinked = isOn; });
    return button;
}

void FormView::FollowLink(const Control& control)
{
    if (!marginsAreLinked || control.InGroup() != Group::Margins || control.Kind() != ControlKind::Text) {
        return;
    }
    for (const Form::Row& row : form.Rows(Group::Margins)) {
        for (Control* const margin : row) {
            if (margin->Kind() == ControlKind::Text) {
                static_cast<TextField&>(*margin).SetText(static_cast<const TextField&>(control).Text());
            }
        }
    }
}

void FormView::AddRow(FormRows& rows, const Form::Row& row)
{
    // Two prose fields in one row of a narrow form get less width, so that they fit side by side.
    constexpr int fewCharacters = 19;
    const bool sharesLine = !HasTables(form) && std::count_if(row.begin(), row.end(), [](const Control* control) {
                                                    return IsProse(*control);
                                                }) > 1;
    std::vector<RowItem> items;
    for (std::size_t i = 0; i < row.size(); ++i) {
        Control* const control = row[i];
        RowItem item{control, MakeWidget(*control), WithRowName(*control, MakeCaption(*control))};
        if (control->Kind() == ControlKind::Text && !IsProse(*control)) {
            const auto& field = static_cast<const TextField&>(*control);
            const Group group = control->InGroup();
            // A label after the field shows its unit already.
            const bool isBeforeUnit = i + 1 < row.size() && row[i + 1]->Kind() == ControlKind::Label;
            const bool hasUnit = !isBeforeUnit && !(HasTables(form) && group == Group::Text);
            const bool hasLength = (group == Group::Spacing || group == Group::Lines) && HoldsLength(field);
            if (hasLength || (hasUnit && !UnitWord(form, field).empty())) {
                item.readout = MakeReadout({control}, hasUnit, hasLength);
            }
        }
        if (sharesLine && IsProse(*control)) {
            static_cast<FieldEdit*>(item.widget)->ShowCharacters(fewCharacters);
        }
        items.push_back(item);
    }
    rows.Add(items);
}

QLabel* FormView::MakeReadout(const Form::Row& fields, bool hasUnit, bool hasLength)
{
    QLabel* const label = hasLength ? new ElidedLabel(Qt::ElideRight) : new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setObjectName(QStringLiteral("Readout") + ToQt(fields.front()->Name()));
    readouts.push_back({fields, label, hasUnit, hasLength});
    weakLabels.push_back(label);
    return label;
}

void FormView::Align()
{
    int width = 0;
    for (const auto& [group, box] : groups) {
        width = std::max(width, CaptionWidth(box->Fields()));
    }
    for (const auto& [group, box] : groups) {
        box->Fields().setColumnMinimumWidth(0, group == Group::File ? 0 : width);
    }
    for (const ShownReadout& readout : readouts) {
        if (readout.hasLength && readout.fields.size() == 1) {
            const QString typical = QStringLiteral("= 188.88 mm");  // a typical wide readout
            readout.label->setFixedWidth(
                fontMetrics().horizontalAdvance(readout.hasUnit ? QStringLiteral("in ") + typical : typical));
        }
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

QWidget* FormView::WithRowName(const Control& control, QLabel* caption)
{
    const QString name = RowNameOf(control);
    if (caption == nullptr || name.isEmpty()) {
        return caption;
    }
    auto* const both = new QWidget;
    auto* const row = new QHBoxLayout(both);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(weakLabels.emplace_back(new QLabel(name)));
    row->addWidget(caption);
    return both;
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
    if (shown.beside != nullptr) {
        shown.beside->setEnabled(control.IsEnabled());
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
    QPalette weak = palette();
    weak.setColor(QPalette::WindowText, WeakColor(palette()));
    for (QLabel* const label : weakLabels) {
        label->setPalette(weak);
    }
    ShowReadouts();
}

void FormView::ShowReadouts()
{
    for (const ShownReadout& readout : readouts) {
        std::string text;
        if (readout.hasUnit) {
            text = UnitWord(form, static_cast<const TextField&>(*readout.fields.front()));
        }
        const bool isInMetricUnit = text == "cm";
        if (const std::string length = Readout(readout.fields, form.UnitOfLengths());
            readout.hasLength && !isInMetricUnit && !length.empty()) {
            text += (text.empty() ? "" : " ") + length;
        }
        if (readout.fields.size() > 1) {
            readout.label->setVisible(!text.empty());  // so that what follows it stands directly after the fields
        }
        if (readout.label->text() != ToQt(text)) {
            readout.label->setText(ToQt(text));
            readout.label->setToolTip(ToQt(text));  // the label may show only a part
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

QString FormView::Known(Group group) const
{
    if (group == Group::Spacing) {
        return summary;
    }
    if (group == Group::Margins && form.UnitOfLengths() == LengthUnit::Inches) {
        Form::Row fields;
        for (const Form::Row& row : form.Rows(group)) {
            fields.insert(fields.end(), row.begin(), row.end());
        }
        return ToQt(Readout(fields, LengthUnit::Inches));
    }
    return {};
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
    groups.at(group)->Say(remarks.join(QStringLiteral("; ")), Known(group));
}

QString FormView::ShowRemark(const TextField& field)
{
    auto& edit = static_cast<FieldEdit&>(*controls.at(&field).control.widget);
    QString remark = RemarkText(form, field);
    edit.Mark(!remark.isEmpty());
    const QString hint = ToQt(HintOf(field));
    // The remark is repeated here because the group may show only a part of it.
    edit.setToolTip(remark.isEmpty() ? hint : remark + QLatin1Char('\n') + hint);
    edit.setAccessibleDescription(remark.isEmpty() ? hint : remark + QStringLiteral(". ") + hint);
    return remark;
}

}  // namespace linealis::desktop
