#include "desktop/dialogs/DataRangeDialog.h"

#include "desktop/dialogs/DialogColumn.h"
#include "desktop/form/FormView.h"
#include "desktop/system/Text.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

namespace linealis::desktop {

DataRangeDialog::DataRangeDialog(RangeWizard& theWizard, std::function<void()> onChange, QWidget* parent)
    : QDialog(parent), wizard(theWizard), outcome(new QLabel),
      buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setWindowTitle(tr("From Data Range"));
    auto* const layout = MakeDialogColumn(*this);
    auto* const fields = new FormView(wizard.Fields(), GroupBoxes::none, [](Swatch&) {});
    fields->layout()->setContentsMargins(0, 0, 0, 0);  // those of the dialog are enough
    layout->addWidget(fields);
    outcome->setObjectName(QStringLiteral("DataRangeOutcome"));
    outcome->setTextFormat(Qt::PlainText);
    outcome->setWordWrap(true);
    outcome->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // Room for the longest texts, so that the dialog keeps its size while the user types.
    constexpr int lines = 4, characters = 66;
    outcome->setFixedHeight(lines * outcome->fontMetrics().lineSpacing());
    outcome->setMinimumWidth(characters * outcome->fontMetrics().averageCharWidth());
    layout->addWidget(outcome);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(fields, &FormView::Changed, this, [this, changed = std::move(onChange)] {
        ShowOutcome();
        changed();
    });
    layout->setSizeConstraint(QLayout::SetFixedSize);
    ShowOutcome();
}

void DataRangeDialog::ShowOutcome()
{
    QString problem = ToQt(wizard.Problem());
    const bool isPossible = problem.isEmpty();
    if (!isPossible) {
        problem[0] = problem[0].toUpper();
    }
    outcome->setText(isPossible ? ToQt(wizard.Outcome()) : problem);
    buttons->button(QDialogButtonBox::Ok)->setEnabled(isPossible);
}

}  // namespace linealis::desktop
