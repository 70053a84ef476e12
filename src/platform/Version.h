#pragma once

namespace linealis {

/// The program's own version number.
struct ProgramVersion {
    int major = 0;
    int minor = 0;
    int third = 0;
};

// What the build says of the program. Only Version.cpp is compiled with it.

extern const ProgramVersion programVersion;

/// The same as text, such as "1.2.3".
extern const char* const versionText;

/// The day of the release, such as "2026-01-31".
extern const char* const releaseDate;

/// What the desktop knows the program by, in reverse-DNS style.
extern const char* const applicationId;

/// Address of the maker's web server, without a path.
extern const char* const makersServer;

}  // namespace linealis
