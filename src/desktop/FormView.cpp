#include "desktop/FormView.h"

#include "desktop/ColorSwatch.h"
#include "desktop/Text.h"
#include "pipeline/Remarks.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>

namespace linealis::desktop {

namespace {

constexpr int numberFieldCharacters = 9;
constexpr int proseFieldCharacters = 26;
constexpr int columns = 20;  // of a group's grid; more than any row has

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

/// A caption with the line ends of a screen.
QString CaptionText(std::string_view caption)
{
    return ToQt(caption).replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

/// A field that goes into the cell of the one before it: a unit behind a number, the height behind "by".
bool ContinuesCell(const PaperForm::State& state)
{
    return state.control.besidePrevious && !state.control.captionAbove &&
           (state.control.kind == ControlKind::Label || state.caption.empty());
}

/// A column of texts on one line, for a person: "Circles: counts as 1".
QString RemarkText(const PaperForm::State& state)
{
    const std::string remark = RemarkOn(state);
    if (remark.empty()) {
        return {};
    }
    QString caption = CaptionText(state.control.caption).replace(QLatin1Char('\n'), QLatin1Char(' '));
    if (!caption.isEmpty() && !caption.endsWith(QLatin1Char(':'))) {
        caption += QLatin1Char(':');
    }
    return caption.isEmpty() ? ToQt(remark) : caption + QLatin1Char(' ') + ToQt(remark);
}

}  // namespace

FormView::FormView(PaperForm& theForm, std::function<void(std::string_view name)> onSwatch, QWidget* parent)
    : QWidget(parent), form(theForm), swatchClicked(std::move(onSwatch)), column(new QVBoxLayout(this))
{
    column->setSpacing(6);
    for (const Group group :
         {Group::Page, Group::Spacing, Group::Axes, Group::Lines, Group::Text, Group::Margins, Group::File}) {
        AddGroup(group);
    }
    column->addStretch(1);
    form.observer = [this](std::string_view name) { Refresh(name); };
    for (const State& state : form.Controls()) {
        Refresh(state.control.name);
    }
}

FormView::~FormView()
{
    form.observer = nullptr;
}

void FormView::AddBesideLastGroup(QWidget* widget)
{
    lastRow->addWidget(widget, 0, Qt::AlignBottom);
}

bool FormView::IsCaptionOfAField(std::string_view name) const
{
    return std::any_of(form.Controls().begin(), form.Controls().end(),
                       [&](const State& state) { return state.control.labelName == name; });
}

std::vector<FormView::Row> FormView::RowsOf(Group group) const
{
    std::vector<Row> rows;
    for (const State& state : form.Controls()) {
        if (state.group != group || IsCaptionOfAField(state.control.name)) {
            continue;
        }
        const bool sameRow = state.control.besidePrevious || state.control.captionAbove;
        if (rows.empty() || !sameRow) {
            rows.emplace_back();
        }
        rows.back().push_back(&state);
    }
    return rows;
}

void FormView::AddGroup(Group group)
{
    const std::vector<Row> rows = RowsOf(group);
    if (rows.empty()) {
        return;
    }
    auto* const box = new QGroupBox(TitleOf(group));
    auto* const grid = new QGridLayout(box);
    grid->setVerticalSpacing(4);
    grid->setHorizontalSpacing(8);
    bool hasHeadings = false;
    for (const Row& row : rows) {
        const bool isTable = row.back()->control.captionAbove;
        if (isTable && !hasHeadings) {
            AddHeadings(*grid, row);
            hasHeadings = true;
        }
        AddRow(*grid, row);
        AddRemark(*grid, row);
    }
    grid->setColumnStretch(columns - 1, 1);
    lastRow = new QHBoxLayout;
    lastRow->addWidget(box);
    column->addLayout(lastRow);
}

void FormView::AddHeadings(QGridLayout& grid, const Row& row)
{
    int place = 0;
    for (const State* const state : row) {
        if (state->control.captionAbove) {
            QLabel* const heading = state->control.labelName.empty()
                                        ? new QLabel(CaptionText(state->control.caption))
                                        : MakeLabel(form[state->control.labelName]);
            heading->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
            grid.addWidget(heading, 0, place);
            ++place;
        } else {
            place += state->control.kind == ControlKind::Label ? 1 : 2;
        }
    }
}

void FormView::AddRow(QGridLayout& grid, const Row& row)
{
    const int line = grid.rowCount();
    int place = 0;
    QHBoxLayout* cell = nullptr;
    for (const State* const state : row) {
        QWidget* const widget = MakeWidget(*state);
        if (cell != nullptr && ContinuesCell(*state)) {
            cell->insertWidget(cell->count() - 1, widget);
            continue;
        }
        if (state->control.kind == ControlKind::Label && state == row.front() && row.size() > 1) {
            grid.addWidget(widget, line, place++, Qt::AlignRight | Qt::AlignVCenter);
            continue;
        }
        if (!state->control.captionAbove) {
            if (QLabel* const caption = MakeCaption(*state, widget)) {
                grid.addWidget(caption, line, place, Qt::AlignRight | Qt::AlignVCenter);
            }
            const bool fillsCaption =
                state->control.kind == ControlKind::Check || state->control.kind == ControlKind::Label;
            place += fillsCaption ? 0 : 1;
            cell = new QHBoxLayout;
            cell->setSpacing(6);
            cell->addWidget(widget);
            cell->addStretch(1);
            // The last of a row takes what room it needs, so that it widens no column.
            const bool isLast = state == row.back();
            grid.addLayout(cell, line, place, 1, isLast ? columns - place : fillsCaption ? 2 : 1);
            place += fillsCaption ? 2 : 1;
        } else {
            grid.addWidget(widget, line, place++, Qt::AlignLeft | Qt::AlignVCenter);
        }
    }
}

void FormView::AddRemark(QGridLayout& grid, const Row& row)
{
    const bool hasText = std::any_of(row.begin(), row.end(),
                                     [](const State* state) { return state->control.kind == ControlKind::Text; });
    if (!hasText) {
        return;
    }
    auto* const remark = new QLabel;
    remark->setTextFormat(Qt::PlainText);
    remark->setWordWrap(true);
    remark->setStyleSheet(QStringLiteral("color: #b00020"));
    remark->setObjectName(QStringLiteral("Remark") + ToQt(row.front()->control.name));
    remark->hide();
    grid.addWidget(remark, grid.rowCount(), 0, 1, columns);
    for (const State* const state : row) {
        remarkOf[state->control.name] = remarks.size();
    }
    remarks.push_back({remark, row});
}

QWidget* FormView::MakeWidget(const State& state)
{
    QWidget* widget = nullptr;
    switch (state.control.kind) {
    case ControlKind::Text:
        widget = MakeTextField(state);
        break;
    case ControlKind::Popup:
        widget = MakePopup(state);
        break;
    case ControlKind::Check:
        widget = MakeCheckBox(state);
        break;
    case ControlKind::Radio:
        widget = MakeRadioGroup(state);
        break;
    case ControlKind::Color:
        widget = MakeSwatch(state);
        break;
    case ControlKind::Label:
        return MakeLabel(state);
    }
    widget->setObjectName(ToQt(state.control.name));
    widget->setAccessibleName(CaptionText(state.control.caption));
    fields[state.control.name] = widget;
    return widget;
}

QWidget* FormView::MakeTextField(const State& state)
{
    const std::string_view name = state.control.name;
    auto* const field = new QLineEdit;
    const bool prose = state.control.meaning == Meaning::Prose;
    const int characters = prose ? proseFieldCharacters : numberFieldCharacters;
    field->setFixedWidth(field->fontMetrics().averageCharWidth() * characters + 12);
    field->setToolTip(ToQt(HintFor(state.control.meaning)));
    connect(field, &QLineEdit::textEdited, this,
            [this, name](const QString& text) { form.Type(name, text.toStdString()); });
    refreshers[name] = [field](const State& now) {
        if (const QString text = ToQt(now.text); field->text() != text) {
            field->setText(text);
            field->setCursorPosition(0);
        }
    };
    return field;
}

QWidget* FormView::MakePopup(const State& state)
{
    const std::string_view name = state.control.name;
    auto* const box = new QComboBox;
    for (const std::string_view item : state.control.items) {
        box->addItem(ToQt(item));
    }
    connect(box, &QComboBox::activated, this, [this, name](int index) {
        if (index != form.ListIndex(name)) {  // choosing the same item again is no change
            form.SetListIndex(name, index);
        }
    });
    refreshers[name] = [box](const State& now) { box->setCurrentIndex(now.listIndex); };
    return box;
}

QWidget* FormView::MakeCheckBox(const State& state)
{
    const std::string_view name = state.control.name;
    auto* const box = new QCheckBox(CaptionText(state.control.caption));
    connect(box, &QCheckBox::clicked, this, [this, name](bool on) { form.Click(name, on); });
    refreshers[name] = [box](const State& now) { box->setChecked(now.value); };
    return box;
}

QWidget* FormView::MakeRadioGroup(const State& state)
{
    const std::string_view name = state.control.name;
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* const group = new QButtonGroup(row);
    for (std::size_t i = 0; i < state.control.items.size(); ++i) {
        auto* const button = new QRadioButton(ToQt(state.control.items[i]));
        button->setObjectName(ToQt(name) + QString::number(i));
        layout->addWidget(button);
        group->addButton(button, static_cast<int>(i));
    }
    connect(group, &QButtonGroup::idClicked, this, [this, name](int index) { form.SetListIndex(name, index); });
    refreshers[name] = [group](const State& now) { group->button(now.listIndex)->setChecked(true); };
    return row;
}

QWidget* FormView::MakeSwatch(const State& state)
{
    const std::string_view name = state.control.name;
    auto* const swatch = new ColorSwatch;
    swatch->setToolTip(QStringLiteral("Click to choose another color"));
    connect(swatch, &ColorSwatch::clicked, this, [this, name] { swatchClicked(name); });
    refreshers[name] = [swatch](const State& now) { swatch->SetColor(now.color); };
    return swatch;
}

QLabel* FormView::MakeLabel(const State& state)
{
    auto* const text = new QLabel;
    text->setTextFormat(Qt::PlainText);
    text->setObjectName(ToQt(state.control.name));
    fields[state.control.name] = text;
    refreshers[state.control.name] = [text](const State& now) { text->setText(CaptionText(now.caption)); };
    return text;
}

QLabel* FormView::MakeCaption(const State& state, QWidget* field)
{
    if (state.caption.empty() || state.control.kind == ControlKind::Check ||
        state.control.kind == ControlKind::Label) {
        return nullptr;
    }
    QLabel* caption = nullptr;
    if (state.control.labelName.empty()) {
        caption = new QLabel(CaptionText(state.control.caption));
        captions[state.control.name] = caption;
    } else {
        caption = MakeLabel(form[state.control.labelName]);
    }
    caption->setBuddy(field);
    return caption;
}

void FormView::Refresh(std::string_view name)
{
    const auto field = fields.find(name);
    if (field == fields.end()) {
        return;
    }
    const State& state = form[name];
    refreshers[name](state);
    field->second->setEnabled(state.enabled);
    if (const auto caption = captions.find(name); caption != captions.end()) {
        caption->second->setEnabled(state.enabled);
    }
    ShowRemark(name);
}

void FormView::ShowRemark(std::string_view name)
{
    const auto found = remarkOf.find(name);
    if (found == remarkOf.end()) {
        return;
    }
    const Remark& remark = remarks[found->second];
    QStringList texts;
    for (const State* const state : remark.row) {
        if (const QString text = RemarkText(*state); !text.isEmpty()) {
            texts << text;
        }
    }
    remark.label->setText(texts.join(QStringLiteral("; ")));
    remark.label->setVisible(!texts.isEmpty());
    const bool wrong = !RemarkText(form[name]).isEmpty();
    fields[name]->setStyleSheet(wrong ? QStringLiteral("QLineEdit { border: 1px solid #b00020; }") : QString());
}

}  // namespace linealis::desktop
