#pragma once

#include "core/Requests.h"
#include "kinds/Presets.h"

#include <memory>
#include <string>
#include <string_view>

namespace linealis::web {

/// Thrown if a request cannot be fulfilled. The message is for the user.
struct Refusal {
    Message message;
};

/// Returns the time that a request gives as "now".
LocalTime TimeOf(const Question& question);

/// Throws a Refusal if there is no such preset.
const Preset& PresetNamed(const std::string& id);

/// Lays a settings file over the form of the window; `name` is for messages. Throws a Refusal if that fails.
void LoadSettings(const std::string& name, std::string_view bytes, PaperWindow& window);

/// Opens a paper: a "kind", a "preset", a "link", or a "file", which is a settings file or carries a form. Throws a
/// Refusal, FormError or UnknownInput if that fails.
std::unique_ptr<Session> OpenedPaper(const Question& question, const Language& language);

}  // namespace linealis::web
