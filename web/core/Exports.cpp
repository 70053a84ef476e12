// The functions that the module exports. Memory belongs to the module: the caller writes a request into room that
// it asks for, and reads the answer before the next call.

#include "core/Requests.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

std::string answerText;
std::string answerBytes;
std::array<std::uintptr_t, 4> answerPlaces{};

}  // namespace

extern "C" {

/// Returns room for `size` bytes, or null. linealis_ask frees it.
__attribute__((export_name("linealis_room"))) void* linealis_room(std::size_t size)
{
    return std::malloc(size > 0 ? size : 1);
}

/// Answers a request: JSON and the bytes of a file, each in room of its own. Returns four numbers: where the JSON
/// of the answer begins and its length, and the same of its bytes. They stay until the next call.
__attribute__((export_name("linealis_ask"))) const std::uintptr_t* linealis_ask(char* request, std::size_t length,
                                                                                char* bytes, std::size_t count)
{
    using namespace linealis::web;
    static Conversation conversation;
    Answer answer;
    const linealis::Json json = linealis::Json::parse(request, request + length, nullptr, false);
    if (json.is_object()) {
        answer = AnswerTo({json, {bytes, count}}, conversation);
    } else {
        answer.json["error"] = "the request is not JSON";
    }
    std::free(request);
    std::free(bytes);
    answerText = answer.json.dump(-1, ' ', false, linealis::Json::error_handler_t::replace);
    answerBytes = std::move(answer.bytes);
    answerPlaces = {reinterpret_cast<std::uintptr_t>(answerText.data()), answerText.size(),
                    reinterpret_cast<std::uintptr_t>(answerBytes.data()), answerBytes.size()};
    return answerPlaces.data();
}

}  // extern "C"
