#pragma once

#include "platform/Platform.h"
#include "platform/Version.h"

#include <cstdint>
#include <functional>
#include <string>

namespace linealis {

/// Asks the web server of the vendor in the background whether there is a newer version, and tells the user.
class VersionCheckThread {
public:
    /// `server` is the address of the web server, without a path. `lastUpdateCheckVersion` is the version that the
    /// user has skipped, 0 if none. `skip` is called with the version that the user skips now.
    VersionCheckThread(Platform& thePlatform, const ProgramVersion& running, std::string theServer,
                       std::int64_t lastUpdateCheckVersion, std::function<void(std::int64_t version)> skip);

    /// Sends the request. This object must live until the reply has arrived or the program ends. Any failure is
    /// silent.
    void Event_Run();

    /// Sets the fields of the request and returns its address. `theProgramNumber` is the number by which the server
    /// knows the program; `url` is the page that offers a newer version.
    std::string connection(int theProgramNumber, const std::string& url);

    /// Reads the reply of the server and, if it names a newer version, asks the user about it. Only the server
    /// compares versions. An empty reply or "LATEST" means that there is none.
    void ParseResults(const std::string& response);

private:
    std::string SystemVersionDigits() const;

    Platform& platform;
    ProgramVersion runningVersion;
    std::string server;
    std::int64_t skippedVersion;
    std::function<void(std::int64_t version)> skipVersion;

    // The fields of the request, with the number of characters that are sent of each.
    std::string programNumber;  ///< 4
    std::string version;        ///< 3
    std::string OS;             ///< 1
    std::string osVersion;      ///< 4
    std::string rNum;           ///< 5
    std::string downloadUrl;
};

}  // namespace linealis
