#pragma once

#include <QComboBox>

namespace linealis::desktop {

/// The choice of the language of the windows. Shows the current choice; the caller applies another one.
class LanguageBox final : public QWidget {
    Q_OBJECT

public:
    explicit LanguageBox(QWidget* parent = nullptr);

    /// Returns the code of the selected language (see WindowLanguage).
    QString Code() const { return languages->currentData().toString(); }

private:
    QComboBox* languages;
};

}  // namespace linealis::desktop
