#pragma once

#include "pipeline/PaperForm.h"

namespace linealis {

class MainWindow;

/// A small dialog that fills the graph form from the range of the data and the spacing of the lines, all in the
/// axes' own values. Keeps what it last held.
class EasyGraphWizard {
public:
    PaperForm form;

    explicit EasyGraphWizard(MainWindow& graph);

    /// OK: fills the graph form.
    void PushButton1_Action();
    /// Cancel: changes nothing.
    void PushButton2_Action() {}

private:
    void CalcValues();
    /// Lines per point into lines per unit of the graph form.
    double ConvertToUnits(double linesPerPoint) const;

    MainWindow& window;
};

}  // namespace linealis
