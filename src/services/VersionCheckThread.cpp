#include "services/VersionCheckThread.h"

#include "text/Numbers.h"

#include <algorithm>
#include <utility>

namespace linealis {

namespace {

constexpr int linealisProgramNumber = 1230;

/// Returns the first `width` bytes of a text, or all of it if it is shorter.
std::string Left(const std::string& text, std::size_t width)
{
    return text.substr(0, width);
}

/// Returns the first word of a reply, ignoring blanks and line ends around it.
std::string FirstWord(const std::string& response)
{
    constexpr const char* const blanks = " \t\r\n";
    const std::size_t start = std::min(response.find_first_not_of(blanks), response.size());
    const std::size_t end = std::min(response.find_first_of(blanks, start), response.size());
    return response.substr(start, end - start);
}

}  // namespace

VersionCheckThread::VersionCheckThread(Platform& thePlatform, const ProgramVersion& running, std::string theServer,
                                       std::int64_t lastUpdateCheckVersion,
                                       std::function<void(std::int64_t version)> skip)
    : platform(thePlatform), runningVersion(running), server(std::move(theServer)),
      skippedVersion(lastUpdateCheckVersion), skipVersion(std::move(skip))
{}

void VersionCheckThread::Event_Run()
{
    const std::string request = connection(linealisProgramNumber, server + "/software/linealis.html");
    platform.FetchInBackground(request, [this](const std::string& page) { ParseResults(page); });
}

/// Returns the macOS version as four digits: two of the major version and one each of the two others. "0000" on
/// other systems.
std::string VersionCheckThread::SystemVersionDigits() const
{
    const auto gestalt = platform.SystemVersion();
    if (!gestalt) {
        return "0000";
    }
    const auto g = static_cast<double>(*gestalt);
    std::int64_t major = truncated(g / 256.0);
    const std::int64_t rest = *gestalt - major * 256;
    const std::int64_t minor = truncated(static_cast<double>(rest) / 16.0);
    const std::int64_t third = rest - minor * 16;
    if (major >= 16) {
        major -= 6;  // the hexadecimal digits stand for decimal ones: 0x10 means 10
    }
    return myformatstring(static_cast<double>(major), "00") + myformatstring(static_cast<double>(minor), "0") +
           myformatstring(static_cast<double>(third), "0");
}

std::string VersionCheckThread::connection(int theProgramNumber, const std::string& url)
{
    OS = "M";
    osVersion = SystemVersionDigits();
    downloadUrl = url;
    version = Str(runningVersion.major) + Str(runningVersion.minor) + Str(runningVersion.third);
    // A skipped version is sent as the running one, so that the server does not offer it again.
    if (static_cast<double>(skippedVersion) > Val(version)) {
        version = mystring(skippedVersion);
    }
    rNum = "0";
    while (rNum.size() < 5) {
        rNum.insert(0, 1, '0');
    }
    programNumber = myformatstring(theProgramNumber, "0000");
    return server + "/version/versionb.html?p=" + Left(programNumber, 4) + Left(version, 3) + Left(OS, 1) +
           Left(osVersion, 4) + Left(rNum, 5);
}

void VersionCheckThread::ParseResults(const std::string& response)
{
    const std::string word = FirstWord(response);
    if (word.empty() || word == "LATEST") {
        return;
    }
    MessageDialog dialog;
    dialog.message =
        Message("A new version of this program, %1, is now available. Would you like your web browser to open "
                "the download page so you can get a copy?",
                word);
    dialog.actionButton = Message("Yes");
    dialog.cancelButton = Message("Not Now");
    dialog.alternateActionButton = Message("Skip This Version");
    switch (platform.ShowModal(dialog)) {
    case MessageDialog::Button::Action:
        platform.ShowURL(downloadUrl);
        break;
    case MessageDialog::Button::Cancel:
        break;
    case MessageDialog::Button::Alternate: {
        std::string digits = word;
        digits.erase(std::remove(digits.begin(), digits.end(), '.'), digits.end());
        skipVersion(truncated(Val(digits)));
        break;
    }
    }
}

}  // namespace linealis
