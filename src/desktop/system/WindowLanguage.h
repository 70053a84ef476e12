#pragma once

#include <QStringList>
#include <vector>

namespace linealis::desktop {

/// A language of the windows.
struct WindowLanguage {
    QString code;  ///< "de", "pt_BR"; empty: the language of the system
    QString name;  ///< in the language itself
};

/// Returns the language of the system, English, and the languages that this program is translated into, by name.
std::vector<WindowLanguage> WindowLanguages();

/// Returns the code of the language that the user has chosen; empty for that of the system.
QString ChosenLanguage();

/// Returns the code of the first of the languages, given by name in order of preference, that is English or has a
/// translation; a translation for another country counts. English if there is none.
QString LanguageFor(const QStringList& wanted);

/// Returns the code of the language that InstallLanguage has installed: "en", "de", "pt_BR".
QString InstalledLanguage();

/// Remembers the user's choice. InstallLanguage applies it.
void ChooseLanguage(const QString& code);

/// Shows windows that are created from now on in the chosen language, and numbers with its decimal mark. A language
/// that the program has no translation into is English.
void InstallLanguage();

}  // namespace linealis::desktop
