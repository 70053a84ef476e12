#pragma once

#include <QLabel>

namespace linealis::desktop {

/// A text that makes do with less room than it needs, cut where `mode` says.
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
