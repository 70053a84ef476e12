#include "desktop/dialogs/LengthBox.h"

#include "desktop/system/Text.h"
#include "pdf/Units.h"
#include "pipeline/form/LengthText.h"
#include "text/Numbers.h"

#include <algorithm>
#include <cmath>

namespace linealis::desktop {

LengthBox::LengthBox(bool inInches, double most)
    : isInInches(inInches), pointsPerUnit(inInches ? pointsPerInch : pointsPerMm)
{
    // Fine enough for the thickness of paper.
    setDecimals(isInInches ? 3 : 2);
    setSingleStep(isInInches ? 0.001 : 0.01);
    setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
    setSuffix(isInInches ? QLatin1Char(' ') + Translated("in") : QStringLiteral(" mm"));
    setRange(0.0, most / pointsPerUnit);
}

double LengthBox::Points() const
{
    return value() * pointsPerUnit;
}

void LengthBox::SetPoints(double points)
{
    setValue(points / pointsPerUnit);
}

std::string LengthBox::Text() const
{
    return mystring(value()) + (isInInches ? "in" : "mm");
}

std::optional<double> LengthBox::Read(const QString& text) const
{
    const bool hasOwnUnit = text.endsWith(suffix());  // also behind another one that was typed
    std::string given = text.chopped(hasOwnUnit ? suffix().size() : 0).trimmed().toStdString();
    if (given.empty()) {
        return std::nullopt;
    }
    if (IsDigit(given.back()) || given.back() == '.' || given.back() == ',') {
        given += isInInches ? "in" : "mm";
    }
    const std::optional<double> inches = TypedNumber(given, Quantity::Inches, LengthUnit::Inches);
    if (!inches) {
        return std::nullopt;
    }
    const double places = powersOfTen[static_cast<std::size_t>(decimals())];
    return std::round(*inches * pointsPerInch / pointsPerUnit * places) / places;
}

QValidator::State LengthBox::validate(QString& text, int& /*place*/) const
{
    const std::optional<double> number = Read(text);
    return number && *number >= minimum() && *number <= maximum() ? QValidator::Acceptable
                                                                  : QValidator::Intermediate;
}

double LengthBox::valueFromText(const QString& text) const
{
    return Read(text).value_or(value());
}

QString LengthBox::textFromValue(double number) const
{
    return locale().toString(number, 'f', QLocale::FloatingPointShortest);
}

void LengthBox::fixup(QString& text) const
{
    text = textFromValue(std::clamp(valueFromText(text), minimum(), maximum())) + suffix();
}

}  // namespace linealis::desktop
