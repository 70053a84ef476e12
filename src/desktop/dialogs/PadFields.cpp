#include "desktop/dialogs/PadFields.h"

#include "desktop/dialogs/LengthBox.h"
#include "desktop/system/Text.h"
#include "desktop/system/WindowSettings.h"
#include "kinds/Booklet.h"
#include "kinds/PadSheet.h"
#include "kinds/Poster.h"
#include "pdf/Units.h"
#include "pipeline/page/PaperSizes.h"

#include <QDate>
#include <QLabel>
#include <algorithm>
#include <utility>

namespace linealis::desktop {

namespace {

// What the settings call the fields.
const QString productKey = QStringLiteral("pad/product");
const QString pagesKey = QStringLiteral("pad/pages");
const QString upKey = QStringLiteral("pad/up");
const QString numbersKey = QStringLiteral("pad/numbers");
const QString datesKey = QStringLiteral("pad/dates");
const QString firstDateKey = QStringLiteral("pad/firstDate");
const QString creepKey = QStringLiteral("pad/creep");
const QString paperKey = QStringLiteral("pad/paper");
const QString overlapKey = QStringLiteral("pad/overlap");
const QString copiesKey = QStringLiteral("pad/copies");

constexpr double usualOverlapMm = 10.0, usualOverlapInches = 0.4;

/// Chooses the item with the data. Chooses the first if there is none.
void ChooseData(QComboBox& box, const QVariant& data)
{
    box.setCurrentIndex(std::max(box.findData(data), 0));
}

/// Lets the width of the list not depend on the choice.
void FixWidth(QComboBox& box)
{
    constexpr int usualTitle = 24;  // characters
    box.setMinimumContentsLength(usualTitle);
    box.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

}  // namespace

PadFields::PadFields(QComboBox& front, QComboBox& back, QComboBox& preset, bool inInches)
    : creep(new LengthBox(inInches, mostCreep)), overlap(new LengthBox(inInches, mostOverlap))
{
    constexpr int spacing = 8;  // pixels
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(spacing);
    grid->setColumnStretch(1, 1);
    overlap->SetPoints(inInches ? usualOverlapInches * pointsPerInch : usualOverlapMm * pointsPerMm);
    FillLists();
    for (QComboBox* const box : {product, &front, up, &back, &preset, paper}) {
        FixWidth(*box);
    }
    AddRow(tr("&Make:"), product, "PadMake", always);
    AddPageRows(front);
    AddOtherRows(back, preset);
    AddRow(tr("&Copies:"), copies, "PadCopies", always);
    grid->setRowStretch(grid->rowCount(), 1);
    ReserveRoom();
    ChooseData(*paper, inInches ? QStringLiteral("Letter") : QStringLiteral("A4"));
    Restore();
    ShowRows();
    connect(product, &QComboBox::currentIndexChanged, this, [this] {
        ShowRows();
        emit Changed();
    });
    for (QSpinBox* const box : {pages, copies}) {
        connect(box, &QSpinBox::valueChanged, this, &PadFields::Changed);
    }
    for (QComboBox* const box : {up, paper}) {
        connect(box, &QComboBox::currentIndexChanged, this, &PadFields::Changed);
    }
    for (LengthBox* const box : {creep, overlap}) {
        connect(box, &QDoubleSpinBox::valueChanged, this, &PadFields::Changed);
    }
    connect(numbers, &QCheckBox::toggled, this, &PadFields::Changed);
    connect(dates, &QCheckBox::toggled, this, &PadFields::Changed);
    connect(firstDate, &QDateEdit::dateChanged, this, &PadFields::Changed);
}

void PadFields::FillLists()
{
    product->addItem(tr("Pad"), QStringLiteral("pad"));
    product->addItem(tr("Booklet"), QStringLiteral("booklet"));
    product->addItem(tr("Poster"), QStringLiteral("poster"));
    for (const std::size_t count : possiblePagesUp) {
        const auto number = static_cast<int>(count);
        up->addItem(number == 1 ? tr("1 page") : tr("%1 pages, with cut marks").arg(number), number);
    }
    for (const NamedPaper& each : NamedPapers()) {
        paper->addItem(Translated(each.name), ToQt(each.name));
    }
}

void PadFields::AddRow(const QString& caption, QWidget* field, const char* name, Shown shown)
{
    field->setObjectName(QString::fromLatin1(name));
    auto* const label = new QLabel(caption);
    label->setBuddy(field);
    AddRow(label, field, shown);
}

void PadFields::AddRow(QWidget* caption, QWidget* field, Shown shown)
{
    const int row = grid->rowCount();
    if (caption != nullptr) {
        grid->addWidget(caption, row, 0, Qt::AlignRight | Qt::AlignVCenter);
    }
    grid->addWidget(field, row, 1);
    rows.push_back({caption, field, shown});
}

void PadFields::AddPageRows(QComboBox& front)
{
    AddRow(tr("&Front:"), &front, "PadFront", unlessPoster);
    pages->setRange(1, mostPadPages);
    AddRow(tr("&Pages:"), pages, "PadPages", unlessPoster);
    AddRow(tr("On each &side:"), up, "PadUp", onlyPad);
    numbers->setObjectName(QStringLiteral("PadNumbers"));
    numbers->setText(tr("&Number the pages"));
    numbers->setToolTip(tr("In the order of the stacks after cutting"));
    AddRow(nullptr, numbers, unlessPoster);
    dates->setObjectName(QStringLiteral("PadDates"));
    dates->setText(tr("&Dates from:"));
    dates->setToolTip(tr("Writes a date on each page, a day later than on the one before"));
    firstDate->setObjectName(QStringLiteral("PadFirstDate"));
    firstDate->setAccessibleName(tr("Date of the first page"));
    firstDate->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));  // as on the page
    firstDate->setCalendarPopup(true);
    firstDate->setEnabled(false);
    connect(dates, &QCheckBox::toggled, firstDate, &QWidget::setEnabled);
    AddRow(dates, firstDate, unlessPoster);
}

