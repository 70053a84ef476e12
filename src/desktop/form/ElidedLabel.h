#pragma once

#include <QLabel>

namespace linealis::desktop {

/// A label that can be narrower than its text. It then cuts the text at the place that `mode` says and shows an
/// ellipsis there.
class ElidedLabel final : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(Qt::TextElideMode mode);

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Qt::TextElideMode elideMode;
};

}  // namespace linealis::desktop
