#pragma once

namespace linealis {

/// The version number of the program.
struct ProgramVersion {
    int major = 0;
    int minor = 0;
    int third = 0;
};

// Values from the build. Only Version.cpp is compiled with them, so that a new version recompiles one file.

extern const ProgramVersion programVersion;

/// The version as text, for example "1.2.3".
extern const char* const versionText;

/// The release date, for example "2026-01-31".
extern const char* const releaseDate;

/// The application ID for the desktop, in reverse-DNS notation.
extern const char* const applicationId;

/// The address of the vendor's web server, without a path.
extern const char* const makersServer;

}  // namespace linealis
