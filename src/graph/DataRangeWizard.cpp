#include "graph/DataRangeWizard.h"

#include "text/Numbers.h"
#include "text/ShortText.h"

#include <cmath>

namespace linealis {

namespace {

bool IsBlank(const std::string& text)
{
    return text.find_first_not_of(" \t") == std::string::npos;
}

}  // namespace

DataRangeWizard::RangeRow::RangeRow(Form& form, AxisName axis)
    : minimum{form,
              Group::Spacing,
              axis == AxisName::x ? "EditMinX" : "EditMinY",
              axis == AxisName::x ? "min-x" : "min-y",
              axis == AxisName::x ? "X from:" : "Y from:",
              "",
              {.meaning = Meaning::RangeEnd,
               .fullName = axis == AxisName::x ? "Smallest X value" : "Smallest Y value"}},
      maximum{form,
              Group::Spacing,
              axis == AxisName::x ? "EditMaxX" : "EditMaxY",
              axis == AxisName::x ? "max-x" : "max-y",
              "to:",
              "",
              {.beside = true,
               .meaning = Meaning::RangeEnd,
               .fullName = axis == AxisName::x ? "Largest X value" : "Largest Y value"}},
      isLog{form,
            Group::Spacing,
            axis == AxisName::x ? "CheckLogX" : "CheckLogY",
            axis == AxisName::x ? "log-x" : "log-y",
            "Logarithmic",
            false,
            {.beside = true, .fullName = axis == AxisName::x ? "Logarithmic X axis" : "Logarithmic Y axis"}}
{}

bool DataRangeWizard::RangeRow::IsEmpty() const
{
    return IsBlank(minimum.Text()) && IsBlank(maximum.Text());
}

template <typename Use>
void DataRangeWizard::ForEachRange(const Use& use) const
{
    if (!form.x.IsEmpty()) {
        use(AxisName::x, form.x);
    }
    if (!form.y.IsEmpty()) {
        use(AxisName::y, form.y);
    }
}

DataRangeWizard::Entered DataRangeWizard::ShownBy(const AxisFields& fields)
{
    return {fields.axis.minimum.Text(), fields.axis.maximum.Text(), fields.grid.type.ListIndex()};
}

void DataRangeWizard::Suggest(RangeRow& row, const AxisFields& fields, const Entered& entered)
{
    const Entered shown = ShownBy(fields);
    if (shown == entered) {
        return;
    }
    const auto type = static_cast<AxisType>(shown.type);
    const bool isOther = !IsLog(type) && type != linear;
    row.isLog.SetValue(IsLog(type));
    row.minimum.SetText(isOther ? "" : IsLog(type) ? "1" : shown.minimum);
    row.maximum.SetText(isOther ? "" : IsLog(type) ? Str(std::pow(10.0, type)) : shown.maximum);
}

void DataRangeWizard::Begin()
{
    Suggest(form.x, graph.X(), enteredX);
    Suggest(form.y, graph.Y(), enteredY);
}

AxisFitOrProblem DataRangeWizard::Fit(const RangeRow& row, AxisName axis) const
{
    for (const auto& [field, end] :
         {std::pair(&row.minimum, Message("minimum")), std::pair(&row.maximum, Message("maximum"))}) {
        if (!IsNumber(field->Text())) {
            return RangeProblem{
                axis == AxisName::x
                    ? Message("the %1 of the X range must be a number, not '%2'", end, Shortened(field->Text()))
                    : Message("the %1 of the Y range must be a number, not '%2'", end, Shortened(field->Text()))};
        }
    }
    const DataRange range{row.minimum.Number(), row.maximum.Number(), row.isLog.Value()};
    return FitAxis(range, static_cast<Fineness>(form.fineness.ListIndex()), RoomOf(graph, axis));
}

Message DataRangeWizard::Problem() const
{
    Message problem =
        form.x.IsEmpty() && form.y.IsEmpty() ? Message("enter the range of at least one axis") : Message();
    ForEachRange([&](AxisName axis, const RangeRow& row) {
        const AxisFitOrProblem fit = Fit(row, axis);
        if (const auto* const found = std::get_if<RangeProblem>(&fit); found != nullptr && problem.IsEmpty()) {
            problem = found->sentence;
        }
    });
    return problem;
}

Message DataRangeWizard::Outcome() const
{
    std::vector<Message> words;
    ForEachRange([&](AxisName axis, const RangeRow& row) {
        const AxisFitOrProblem fit = Fit(row, axis);
        if (const auto* const found = std::get_if<AxisFit>(&fit)) {
            words.push_back(WordsOf(*found, RoomOf(graph, axis)));
        }
    });
    return Message::Joined(std::move(words), "\n");
}

void DataRangeWizard::PushButton1_Action()
{
    if (!Problem().IsEmpty()) {
        return;
    }
    ForEachRange([&](AxisName axis, const RangeRow& row) {
        const AxisFields fields = axis == AxisName::x ? graph.X() : graph.Y();
        EnterFit(std::get<AxisFit>(Fit(row, axis)), fields);
        (axis == AxisName::x ? enteredX : enteredY) = ShownBy(fields);
    });
}

std::unique_ptr<RangeWizard> MakeRangeWizard(GraphForm& form)
{
    return std::make_unique<DataRangeWizard>(form);
}

}  // namespace linealis
