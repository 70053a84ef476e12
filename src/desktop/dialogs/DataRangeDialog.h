#pragma once

#include "pipeline/document/Paper.h"

#include <QDialog>
#include <functional>

class QDialogButtonBox;
class QLabel;

namespace linealis::desktop {

/// Asks for the ranges of data that a graph should show. Says what the axes will be, or why they cannot be, and
/// calls `onChange` at every entry, so that the caller can show the page meanwhile.
class DataRangeDialog final : public QDialog {
    Q_OBJECT

public:
    DataRangeDialog(RangeWizard& theWizard, std::function<void()> onChange, QWidget* parent);

private:
    void ShowOutcome();

    RangeWizard& wizard;
    QLabel* outcome;
    QDialogButtonBox* buttons;
};

}  // namespace linealis::desktop
