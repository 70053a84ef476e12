#include "desktop/system/Text.h"

#include <QCoreApplication>
#include <QLocale>
#include <algorithm>
#include <limits>

namespace linealis::desktop {

namespace {

/// The language whose translator is installed.
class InstalledTranslation final : public Language {
public:
    std::string Text(std::string_view english) const override
    {
        return QCoreApplication::translate("", std::string(english).c_str()).toStdString();
    }

    std::string Text(std::string_view one, std::string_view many, std::int64_t count) const override
    {
        const std::string source(one);
        const int shown = static_cast<int>(std::min<std::int64_t>(count, std::numeric_limits<int>::max()));
        const QString found = QCoreApplication::translate("", source.c_str(), nullptr, shown);
        return found == ToQt(one) ? Language::Text(one, many, count) : found.toStdString();
    }

    std::string Number(std::string_view withPoint) const override
    {
        return ToQt(withPoint).replace(QLatin1Char('.'), QLocale().decimalPoint()).toStdString();
    }
};

}  // namespace

const Language& LanguageOfWindows()
{
    static const InstalledTranslation language;
    return language;
}

QString ToQt(const Message& message)
{
    return ToQt(message.In(LanguageOfWindows()));
}

QString Translated(std::string_view english)
{
    return ToQt(Message::Listed(english));
}

}  // namespace linealis::desktop
