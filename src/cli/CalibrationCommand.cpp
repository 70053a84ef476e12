#include "cli/CalibrationCommand.h"

#include "check/Calibration.h"
#include "cli/Commands.h"
#include "cli/Errors.h"
#include "cli/FileNames.h"
#include "cli/Remarks.h"
#include "pipeline/page/PageJob.h"
#include "platform/ScreenlessPlatform.h"

#include <vector>

namespace linealis::cli {

void MakeCalibrationSheet(const std::string& paper, const std::string& output, bool asJson)
{
    const CalibrationPaper* const found = FindCalibrationPaper(paper);
    if (found == nullptr) {
        std::vector<std::string> possible;
        for (const CalibrationPaper& known : CalibrationPapers()) {
            possible.emplace_back(known.name);
        }
        throw Unknown("paper", paper, possible);
    }
    CheckIsNamed(output);
    CheckIsPdf(output);
    CheckRoomForAnswer(asJson, output);
    ScreenlessPlatform platform;
    Turns turns([] {});
    MyPDFGenerator pdf(turns);
    pdf.theFile = OutputFile(output);
    MakePage(CalibrationPage(*found), pdf, turns, {}, platform);
    if (!platform.fileErrors.empty()) {
        throw WorkError{output + ": " + platform.fileErrors.front().reason};
    }
    if (asJson) {
        Print({{"file", output}, {"paper", found->name}});
    }
}

}  // namespace linealis::cli
