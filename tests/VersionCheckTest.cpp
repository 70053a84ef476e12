#include "TestSupport.h"
#include "services/VersionCheckThread.h"

namespace linealis::test {
namespace {

const std::string testServer = "http://server.invalid";

struct Running {
    ProgramVersion version{1, 3, 0};
    std::int64_t skipped = 0;
    std::optional<std::int64_t> system = 0x1068;
};

/// The fields of the request, by their widths.
std::string Request(const Running& running, int program = 1230)
{
    ScreenlessPlatform platform;
    platform.systemVersion = running.system;
    VersionCheckThread check(platform, running.version, testServer, running.skipped, {});
    const std::string address = check.connection(program, "");
    const std::string start = testServer + "/version/versionb.html?p=";
    EXPECT_TRUE(address.starts_with(start)) << address;
    std::string fields = address.substr(start.size());
    EXPECT_EQ(fields.size(), 17U) << fields;
    for (const std::size_t place : {12U, 8U, 7U, 4U}) {
        fields.insert(place, 1, ' ');
    }
    return fields;
}

TEST(VersionRequest, FieldsAreCutToTheirWidths)
{
    EXPECT_EQ(Request({}, 7), "0007 130 M 1068 00000");
    EXPECT_EQ(Request({}, 12345), "1234 130 M 1068 00000");
    const auto system = [](std::optional<std::int64_t> version) {
        return Request({.system = version}).substr(11, 4);
    };
    EXPECT_EQ(system(0x0922), "0922");
    EXPECT_EQ(system(std::nullopt), "0000");
    EXPECT_EQ(system(0x10A5), "1010") << "10.10.5, cut to its width";
}

TEST(VersionRequest, ASkippedVersionStandsForTheRunningOneIfLarger)
{
    const auto reported = [](const ProgramVersion& running, std::int64_t skipped) {
        return Request({running, skipped}).substr(5, 3);
    };
    EXPECT_EQ(reported({1, 3, 0}, 140), "140");
    EXPECT_EQ(reported({1, 4, 1}, 140), "141");
    EXPECT_EQ(reported({1, 10, 2}, 0), "110") << "cut to its width";
    EXPECT_EQ(reported({1, 10, 2}, 999), "110") << "compared before it is cut";
    EXPECT_EQ(reported({1, 3, 0}, 4294967436), "429") << "more than 32 bits";
}

class VersionReply : public testing::Test {
protected:
    VersionReply() { check.Event_Run(); }

    /// The server answers, and the user with the button.
    void Reply(const std::string& text, MessageDialog::Button button = MessageDialog::Button::Cancel)
    {
        platform.buttonAnswer = button;
        platform.fetches.at(0).onReply(text);
    }

    /// The version that the dialog names; empty if none has come up.
    std::string Named(const std::string& reply)
    {
        platform.dialogs.clear();
        Reply(reply);
        if (platform.dialogs.empty()) {
            return "";
        }
        const std::string message = platform.dialogs.back().message.English();
        const std::string before = "A new version of this program, ";
        EXPECT_TRUE(message.starts_with(before));
        return message.substr(before.size(), message.rfind(", is now available.") - before.size());
    }

    ScreenlessPlatform platform;
    std::vector<std::int64_t> skipped;
    VersionCheckThread check{
        platform, {1, 3, 0}, testServer, 0, [this](std::int64_t version) { skipped.push_back(version); }};
};

TEST_F(VersionReply, LatestAndNothingStaySilentAndAnyOtherWordIsAVersion)
{
    for (const char* const text : {"LATEST", "LATEST\r\n", "LATEST 1.4.0", "", "\r\n", "  "}) {
        EXPECT_EQ(Named(text), "") << text;
    }
    for (const char* const word : {"latest", "LATEST.", "<html><b>404</b>", "%s&amp;\\n", "Größe"}) {
        EXPECT_EQ(Named(word + std::string(" x")), word);
    }
}

TEST_F(VersionReply, ANewerVersionIsOffered)
{
    Reply("1.4.0\n");
    ASSERT_EQ(platform.dialogs.size(), 1U);
    const MessageDialog& dialog = platform.dialogs[0];
    EXPECT_EQ(dialog.message.English(),
              "A new version of this program, 1.4.0, is now available. Would you like your web browser to open the "
              "download page so you can get a copy?");
    EXPECT_EQ(dialog.actionButton.English(), "Yes");
    EXPECT_EQ(dialog.cancelButton.English(), "Not Now");
    EXPECT_EQ(dialog.alternateActionButton.English(), "Skip This Version");
    EXPECT_TRUE(platform.shownUrls.empty() && skipped.empty()) << "Not Now";
    Reply("1.4.0", MessageDialog::Button::Action);
    EXPECT_EQ(platform.shownUrls, Names{testServer + "/software/linealis.html"});
    EXPECT_TRUE(skipped.empty());
    Reply("1.4.0", MessageDialog::Button::Alternate);
    EXPECT_EQ(platform.shownUrls.size(), 1U);
    EXPECT_EQ(skipped, std::vector<std::int64_t>{140});
    EXPECT_TRUE(platform.messages.empty());
}

TEST_F(VersionReply, ASkippedVersionIsTheNumberOfItsDigits)
{
    for (const char* const text : {"1.10.2 and more", "2.0b3", "1.4,9", "soon"}) {
        Reply(text, MessageDialog::Button::Alternate);
    }
    EXPECT_EQ(skipped, (std::vector<std::int64_t>{1102, 20, 14, 0}));
}

}  // namespace
}  // namespace linealis::test
