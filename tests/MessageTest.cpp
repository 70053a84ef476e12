#include "text/Message.h"

#include "TestSupport.h"

namespace linealis::test {
namespace {

/// A language with one text, one count, and a comma in numbers.
class Reversed final : public Language {
public:
    std::string Text(std::string_view english) const override
    {
        return english == "%1 of %2" ? "%2: %1" : std::string(english);
    }
    std::string Text(std::string_view /*one*/, std::string_view /*many*/, std::int64_t count) const override
    {
        return count < 3 ? "few %1" : "many %1";
    }
    std::string Number(std::string_view withPoint) const override
    {
        std::string number(withPoint);
        std::replace(number.begin(), number.end(), '.', ',');
        return number;
    }
};

TEST(Message, IsEnglishOrTheLanguageOfItsReader)
{
    const Message cells(Plural("%1 cell", "%1 cells"), 2.0, 2.0);
    const Message sized("%1 of %2", cells, Message("%1 mm", 2.54));
    EXPECT_EQ(sized.English(), "2 cells of 2.54 mm");
    EXPECT_EQ(sized.In(Reversed()), "2,54 mm: few 2");
    EXPECT_EQ(Message(Plural("%1 cell", "%1 cells"), 1.0, 1).English(), "1 cell");
    EXPECT_EQ(Message(Plural("%1 by %2 cell", "%1 by %2 cells"), 6.0, 3, 2).In(Reversed()), "many 3");
}

TEST(Message, LeavesGivenTextsAlone)
{
    const std::string name = "%1 100% %2.txt";
    EXPECT_EQ(Message("%1: %2", name, Message::Verbatim("1.5")).In(Reversed()), name + ": 1.5");
    EXPECT_EQ(Message::Listed("50%").English(), "50%");
    EXPECT_EQ(Message("the scale is %1% or %2", 50, "%1").English(), "the scale is 50% or %1");
    EXPECT_EQ(Message::Joined({Message(), Message("a"), Message(), Message::Number("1.5")}, ", ").In(Reversed()),
              "a, 1,5");
    EXPECT_TRUE(Message().IsEmpty());
    EXPECT_TRUE(Message::Joined({Message()}, ", ").IsEmpty());
    EXPECT_FALSE(Message("%1", "").IsEmpty());
}

}  // namespace
}  // namespace linealis::test
