#include "desktop/system/WindowLanguage.h"

#include "desktop/system/Text.h"
#include "desktop/system/WindowSettings.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <algorithm>

namespace linealis::desktop {

namespace {

constexpr const char* languageKey = "language";
const QString folderOfTranslations = QStringLiteral(":/translations");

QString installed = QStringLiteral("en");  // a code

/// A translation from one flat catalog, which has no contexts: the name of the class that shows a text does not
/// matter.
class CatalogTranslator final : public QTranslator {
public:
    QString translate(const char* /*context*/, const char* english, const char* /*comment*/,
                      int count) const override
    {
        return QTranslator::translate("", english, nullptr, count);
    }
};

/// Returns the name of a language in itself, which its translation has in place of "English".
QString NameOfLanguage(const QString& code)
{
    CatalogTranslator translator;
    return !translator.load(code, folderOfTranslations)
               ? code
               : translator.translate("", std::string(Phrase("English").Text()).c_str(), nullptr, -1);
}

/// Returns the codes of the languages that the program is translated into.
QStringList TranslatedLanguages()
{
    QStringList codes;
    for (const QString& file : QDir(folderOfTranslations).entryList({QStringLiteral("*.qm")})) {
        codes << file.chopped(3);
    }
    return codes;
}

/// Installs a translation in place of an earlier one, or none if there is no such file.
void Install(QTranslator& translator, const QString& file, const QString& folder)
{
    QCoreApplication::removeTranslator(&translator);
    if (translator.load(file, folder)) {
        QCoreApplication::installTranslator(&translator);
    }
}

}  // namespace

std::vector<WindowLanguage> WindowLanguages()
{
    std::vector<WindowLanguage> languages = {{QStringLiteral("en"), QStringLiteral("English")}};
    for (const QString& code : TranslatedLanguages()) {
        languages.push_back({code, NameOfLanguage(code)});
    }
    std::sort(languages.begin(), languages.end(), [](const WindowLanguage& a, const WindowLanguage& b) {
        return a.name.localeAwareCompare(b.name) < 0;
    });
    languages.insert(languages.begin(), {{}, Translated("Language of the system")});
    return languages;
}

QString ChosenLanguage()
{
    return WindowSettings().value(QLatin1String(languageKey)).toString();
}

void ChooseLanguage(const QString& code)
{
    WindowSettings().setValue(QLatin1String(languageKey), code);
}

QString LanguageFor(const QStringList& wanted)
{
    const QStringList translated = TranslatedLanguages();
    for (const QString& name : wanted) {
        const QLocale locale(name);
        if (locale.language() == QLocale::English || locale.language() == QLocale::C) {
            break;
        }
        if (translated.contains(locale.name())) {
            return locale.name();
        }
        for (const QString& code : translated) {
            if (QLocale(code).language() == locale.language()) {
                return code;
            }
        }
    }
    return QStringLiteral("en");
}

QString InstalledLanguage()
{
    return installed;
}

void InstallLanguage()
{
    static QTranslator ofQt;  // buttons of dialogs
    static CatalogTranslator ofProgram;
    const QString chosen = ChosenLanguage();
    const QLocale system = QLocale::system();
    installed = LanguageFor(chosen.isEmpty() ? system.uiLanguages() : QStringList{chosen});
    QLocale::setDefault(chosen.isEmpty() ? system : QLocale(chosen));
    Install(ofQt, QStringLiteral("qtbase_") + installed, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    Install(ofProgram, installed, folderOfTranslations);
}

}  // namespace linealis::desktop
