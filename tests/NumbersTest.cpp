#include "text/Numbers.h"

#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <locale>
#include <random>
#include <utility>
#include <vector>

namespace linealis::test {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

std::string PrintedDigits(double value, int decimals)
{
    std::array<char, 512> text{};
    std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    return text.data();
}

/// Str by printf, which rounds exactly.
std::string StrByPrintf(double value)
{
    std::array<char, 64> scientific{};
    std::snprintf(scientific.data(), scientific.size(), "%.30e", value);
    const int exponent = std::atoi(std::strchr(scientific.data(), 'e') + 1);
    const int decimals = value == std::trunc(value) ? 0 : std::min(std::max(6 - exponent, 0), 12);
    std::string text = PrintedDigits(value, decimals);
    if (decimals > 0) {
        text.erase(text.find_last_not_of('0') + 1);
        text.erase(text.find_last_not_of('.') + 1);
    }
    return text == "-0" ? "0" : text;
}

TEST(Numbers, ValReadsTheLeadingNumber)
{
    // clang-format off
    const std::vector<std::pair<std::string, double>> cases = {
        {"", 0}, {"abc", 0}, {"0.25", .25}, {".5", .5}, {"5.", 5}, {"1,5", 1.5}, {"  7", 7}, {"-5", -5}, {"+5", 5},
        {"- 5", 0}, {"--5", 0}, {".", 0}, {"-.", 0}, {",", 0}, {"1.2.3", 1.2}, {"1,2,3", 1.2}, {"12abc", 12},
        {"1e3", 1000}, {"1E-2", .01}, {"1e", 1}, {"1e+", 1}, {"1e+2", 100}, {"2.5e1x", 25}, {"e5", 0}, {"0x10", 0},
        {"8 1/2", 8}, {"1'000", 1}, {std::string("1\0002", 3), 1}, {"½", 0}};
    // clang-format on
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(Val(text), value) << "'" << text << "'";
    }
}

TEST(Numbers, ValOutOfRangeIsZero)
{
    EXPECT_EQ(Val("1e308"), 1e308);
    EXPECT_EQ(Val("1.7976931348623157e308"), std::numeric_limits<double>::max());
    for (const char* const text :
         {"nan", "-nan", "inf", "infinity", "1e309", "-1e400", "1e-400", "1e99999999999999999999"}) {
        EXPECT_EQ(Val(text), 0.0) << text;
    }
    EXPECT_EQ(Val(std::string(10000, '9')), 0.0);
    EXPECT_EQ(Val(std::string(10000, '0') + "7.5"), 7.5);
    EXPECT_EQ(Val("7." + std::string(10000, '0')), 7.0);
}

TEST(Numbers, StrAtItsEdges)
{
    // clang-format off
    const std::vector<std::pair<double, std::string>> cases = {
        {0, "0"}, {-0.0, "0"}, {42, "42"}, {-7, "-7"}, {1e15, "1000000000000000"}, {1e22, "10000000000000000000000"},
        {-9007199254740993.0, "-9007199254740992"}, {.25, "0.25"}, {-.5, "-0.5"}, {1.0 / 3, "0.3333333"},
        {2.0 / 3, "0.6666667"}, {.1 + .2, "0.3"}, {240 * 2.54 / 72, "8.466667"}, {.99999999, "1"},
        {infinity, "0"}, {-infinity, "0"}, {notANumber, "0"},
        // Seven digits and no more, but none before the point is lost.
        {99999.99996, "100000"}, {99999.996, "100000"}, {123456.75, "123456.8"}, {123456789.25, "123456789"},
        // Ties as the binary value has them: exact ones go to the even digit, others are none.
        {1234566.5, "1234566"}, {1234567.5, "1234568"}, {123456789.5, "123456790"}, {123456788.5, "123456788"},
        {4194304.5, "4194304"}, {1000.00025, "1000"}, {9.9999995, "9.999999"}, {999999.95, "999999.9"},
        {1.0000005, "1.000001"}, {1.0000015, "1.000001"},
        // At most 12 decimals.
        {1e-12, "0.000000000001"}, {6e-13, "0.000000000001"}, {4e-13, "0"}, {-4e-13, "0"}, {1e-300, "0"},
        {1.23456789e-5, "0.00001234568"}, {1.23456789e-8, "0.000000012346"}};
    // clang-format on
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(Str(value), text) << PrintedDigits(value, 20);
        EXPECT_EQ(mystring(value), text);
    }
    EXPECT_EQ(Str(1e308), PrintedDigits(1e308, 0));
    EXPECT_EQ(Str(-1.7976931348623157e308), PrintedDigits(-1.7976931348623157e308, 0));
}

