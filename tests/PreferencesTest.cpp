#include "app/Preferences.h"

#include "TestSupport.h"

#include <sys/stat.h>

#include <utility>

namespace linealis::test {
namespace {

constexpr std::size_t reservedBefore = 100 * 4;
constexpr std::size_t reservedBehind = 10000 * 4;
const std::string noStrings(2, '\0');
const std::string noCheckAnd140("\0\0\x11\xF0\0\0\0\x8C", 8);

class PreferencesFile : public testing::Test {
protected:
    void Write(const Preferences& preferences, const FolderItem& target)
    {
        WritePrefs(preferences, target, platform);
        EXPECT_TRUE(platform.messages.empty() && platform.fileErrors.empty() && platform.dialogs.empty());
    }

    /// The two values that a file with these bytes gives.
    std::pair<bool, std::int64_t> Read(std::string_view bytes) const
    {
        WriteFile(file.Path(), bytes);
        return Read();
    }
    std::pair<bool, std::int64_t> Read() const
    {
        const Preferences preferences = ReadPrefs(file);
        return {preferences.noUpdateCheck, preferences.lastUpdateCheckVersion};
    }

    using Values = std::pair<bool, std::int64_t>;

    ScreenlessPlatform platform;
    TemporaryFolder folder;
    FolderItem file{folder / "prefs"};
};

TEST_F(PreferencesFile, HasItsBytes)
{
    int yields = 0;
    platform.onYield = [&] { ++yields; };
    const std::string before(reservedBefore, '\0'), behind(reservedBehind, '\0');
    Write({true, 140}, file);
    EXPECT_TRUE(ReadFile(file.Path()) == before + noStrings + noCheckAnd140 + behind);
    EXPECT_EQ(Read(), Values(true, 140));
    EXPECT_EQ(yields, 10100 / Turns::linesPerYield) << "each of the reserved integers is a yield point";
    Write({false, 0x01020304}, file);
    EXPECT_TRUE(ReadFile(file.Path()) == before + noStrings + std::string("\0\0\0\0\1\2\3\4", 8) + behind);
    EXPECT_EQ(Read(), Values(false, 0x01020304));
    EXPECT_EQ(folder.Names(), Names{"prefs"});
}

TEST_F(PreferencesFile, OnlyItsOwnMarkSwitchesTheCheckOff)
{
    const auto noUpdateCheck = [&](const std::string& mark) {
        return Read(std::string(reservedBefore, '\0') + noStrings + mark + std::string("\0\0\0\x8C", 4)).first;
    };
    EXPECT_TRUE(noUpdateCheck(std::string("\0\0\x11\xF0", 4)));
    EXPECT_FALSE(noUpdateCheck(std::string("\0\0\0\1", 4)));
    EXPECT_FALSE(noUpdateCheck(std::string("\xF0\x11\0\0", 4))) << "the highest byte stands first";
    EXPECT_FALSE(noUpdateCheck(std::string("\xFF\xFF\xFF\xFF", 4)));
}

TEST_F(PreferencesFile, WhatIsReservedIsReadOver)
{
    const std::string strings = std::string("\3abc") + '\xFF' + std::string(255, 'x');
    EXPECT_EQ(Read(std::string(reservedBefore, '\x7F') + strings + noCheckAnd140), Values(true, 140))
        << "and what would follow is not asked for";
}

TEST_F(PreferencesFile, WithoutAFileTheInitialValuesStand)
{
    EXPECT_EQ(Read(), Values(false, 0));
    fs::create_directory(file.Path());
    EXPECT_EQ(Read(), Values(false, 0));
    fs::remove(file.Path());
    ASSERT_EQ(::mkfifo(file.Path().c_str(), 0600), 0);
    EXPECT_EQ(Read(), Values(false, 0)) << "and a pipe that nobody writes is not waited for";
    const Preferences nowhere = ReadPrefs(FolderItem());
    EXPECT_FALSE(nowhere.noUpdateCheck);
}

TEST_F(PreferencesFile, CutAnywhereItReadsAsZerosAtItsEnd)
{
    const std::string whole = std::string(reservedBefore, '\0') + noStrings + noCheckAnd140;
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const Values expected{length + 4 >= whole.size(), length == whole.size() ? 140 : 0};
        EXPECT_EQ(Read(whole.substr(0, length)), expected) << length;
    }
}

TEST_F(PreferencesFile, WhereItCannotBeWrittenNothingHappens)
{
    Write({true, 140}, FolderItem());
    Write({true, 140}, FolderItem(folder / "missing/prefs"));
    EXPECT_EQ(folder.Names(), Names{});
    ASSERT_EQ(::mkfifo(file.Path().c_str(), 0600), 0);
    Write({true, 140}, file);  // the reader of a pipe is not waited for
}

}  // namespace
}  // namespace linealis::test
