#include "platform/Version.h"

namespace linealis {

constinit const ProgramVersion programVersion{LINEALIS_VERSION_MAJOR, LINEALIS_VERSION_MINOR,
                                              LINEALIS_VERSION_PATCH};
constinit const char* const versionText = LINEALIS_VERSION;
constinit const char* const releaseDate = LINEALIS_RELEASE_DATE;
constinit const char* const applicationId = LINEALIS_APPLICATION_ID;
constinit const char* const makersServer = LINEALIS_SERVER;

}  // namespace linealis
