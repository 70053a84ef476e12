#include "core/PageLanguage.h"

#include <algorithm>

namespace linealis::web {

void PageLanguage::Become(const Json& language)
{
    texts.clear();
    for (const auto& [english, translated] : language.at("texts").items()) {
        texts[english] = translated.is_array() ? translated.get<std::vector<std::string>>()
                                               : std::vector<std::string>{translated.get<std::string>()};
    }
    plurals = language.at("plurals");
    decimalMark = language.at("decimalMark");
}

std::string PageLanguage::Text(std::string_view english) const
{
    const auto found = texts.find(english);
    return found == texts.end() ? Language::Text(english) : found->second.front();
}

std::string PageLanguage::Text(std::string_view one, std::string_view many, std::int64_t count) const
{
    const auto found = texts.find(one);
    if (found == texts.end() || count < 0) {
        return Language::Text(one, many, count);
    }
    // No language looks at more than the last two digits of a large count.
    const auto place = static_cast<std::size_t>(count < 200 ? count : 100 + count % 100);
    const std::size_t form = place < plurals.size() ? static_cast<std::size_t>(plurals[place] - '0') : 0;
    return found->second[std::min(form, found->second.size() - 1)];
}

std::string PageLanguage::Number(std::string_view withPoint) const
{
    std::string number(withPoint);
    if (const std::size_t point = number.find('.'); point != std::string::npos) {
        number.replace(point, 1, decimalMark);
    }
    return number;
}

}  // namespace linealis::web
