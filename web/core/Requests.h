#pragma once

#include "core/PageLanguage.h"
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

/// What stays from one request to the next.
struct Conversation {
    PageLanguage language = {};
    std::unique_ptr<Session> session = {};  ///< null until a paper is open; refers to the language
};

/// Answers the requests of the page. An answer with "error" says, for the user, why nothing was done.
Answer AnswerTo(const Question& question, Conversation& conversation);

}  // namespace linealis::web
