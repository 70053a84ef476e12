#include "exchange/FormLink.h"

#include "pipeline/form/FieldWords.h"
#include "pipeline/form/SetControl.h"
#include "platform/ScreenlessPlatform.h"
#include "text/ShortText.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>

namespace linealis {

namespace {

constexpr const char* const nameOfLink = "link";

bool StaysAsItIs(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("-._~").find(c) != std::string_view::npos;
}

std::string PercentEncoded(std::string_view text)
{
    std::string encoded;
    for (const char c : text) {
        std::array<char, 4> code{};
        std::snprintf(code.data(), code.size(), "%%%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
        encoded += StaysAsItIs(c) ? std::string(1, c) : code.data();
    }
    return encoded;
}

std::optional<int> HexDigit(char c)
{
    return c >= '0' && c <= '9'   ? std::optional(c - '0')
           : c >= 'A' && c <= 'F' ? std::optional(c - 'A' + 10)
           : c >= 'a' && c <= 'f' ? std::optional(c - 'a' + 10)
                                  : std::nullopt;
}

std::string PercentDecoded(std::string_view text)
{
    constexpr std::size_t lengthOfCode = 3;
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            decoded += text[i];
            continue;
        }
        const std::string_view code = text.substr(i, lengthOfCode);
        const auto high = code.size() == lengthOfCode ? HexDigit(code[1]) : std::nullopt;
        const auto low = code.size() == lengthOfCode ? HexDigit(code[2]) : std::nullopt;
        if (!high || !low) {
            throw FormError{Message("%1: is damaged at '%2': % must be followed by two hexadecimal digits",
                                    nameOfLink, Shortened(text.substr(i)))};
        }
        decoded += static_cast<char>(*high * 16 + *low);
        i += lengthOfCode - 1;
    }
    return decoded;
}

/// Adds the controls of the form whose values differ from those of another form of the kind. Returns whether there
/// were any.
bool AddDifferences(const Form& form, const Form& other, FormFile& file)
{
    bool hasAdded = false;
    for (const Control* const control : form.Controls()) {
        if (control->Kind() == ControlKind::Label || ValueOf(*control) == ValueOf(*other.Find(control->Name()))) {
            continue;
        }
        const bool isThere = std::any_of(file.controls.begin(), file.controls.end(),
                                         [&](const GivenControl& given) { return given.name == control->Alias(); });
        if (!isThere) {
            file.controls.push_back({std::string(control->Alias()), ValueOf(*control), {}});
            hasAdded = true;
        }
    }
    return hasAdded;
}

}  // namespace

std::string FormLink(const PaperKind& kind, const Form& form)
{
    // Setting a control can change others, such as all lengths with the unit. So a value can differ from that of a
    // new form only after the first ones have been set.
    FormFile file{nameOfLink, std::string(kind.name), {}};
    ScreenlessPlatform platform;
    for (bool isWhole = false; !isWhole;) {
        const std::unique_ptr<PaperWindow> made = MakeWindow(kind, platform);
        LayOver(file, kind, made->form);
        isWhole = !AddDifferences(form, made->form, file);
    }
    std::string link(kind.name);
    for (const GivenControl& given : file.controls) {
        link += "&" + given.name + "=" + PercentEncoded(given.value);
    }
    return link;
}

bool IsLink(std::string_view name)
{
    const std::size_t mark = name.find('#');
    if (mark == std::string_view::npos) {
        return false;
    }
    const std::string_view rest = name.substr(mark + 1);
    return name.find("://") < mark || (mark == 0 && FindPaperKind(rest.substr(0, rest.find('&'))) != nullptr);
}

FormFile ParseLink(std::string_view address)
{
    if (address.size() > longestLink) {
        throw FormError{Message("%1: is longer than %2 bytes", nameOfLink, longestLink)};
    }
    std::string_view rest = address.substr(address.find('#') + 1);  // npos + 1 is 0
    const auto cut = [&rest] {
        const std::string_view part = rest.substr(0, rest.find('&'));
        rest.remove_prefix(std::min(part.size() + 1, rest.size()));
        return part;
    };
    FormFile file{nameOfLink, PercentDecoded(cut()), {}};
    if (file.kind.empty()) {
        throw FormError{Message("%1: names no kind of paper", nameOfLink)};
    }
    while (!rest.empty()) {
        const std::string_view part = cut();
        const std::size_t equals = std::min(part.find('='), part.size());
        GivenControl given{PercentDecoded(part.substr(0, equals)), {}, {}};
        if (equals == part.size()) {
            given.fault = Message("has no value");
        } else {
            given.value = PercentDecoded(part.substr(equals + 1));
        }
        std::erase_if(file.controls, [&](const GivenControl& other) { return other.name == given.name; });
        if (file.controls.size() == mostControls) {
            throw FormError{Message("%1: has more than %2 controls", file.name, mostControls)};
        }
        file.controls.push_back(std::move(given));
    }
    return file;
}

}  // namespace linealis
