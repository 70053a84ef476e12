#include "desktop/window/LanguageBox.h"

#include "desktop/system/WindowLanguage.h"

#include <QHBoxLayout>
#include <QLabel>
#include <algorithm>

namespace linealis::desktop {

LanguageBox::LanguageBox(QWidget* parent) : QWidget(parent), languages(new QComboBox)
{
    languages->setObjectName(QStringLiteral("Language"));
    for (const WindowLanguage& language : WindowLanguages()) {
        languages->addItem(language.name, language.code);
    }
    languages->setCurrentIndex(std::max(languages->findData(ChosenLanguage()), 0));
    auto* const caption = new QLabel(tr("&Language:"));
    caption->setBuddy(languages);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(caption);
    row->addWidget(languages, 1);
}

}  // namespace linealis::desktop
