#pragma once

#include "platform/Color.h"

#include <QAbstractButton>

namespace linealis::desktop {

/// Shows a color in a black frame. The user clicks it to choose another color.
class ColorSwatch final : public QAbstractButton {
    Q_OBJECT

public:
    explicit ColorSwatch(QWidget* parent = nullptr);

    void SetColor(Color newColor);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Color color;
};

}  // namespace linealis::desktop
