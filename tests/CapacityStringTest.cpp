#include "pdf/CapacityString.h"

#include <gtest/gtest.h>

namespace linealis::test {
namespace {

TEST(CapacityString, GrowsByATenthOfItsLength)
{
    CapacityString buffer(20000, 10000);
    buffer.AppendString(std::string(20000, 'a'));
    EXPECT_EQ(buffer.Capacity(), 20000);
    buffer.AppendString(std::string(1996, 'c'));
    EXPECT_EQ(buffer.Capacity(), 22000);
    buffer.AppendString("12345");
    EXPECT_EQ(buffer.Capacity(), 24195) << "21996 + 2199.6, truncated";
    EXPECT_EQ(buffer.View(), std::string(20000, 'a') + std::string(1996, 'c') + "12345");
    buffer.SetString("");
    EXPECT_TRUE(buffer.View().empty() && buffer.Capacity() == 24195);
}

TEST(CapacityString, InsertsBeforeAPositionThatCountsFromOne)
{
    CapacityString buffer(0, 0);
    buffer.SetString("ad");
    buffer.InsertString(2, "bc");
    buffer.InsertString(1, std::string(100, '<'));  // more than a tenth at once
    buffer.InsertString(105, ">");
    buffer.InsertString(3, "");
    EXPECT_EQ(buffer.View(), std::string(100, '<') + "abcd>");
    EXPECT_GE(buffer.Capacity(), buffer.Length());
}

}  // namespace
}  // namespace linealis::test