TEST(Numbers, StrRoundsLikePrintf)
{
    std::mt19937_64 random(20240131);
    std::uniform_real_distribution<double> mantissa(1.0, 10.0);
    std::uniform_int_distribution<int> exponent(-14, 17), decimals(0, 13);
    std::uniform_int_distribution<std::int64_t> sevenDigits(0, 9999999);
    const auto check = [](double value) { ASSERT_EQ(Str(value), StrByPrintf(value)) << PrintedDigits(value, 30); };
    for (int i = 0; i < 50000; ++i) {
        check(mantissa(random) * std::pow(10.0, exponent(random)));
        check(-mantissa(random) * std::pow(10.0, exponent(random)));
        // On, just below and just above what would be a tie in decimal.
        const double tie = (static_cast<double>(sevenDigits(random)) + 0.5) / std::pow(10.0, decimals(random));
        for (const double value : {tie, std::nextafter(tie, 0.0), std::nextafter(tie, infinity)}) {
            check(value);
        }
        if (HasFatalFailure()) {
            return;
        }
    }
    for (int power = -14; power < 300; ++power) {
        const double value = std::pow(10.0, power);
        check(value);
        check(std::nextafter(value, 0.0));
        check(std::nextafter(value, infinity));
    }
}

TEST(Numbers, PatternsPadRoundAndKeepTheSign)
{
    struct Case {
        double value;
        const char* pattern;
        const char* text;
    };
    // clang-format off
    const std::vector<Case> cases = {
        {0, "0.00", "0.00"}, {1, "0.00000", "1.00000"}, {0.5, "0.00000", "0.50000"}, {2.0 / 3, "0.00", "0.67"},
        {0.125, "0.00", "0.12"}, {0.375, "0.00", "0.38"}, {1.005, "0.00", "1.00"}, {0.995, "0.00", "0.99"},
        {2.5, "0", "2"}, {3.5, "0", "4"}, {9.999, "0.00", "10.00"}, {7, "00", "07"}, {123, "00", "123"},
        {2024, "0000", "2024"}, {33, "0000", "0033"}, {9, "0000000000", "0000000009"},
        {1234567890123, "0000000000", "1234567890123"}, {7, "#", "7"}, {12, "###", "12"}, {1234, "###", "1234"},
        {1.5, "-00000.00000000", "00001.50000000"}, {-1.5, "-00000.00000000", "-00001.50000000"},
        {-1.5, "0.00", "-1.50"}, {-3, "00", "-03"}, {-12, "###", "-12"},
        {infinity, "0.00", "0.00"}, {-infinity, "00", "00"}, {notANumber, "0.00000", "0.00000"}};
    // clang-format on
    for (const Case& c : cases) {
        EXPECT_EQ(myformatstring(c.value, c.pattern), c.text) << c.value << " by " << c.pattern;
    }
    EXPECT_EQ(myformatstring(1e308, "0.00"), PrintedDigits(1e308, 2));
}

TEST(Numbers, TruncatedSaturates)
{
    constexpr auto most = std::numeric_limits<std::int64_t>::max(),
                   least = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(truncated(1.999), 1);
    EXPECT_EQ(truncated(-1.999), -1);
    EXPECT_EQ(truncated(9223372036854774784.0), 9223372036854774784);
    EXPECT_EQ(truncated(9223372036854775808.0), most);
    EXPECT_EQ(truncated(infinity), most);
    EXPECT_EQ(truncated(-9223372036854775808.0), least);
    EXPECT_EQ(truncated(-1e300), least);
    EXPECT_EQ(truncated(notANumber), 0);
}

TEST(Numbers, TheMachinesDecimalCommaDoesNotMatter)
{
    struct Comma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const std::locale old = std::locale::global(std::locale(std::locale::classic(), new Comma));
    for (const char* const name : {"de_DE.UTF-8", "fr_FR.UTF-8"}) {
        static_cast<void>(std::setlocale(LC_ALL, name));  // where it is installed
    }
    EXPECT_EQ(Str(1234.5), "1234.5");
    EXPECT_EQ(mystring(1234567.0), "1234567");
    EXPECT_EQ(myformatstring(1234.5, "0.00"), "1234.50");
    EXPECT_EQ(Val("1.5"), 1.5);
    EXPECT_EQ(Val("1,5"), 1.5);
    std::locale::global(old);
    std::setlocale(LC_ALL, "C");
}

}  // namespace
}  // namespace linealis::test
