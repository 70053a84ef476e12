#include "desktop/system/WindowLanguage.h"

#include "desktop/system/Text.h"
#include "desktop/system/WindowSettings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <algorithm>
#include <array>

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

/// Returns the locale of the windows: the chosen one, or the first of the system's languages that is English or has
/// a translation.
QLocale LocaleOfWindows()
{
    if (const QString chosen = ChosenLanguage(); !chosen.isEmpty()) {
        return QLocale(chosen);
    }
    return QLocale::system();
}

/// Loads a translation for the locale: from its exact name to its language alone, as Qt looks for files.
template <typename Translator>
void Install(Translator& translator, const QLocale& locale, const QString& name, const QString& prefix,
             const QString& folder)
{
    QCoreApplication::removeTranslator(&translator);
    if (translator.load(locale, name, prefix, folder)) {
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

QString InstalledLanguage()
{
    return installed;
}

void InstallLanguage()
{
    static QTranslator ofQt;  // buttons of dialogs
    static CatalogTranslator ofProgram;
    const QLocale locale = LocaleOfWindows();
    QLocale::setDefault(locale);
    Install(ofQt, locale, QStringLiteral("qtbase"), QStringLiteral("_"),
            QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    Install(ofProgram, locale, {}, {}, folderOfTranslations);
    installed = ofProgram.isEmpty() ? QStringLiteral("en") : QFileInfo(ofProgram.filePath()).completeBaseName();
}

}  // namespace linealis::desktop
