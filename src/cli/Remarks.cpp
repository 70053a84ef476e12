#include "cli/Remarks.h"

#include "cli/Errors.h"
#include "exchange/FontCheck.h"

#include <mutex>
#include <set>

namespace linealis::cli {

Remarks::Remarks(Json* theAnswer) : answer(theAnswer)
{
    if (answer != nullptr) {
        (*answer)["messages"] = Json::array();
        (*answer)["warnings"] = Json::array();
    }
}

void Remarks::Say(const ScreenlessPlatform& platform) const
{
    for (const std::vector<std::string>* const said : {&platform.messages, &platform.notes}) {
        for (const std::string& text : *said) {
            answer != nullptr ? (*answer)["messages"].push_back(text) : Complain(text);
        }
    }
}

void Remarks::Warn(const std::string& about, const PageWarnings& warnings) const
{
    for (const PageWarning& warning : warnings) {
        if (answer != nullptr) {
            (*answer)["warnings"].push_back(WarningJson(about, warning));
        } else {
            Complain("warning: " + about + ": " + warning.text.English());
        }
    }
}

void Remarks::WarnOfFonts(const std::string& about, std::string_view content) const
{
    const PageWarnings warnings = FontWarnings(content);
    if (answer != nullptr) {
        Warn(about, warnings);
        return;
    }
    static std::mutex mutex;
    static std::set<std::string> said;
    const std::lock_guard lock(mutex);
    for (const PageWarning& warning : warnings) {
        if (const std::string text = warning.text.English(); said.insert(text).second) {
            Complain("warning: " + text);
        }
    }
}

Json WarningJson(const std::string& about, const PageWarning& warning)
{
    return {{"source", about}, {"id", warning.id}, {"control", warning.control}, {"text", warning.text.English()}};
}

Json FileJson(const std::string& source, const std::string& file)
{
    return {{"source", source}, {"file", file}};
}

void CheckRoomForAnswer(bool asJson, const std::string& output)
{
    if (asJson && output == "-") {
        throw UsageError{"--json answers on standard output; give -o the name of a file"};
    }
}

}  // namespace linealis::cli
