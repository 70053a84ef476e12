#pragma once

#include "pipeline/PaperWindow.h"

#include <cstdint>
#include <string_view>

namespace linealis {

/// Cornell note paper: a cue column, a ruled note column and a summary box, under a header of four labelled boxes.
class CornellWindow final : public PaperWindow {
public:
    static constexpr FileType settingsType{"Setc", "setc"};

    explicit CornellWindow(Platform& thePlatform);

    void Event_Open() override;

protected:
    void ReadOwnValues() override;
    void DoGraph() override;

private:
    struct Span {
        double from;
        double to;
    };

    void CheckBoxTopicArea_Action();
    double Share(std::string_view field);
    void DrawHeader();
    /// A box `drop` points below the header's top, with its caption and the value of its field.
    void DrawHeaderBox(Span across, double topY, double drop, std::string_view caption, std::string_view field,
                       double valueOffset);
    void DrawBox(double left, double bottom, double right, double top);
    /// A box that counts from the left and the bottom margin.
    void DrawArea(Span across, Span up);
    void DrawRuling(Span across, Span up, double lineSpace);

    double LineThicknessHorz = 0.0;  ///< points; of the ruling
    double LineThicknessCue = 0.0;   ///< points; of the boxes
};

}  // namespace linealis
