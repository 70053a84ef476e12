#pragma once

#include <QDoubleSpinBox>
#include <QString>
#include <optional>

namespace linealis::desktop {

/// A length in millimeters or inches. Takes what the fields of forms take: "5", "5mm", "1/4in", "1/8". A length
/// that is too large becomes the largest; a text that is none becomes the last length.
class LengthBox final : public QDoubleSpinBox {
    Q_OBJECT

public:
    /// From 0 to `most` points.
    LengthBox(bool inInches, double most);

    double Points() const;
    void SetPoints(double points);
    /// Returns the length with its unit and a decimal point: "0.1mm".
    std::string Text() const;

    QValidator::State validate(QString& text, int& place) const override;
    double valueFromText(const QString& text) const override;
    QString textFromValue(double number) const override;
    void fixup(QString& text) const override;

private:
    /// Returns the number in the unit of the box, or nothing if the text is no length.
    std::optional<double> Read(const QString& text) const;

    bool isInInches;
    double pointsPerUnit;
};

}  // namespace linealis::desktop
