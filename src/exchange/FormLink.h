#pragma once

#include "exchange/FormJson.h"

#include <string>
#include <string_view>

namespace linealis {

// A form as the part of a web address after its "#": the name of the kind, and every control that differs from a
// new form, by its alias: "grid&paper-size=A4&top-margin=1". Characters other than ASCII letters, digits, "-", ".",
// "_" and "~" are percent-encoded.

/// The longest address that is read, in bytes. Browsers and other programs cut longer ones.
inline constexpr std::size_t longestLink = std::size_t{32} << 10U;

/// Returns the form as the part of an address after "#". A form read from it makes the same page.
std::string FormLink(const PaperKind& kind, const Form& form);

/// Whether the name is a link to a form: an address with a part after "#", or that part alone if it begins with a
/// kind. Other names with "#" are files.
bool IsLink(std::string_view name);

/// Reads a form from an address or from its part after "#". Throws FormError if it names no kind, is too long or is
/// damaged. Does not check whether the kind and the controls exist; LayOver does.
FormFile ParseLink(std::string_view address);

}  // namespace linealis
