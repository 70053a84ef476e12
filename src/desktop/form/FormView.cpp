#include "desktop/form/FormView.h"

#include "desktop/form/ElidedLabel.h"
#include "desktop/form/FieldEdit.h"
#include "desktop/form/FormGroup.h"
#include "desktop/form/FormRows.h"
#include "desktop/form/QuickButton.h"
#include "desktop/system/Text.h"
#include "pipeline/form/FieldWords.h"

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

/// Returns how many cells a line may have. Simple forms stay narrow. A form with tables is as wide as its tables,
/// so its lines can be longer.
std::size_t CellsPerLine(const Form& form, Group group)
{
    constexpr std::size_t few = 2, many = FormRows::mostCells;
    return HasTables(form) && group != Group::Page ? many : few;
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
    : QWidget(parent), form(theForm), arrangement(LayoutOf(form)), events{std::move(onSwatch),
                                                                          [this](const Control& control) {
                                                                              FollowLink(control);
                                                                              emit Committed(control);
                                                                          }},
      column(new QVBoxLayout(this))
{
    column->setContentsMargins(8, 4, 8, 4);
    column->setSpacing(10);
    for (const LaidGroup& group : arrangement) {
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

void FormView::AddGroup(const LaidGroup& laid, GroupBoxes groupBoxes)
{
    const std::vector<LaidRow>& rows = laid.rows;
    const Group group = laid.group;
    const bool hasHeading = groupBoxes == GroupBoxes::withHeading && group != Group::File;
    const bool hasFields = std::any_of(rows.begin(), rows.end(), [](const LaidRow& row) {
        return std::any_of(row.places.begin(), row.places.end(),
                           [](const LaidControl& place) { return place.control->Kind() == ControlKind::Text; });
    });
    auto* const box =
        new FormGroup(hasHeading ? ToQt(TitleOf(group)) : QString(),
                      group == Group::File || !hasFields
                          ? QString()
                          : QStringLiteral("Remark") + ToQt(rows.front().places.front().control->Name()));
    groups[group] = box;
    const bool textsHaveChecks = std::any_of(rows.begin(), rows.end(), [](const LaidRow& row) {
        return row.places.size() > 1 && IsProse(*row.places[0].control) &&
               row.places[1].control->Kind() == ControlKind::Check;
    });
    FormRows lines(box->Fields(), CellsPerLine(form, group), textsHaveChecks);
    for (const LaidRow& row : rows) {
        if (!row.isOfTable) {
            AddRow(lines, row);
            continue;
        }
        if (&row == &rows.front()) {
            AddHeadings(box->Fields(), row);
        }
        AddTableRow(lines, row);
    }
    if (hasHeading && group == Group::Margins) {
        box->AddToHeading(MakeLinkButton());
    }
    box->Fields().setColumnStretch(lines.Columns() - 1, 1);
    lastRow = new QHBoxLayout;
    lastRow->addWidget(box);
    column->addLayout(lastRow);
}

void FormView::AddHeadings(QGridLayout& grid, const LaidRow& row)
{
    const int line = grid.rowCount();
    int place = 0;
    for (const LaidControl& laid : row.places) {
        if (laid.control->Declared().captionAbove) {
            Label* const label = laid.control->CaptionLabel();
            QWidget* const heading = label == nullptr ? new QLabel(CaptionText(*laid.control)) : MakeWidget(*label);
            grid.addWidget(heading, line, place, Qt::AlignLeft | Qt::AlignBottom);
        }
        ++place;
    }
}

void FormView::AddTableRow(FormRows& rows, const LaidRow& row)
{
    std::vector<RowItem> items;
    for (const LaidControl& place : row.places) {
        items.push_back({place.control, MakeWidget(*place.control)});
    }
    std::vector<QWidget*> behind = {MakeReadout(row.Controls(), {.hasLength = true})};
    if (row.above != nullptr) {
        behind.push_back(MakeCopyButton(row));
    }
    rows.AddToTable(items, behind);
}

QWidget* FormView::MakeCopyButton(const LaidRow& row)
{
    const QString name = ToQt(NameOfCopy(row));
    QToolButton* const button = MakeQuickButton(
        ToolIcon::FromAbove, QStringLiteral("Copy") + ToQt(row.places.front().control->Name()), name);
    connect(button, &QToolButton::clicked, this,
            [this, &row, name] { emit FillWanted(name, [&] { CopyFromAbove(form, row); }); });
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
    if (marginsAreLinked) {
        LinkMargins(form, control);
    }
}

void FormView::AddRow(FormRows& rows, const LaidRow& row)
{
    // Two prose fields in one row of a narrow form get less width, so that they fit side by side.
    constexpr int fewCharacters = 19;
    std::vector<RowItem> items;
    for (const LaidControl& place : row.places) {
        Control& control = *place.control;
        RowItem item{&control, MakeWidget(control)};
        item.continuesCell = place.continuesCell;
        if (place.hasCaption) {
            item.caption = WithRowName(place.rowName, MakeCaption(control));
        }
        if (!place.readout.IsEmpty()) {
            item.readout = MakeReadout({&control}, place.readout);
        }
        if (place.isShort) {
            static_cast<FieldEdit*>(item.widget)->ShowCharacters(fewCharacters);
        }
        items.push_back(item);
    }
    rows.Add(items);
}

QLabel* FormView::MakeReadout(const Form::Row& fields, const ReadoutParts& parts)
{
    QLabel* const label = parts.hasLength ? new ElidedLabel(Qt::ElideRight) : new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setObjectName(QStringLiteral("Readout") + ToQt(fields.front()->Name()));
    readouts.push_back({fields, label, parts});
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
        if (readout.parts.hasLength && readout.fields.size() == 1) {
            const QString typical = QStringLiteral("= 188.88 mm");  // a typical wide readout
            readout.label->setFixedWidth(fontMetrics().horizontalAdvance(
                readout.parts.hasUnit ? Translated("in") + QLatin1Char(' ') + typical : typical));
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

QWidget* FormView::WithRowName(const std::string& name, QLabel* caption)
{
    if (name.empty()) {
        return caption;
    }
    auto* const both = new QWidget;
    auto* const row = new QHBoxLayout(both);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(weakLabels.emplace_back(new QLabel(Translated(name))));
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
        const QString text = ToQt(ReadoutText(form, readout.fields, readout.parts));
        if (readout.fields.size() > 1) {
            readout.label->setVisible(!text.isEmpty());  // so that what follows it stands directly after the fields
        }
        if (readout.label->text() != text) {
            readout.label->setText(text);
            readout.label->setToolTip(text);  // the label may show only a part
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
    return group == Group::Spacing ? summary : ToQt(KnownOf(form, group));
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
    QString remark = ToQt(RemarkWithCaption(form, field));
    edit.Mark(!remark.isEmpty());
    const QString hint = ToQt(HintOf(field));
    // The remark is repeated here because the group may show only a part of it.
    edit.setToolTip(remark.isEmpty() ? hint : remark + QLatin1Char('\n') + hint);
    edit.setAccessibleDescription(remark.isEmpty() ? hint : remark + QStringLiteral(". ") + hint);
    return remark;
}

}  // namespace linealis::desktop
