// Fuzzes texts in other encodings, and pictures that may carry a text. The characters of a text add up to the whole
// text.

#include "Fuzz.h"
#include "exchange/CarriedText.h"
#include "text/MacRoman.h"

using namespace linealis;
using namespace linealis::fuzz;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = Input(data, size).All();
    std::string whole;
    for (const std::string_view character : Characters(text)) {
        Require(!character.empty());
        whole += character;
    }
    Require(whole == text && Characters(text).size() == CharacterCount(text));
    const std::string bytes = ToMacRoman(text);
    Require(bytes.size() == CharacterCount(text));
    if (IsInMacRoman(text)) {
        Require(FromMacRoman(bytes) == text);
    }
    FromMacRoman(text);
    Require(XmlText(text).find('<') == std::string::npos);
    TextInPicture(text);
    TextInPicture(std::string("\x89PNG\r\n\x1A\n") + std::string(text));
    return 0;
}