void PadFields::AddOtherRows(QComboBox& back, QComboBox& preset)
{
    AddRow(tr("&Back:"), &back, "PadBack", onlyPad);
    AddRow(tr("P&reset:"), &preset, "PadPreset", onlyPad);
    creep->setToolTip(tr("The thickness of the paper; keeps the outer margins equal after trimming"));
    AddRow(tr("Cr&eep:"), creep, "PadCreep", onlyBooklet);
    AddRow(tr("S&heets of:"), paper, "PadPaper", onlyPoster);
    overlap->setToolTip(tr("The strip that two neighboring sheets share, to glue them together"));
    AddRow(tr("&Overlap:"), overlap, "PadOverlap", onlyPoster);
    copies->setRange(1, mostPadCopies);
}

void PadFields::ReserveRoom()
{
    int widest = 0;
    for (const Row& row : rows) {
        widest = row.caption == nullptr ? widest : std::max(widest, row.caption->sizeHint().width());
    }
    grid->setColumnMinimumWidth(0, widest);
    QSize room;
    for (int each = 0; each < product->count(); ++each) {
        product->setCurrentIndex(each);
        ShowRows();
        grid->activate();
        room = room.expandedTo(grid->totalMinimumSize()).expandedTo(grid->totalSizeHint());
    }
    setMinimumSize(room);
}

void PadFields::ShowRows()
{
    const PadProduct made = Product();
    for (const Row& row : rows) {
        const bool isShown = row.shown == always || (row.shown == unlessPoster && made != PadProduct::Poster) ||
                             (row.shown == onlyPad && made == PadProduct::Pad) ||
                             (row.shown == onlyBooklet && made == PadProduct::Booklet) ||
                             (row.shown == onlyPoster && made == PadProduct::Poster);
        row.field->setVisible(isShown);
        if (row.caption != nullptr) {
            row.caption->setVisible(isShown);
        }
    }
}

PadProduct PadFields::Product() const
{
    return static_cast<PadProduct>(product->currentIndex());
}

PadOptions PadFields::Options() const
{
    PadOptions options;
    options.copies = static_cast<std::size_t>(copies->value());
    if (Product() == PadProduct::Poster) {
        options.poster = paper->currentData().toString().toStdString();
        options.overlap = overlap->Text();
        return options;
    }
    options.pages = static_cast<std::size_t>(pages->value());
    options.hasNumbers = numbers->isChecked();
    if (dates->isChecked()) {
        options.firstDate = firstDate->date().toString(Qt::ISODate).toStdString();
    }
    if (Product() == PadProduct::Booklet) {
        options.isBooklet = true;
        options.creep = creep->Text();
    } else {
        options.up = static_cast<std::size_t>(up->currentData().toInt());
    }
    return options;
}

void PadFields::ProposePages(std::size_t rowsOfTable)
{
    if (rowsOfTable > 0) {
        pagesOfForm = pagesOfForm == 0 ? pages->value() : pagesOfForm;
        pages->setValue(static_cast<int>(rowsOfTable));
    } else if (const int before = std::exchange(pagesOfForm, 0); before > 0) {
        pages->setValue(before);
    }
}

void PadFields::Keep() const
{
    WindowSettings settings;
    settings.setValue(productKey, product->currentData());
    settings.setValue(pagesKey, pagesOfForm > 0 ? pagesOfForm : pages->value());
    settings.setValue(upKey, up->currentData());
    settings.setValue(numbersKey, numbers->isChecked());
    settings.setValue(datesKey, dates->isChecked());
    settings.setValue(firstDateKey, firstDate->date());
    settings.setValue(creepKey, creep->Points());
    settings.setValue(paperKey, paper->currentData());
    settings.setValue(overlapKey, overlap->Points());
    settings.setValue(copiesKey, copies->value());
}

void PadFields::Restore()
{
    const WindowSettings settings;
    ChooseData(*product, settings.value(productKey));
    pages->setValue(settings.value(pagesKey, static_cast<int>(PadLayout().pages)).toInt());
    ChooseData(*up, settings.value(upKey, 1));
    numbers->setChecked(settings.value(numbersKey).toBool());
    dates->setChecked(settings.value(datesKey).toBool());
    // A date that has passed is of no use.
    firstDate->setDate(std::max(settings.value(firstDateKey).toDate(), QDate::currentDate()));
    creep->SetPoints(settings.value(creepKey, 0.0).toDouble());
    ChooseData(*paper, settings.value(paperKey, paper->currentData()));
    overlap->SetPoints(settings.value(overlapKey, overlap->Points()).toDouble());
    copies->setValue(settings.value(copiesKey, 1).toInt());
}

}  // namespace linealis::desktop
