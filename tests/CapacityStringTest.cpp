#include "pdf/CapacityString.h"

#include <gtest/gtest.h>

#include <string>

namespace linealis::test {
namespace {

TEST(CapacityString, GrowsByATenthOfItsLength)
{
    CapacityString buffer(20000, 10000);
    const std::string full(19999, 'a');
    buffer.AppendString(full);
    buffer.AppendString("b");
    EXPECT_EQ(buffer.Capacity(), 20000);
    buffer.AppendString("c");
    EXPECT_EQ(buffer.Capacity(), 22000);
    buffer.AppendString(std::string(1995, 'd'));
    EXPECT_EQ(buffer.Length(), 21996);
    buffer.AppendString("12345");
    EXPECT_EQ(buffer.Capacity(), 24195) << "21996 + 2199.6, truncated";
    EXPECT_EQ(buffer.Operator_Convert(), full + "bc" + std::string(1995, 'd') + "12345");
}

TEST(CapacityString, TakesMoreThanATenthAtOnce)
{
    CapacityString empty(0, 0);
    empty.AppendString("abc");
    EXPECT_EQ(empty.View(), "abc");

    CapacityString buffer(10, 10);
    const std::string large(1000, 'x');
    buffer.AppendString("0123456789");
    buffer.AppendString(large);
    buffer.InsertString(1, large);
    EXPECT_GE(buffer.Capacity(), buffer.Length());
    EXPECT_EQ(buffer.View(), large + "0123456789" + large);
}

TEST(CapacityString, InsertsBeforeAPositionThatCountsFromOne)
{
    CapacityString buffer(4, 0);
    buffer.SetString("ad");
    buffer.InsertString(2, "bc");
    EXPECT_EQ(buffer.View(), "abcd");
    buffer.InsertString(1, "<");
    buffer.InsertString(6, ">");
    EXPECT_EQ(buffer.View(), "<abcd>");
    buffer.InsertString(3, "");
    EXPECT_EQ(buffer.View(), "<abcd>");
}

TEST(CapacityString, SetStringKeepsALargerBlock)
{
    CapacityString buffer(100, 0);
    buffer.SetString(std::string(150, 'x'));
    EXPECT_EQ(buffer.Capacity(), 150);
    buffer.SetString("");
    EXPECT_EQ(buffer.Length(), 0);
    EXPECT_EQ(buffer.Capacity(), 150);
    buffer.AppendString("new");
    EXPECT_EQ(buffer.View(), "new");
}

}  // namespace
}  // namespace linealis::test
