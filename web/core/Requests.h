#pragma once

#include "core/Session.h"

#include <memory>
#include <string>
#include <string_view>

namespace linealis::web {

/// What the page in the browser asks for: a request as JSON, whose "do" names it, and the bytes of a file.
struct Question {
    Json json;
    std::string_view bytes;

    /// Returns a text of the request; empty if it has none of that name.
    std::string Text(const char* name) const { return json.value(name, std::string()); }
};

struct Answer {
    Json json = Json::object();
    std::string bytes = {};
};

/// Answers the requests of the page. `session` is null until a paper is open. An answer with "error" says, for the
/// user, why nothing was done.
Answer AnswerTo(const Question& question, std::unique_ptr<Session>& session);

}  // namespace linealis::web
