#include "app/PageCheck.h"

#include "graph/MainWindow.h"
#include "papers/PolarWindow.h"
#include "pdf/Numbers.h"
#include "pipeline/FieldWords.h"
#include "pipeline/PageWords.h"
#include "platform/BinaryStream.h"

#include <algorithm>
#include <cmath>

namespace linealis {

namespace {

constexpr double leastMargin = 18.0;      // points, 6.35 mm: what many printers cannot reach
constexpr double marginTolerance = 0.01;  // points; a margin in centimetres is off by less

class FormChecker {
public:
    FormChecker(const PaperForm& theForm, const PageFrame& theFrame) : form(theForm), frame(theFrame) {}

    PageWarnings Check()
    {
        CheckTexts();
        CheckMargins();
        CheckRoom();
        CheckScale(form.EditXScale);
        CheckScale(form.EditYScale);
        CheckCustomSize();
        if (const auto* const graph = dynamic_cast<const GraphForm*>(&form)) {
            CheckAxis(graph->X(), graph->CheckBoxShowAxes.Value());
            CheckAxis(graph->Y(), graph->CheckBoxShowAxes.Value());
        } else if (const auto* const polar = dynamic_cast<const PolarForm*>(&form)) {
            CheckSpokes(*polar);
        }
        return std::move(warnings);
    }

private:
    void Warn(std::string_view id, const Control& control, const std::string& text)
    {
        warnings.push_back({id, std::string(control.Name()), text});
    }

    void CheckTexts()
    {
        for (const Control* const control : form.Controls()) {
            if (control->Kind() != ControlKind::Text) {
                continue;
            }
            const auto& field = static_cast<const TextField&>(*control);
            if (field.MeansNow() == Meaning::Prose && !field.Remark().empty()) {
                Warn("text", field, WholeName(form, field) + ": " + field.Remark());
            }
        }
    }

    void CheckMargins()
    {
        const struct {
            const TextField& field;
            double points;
        } margins[] = {{form.EditTopMargin, frame.topMargin},
                       {form.EditBottomMargin, frame.bottomMargin},
                       {form.EditLeftMargin, frame.leftMargin},
                       {form.EditRightMargin, frame.rightMargin}};
        const Control* first = nullptr;
        std::string names;
        for (const auto& [field, points] : margins) {
            if (points < leastMargin - marginTolerance) {
                first = first == nullptr ? &field : first;
                names += (names.empty() ? "" : ", ") + WholeName(form, field);
            }
        }
        if (first != nullptr) {
            Warn("margin", *first, names + " under 6.35 mm: many printers do not reach so close to the edge");
        }
    }

    void CheckRoom()
    {
        if (frame.UsableWidth() <= 0.0 || frame.UsableHeight() <= 0.0) {
            warnings.push_back({"room", "", "The margins leave no room on the page"});
            return;
        }
        for (const Control* const control : form.Controls()) {
            const bool isCell =
                control->State().meaning == Meaning::Spacing || control->State().meaning == Meaning::CellSize;
            if (control->Kind() == ControlKind::Text && isCell) {
                CheckCell(static_cast<const TextField&>(*control));
            }
        }
    }

    void CheckCell(const TextField& field)
    {
        const bool isUpright = field.Name() == "EditVertSpacing";
        const bool isFlat = field.Name() == "EditHorzSpacing";
        const double room = isUpright ? frame.UsableHeight()
                            : isFlat  ? frame.UsableWidth()
                                      : std::min(frame.UsableWidth(), frame.UsableHeight());
        const double cell = field.Used() * frame.unitPixels;
        if (cell > room) {
            Warn("cell", field,
                 WholeName(form, field) + " of " + LengthWords(cell, frame) + " is larger than the room of " +
                     LengthWords(room, frame) + " between the margins");
        }
    }

    void CheckScale(const TextField& field)
    {
        if (field.Used() != 100.0) {
            Warn("scale", field,
                 WholeName(form, field) + " is " + Str(field.Used()) + " %: lengths on the page are not true");
        }
    }

    void CheckCustomSize()
    {
        if (form.EditCustomWidth.IsEnabled()) {
            Warn("custom-size", form.EditCustomWidth,
                 "A settings file does not keep a custom paper size, " + PaperWords(frame));
        }
        constexpr std::int64_t largestPaper = 14400;  // points: ISO 32000-1, annex C
        if (std::max(frame.paperWidth, frame.paperHeight) > largestPaper) {
            Warn("paper-size", form.EditCustomWidth,
                 "The paper of " + PaperWords(frame) + " is larger than 200 by 200 in, which many readers refuse");
        }
    }

    /// Majors stand on multiples of their step from the value 0, numbers on multiples of theirs from the minimum.
    void CheckAxis(const ConstAxisFields& axis, bool hasNumbers)
    {
        const double step = axis.axis.step.Used();
        if (axis.grid.type.ListIndex() != linear || step == 0.0) {
            return;
        }
        const double lines = axis.axis.minimum.Used() / step;  // from 0 to the first line
        const double major = axis.grid.major.Used();
        if (std::abs(lines - std::round(lines)) > 1e-6) {
            Warn("phase", axis.axis.minimum,
                 WholeName(form, axis.axis.minimum) + " is no whole number of steps from 0: no line stands at 0");
        } else if (const double numbers = axis.axis.spacing.Used(); hasNumbers && major >= 1.0 && numbers >= 1.0 &&
                                                                    std::fmod(numbers, major) != 0.0 &&
                                                                    std::fmod(major, numbers) != 0.0) {
            Warn("phase", axis.axis.spacing,
                 WholeName(form, axis.axis.spacing) + ": numbers at every " + Str(numbers) +
                     " lines and heavy lines at every " + Str(major) + " do not meet");
        }
    }

    void CheckSpokes(const PolarForm& polar)
    {
        const double spokes = polar.EditNumSpokes.Used();
        const double minor = polar.EditNumMinorSpokes.Used();
        if (spokes >= 1.0 && minor >= 1.0 && std::fmod(minor, spokes) != 0.0) {
            Warn("phase", polar.EditNumMinorSpokes,
                 Str(minor) + " minor spokes do not meet " + Str(spokes) + " spokes");
        }
    }

    const PaperForm& form;
    const PageFrame& frame;
    PageWarnings warnings;
};

}  // namespace

PageWarnings FormWarnings(const PaperForm& form, const PageFrame& frame)
{
    return FormChecker(form, frame).Check();
}

PageWarnings MarkerWarnings(const PaperForm& form, const FolderItem& file)
{
    const auto* const graph = dynamic_cast<const GraphForm*>(&form);
    if (graph == nullptr || file.IsEmpty()) {
        return {};
    }
    const CheckBox& box = graph->CheckBoxMarkers;
    PageWarnings warnings;
    const auto warnIf = [&](bool isWrong, const char* text) {
        if (isWrong) {
            warnings.push_back({"markers", std::string(box.Name()), text});
        }
    };
    warnIf(!box.Value(), "There are no markers, since Add Markers is off");
    if (!box.Value()) {
        return warnings;
    }
    const std::string text = file.OpenAsBinaryFile().Read(BinaryStream::longestField);
    const auto has = [&](char c) { return text.find(c) != std::string::npos; };
    warnIf(has('\t'), "The marker file holds tabs; single blanks part its fields");
    warnIf(has(','), "The marker file holds commas, which are decimal marks; single blanks part its fields");
    warnIf(has('\0') || text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"),
           "The marker file is in another encoding than UTF-8");
    return warnings;
}

}  // namespace linealis
