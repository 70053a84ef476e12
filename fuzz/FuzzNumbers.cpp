// Fuzzes reading and writing of numbers. Numbers read from text are always finite, and written numbers read back
// within their precision.

#include "Fuzz.h"
#include "pipeline/form/LengthText.h"
#include "text/Numbers.h"

#include <array>
#include <cmath>
#include <cstring>

using namespace linealis;
using namespace linealis::fuzz;

namespace {

void Check(double value, std::string_view pattern)
{
    const std::string text = Str(value);
    Require(!text.empty() && text.size() < 340 && text.find_first_not_of("-.0123456789") == std::string::npos);
    Require(std::isfinite(Val(text)));
    if (std::isfinite(value) && std::abs(value) >= 1e-3 && std::abs(value) < 1e15) {
        Require(std::abs(Val(text) - value) <= std::abs(value) * 1e-6);
    }
    Require(mystring(value).find("nan") == std::string::npos);
    myformatstring(value, pattern);
    std::array<char, 400> plain{};
    Require(WritePlainNumber(plain.data(), value) < plain.data() + plain.size());
    truncated(value);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    double bits = 0.0;
    std::array<std::uint8_t, sizeof bits> bytes{};
    for (std::uint8_t& byte : bytes) {
        byte = input.Byte();
    }
    std::memcpy(&bits, bytes.data(), bytes.size());
    const std::string_view pattern = input.Line(), text = input.All();
    const double value = Val(text);
    Require(std::isfinite(value));
    Check(value, pattern);
    Check(std::isfinite(bits) ? bits : 0.0, pattern);
    IsNumber(text);
    return 0;
}
