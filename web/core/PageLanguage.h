#pragma once

#include "exchange/FormJson.h"
#include "text/Message.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace linealis::web {

/// The language of the page, whose translated texts the page hands over. English until then.
class PageLanguage final : public Language {
public:
    /// Takes over another language, as the request "language" has it: the translations of "texts", a list for a
    /// text that depends on a count; for the counts 0 to 199, the number of the form of the text in "plurals", a
    /// digit each; and the "decimalMark".
    void Become(const Json& language);

    std::string Text(std::string_view english) const override;
    std::string Text(std::string_view one, std::string_view many, std::int64_t count) const override;
    std::string Number(std::string_view withPoint) const override;

private:
    std::map<std::string, std::vector<std::string>, std::less<>> texts;  ///< by English text
    std::string plurals;
    std::string decimalMark = ".";
};

}  // namespace linealis::web
