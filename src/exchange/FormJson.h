#pragma once

#include "app/PaperKinds.h"
#include "pipeline/Controls.h"

#include <nlohmann/json.hpp>

#include <string>

namespace linealis {

using Json = nlohmann::ordered_json;

/// What there is to know of a kind.
Json KindJson(const PaperKind& kind);

/// What a control is and holds, and what else it could hold.
Json ControlJson(Control& control);

/// A whole form: its kind, all its controls by their names, and the aliases of these.
Json FormJson(const PaperKind& kind, const Form& form);

/// A form that was read from JSON: what FormJson gives, or a part of it. Beside the objects of FormJson, whose
/// "value" counts, a control may be its value alone: a text, a number, true or false.
struct FormFile {
    std::string name;  ///< of the file, for messages
    std::string kind;  ///< empty: it tells none
    Json controls;     ///< an object, in the file's order
};

/// Why a file holds no form that can be used.
struct FormError {
    std::string message;  ///< begins with the name of the file
};

/// Reads a form from the text of a file: from JSON, or from a page as SVG or PNG, which carries its form. `name` is
/// the file's, for messages. Throws FormError.
FormFile ParseForm(std::string name, std::string_view text);

/// The same of a file. Throws FormError if it cannot be read or is larger than 64 MiB too.
FormFile ReadFormFile(const FolderItem& file);

/// The most bytes that ReadFormFile takes.
inline constexpr std::size_t longestFormFile = std::size_t{64} << 20U;

/// The form as a page carries it.
std::string CarriedForm(const PaperKind& kind, const Form& form);

/// Sets what the file has, whatever its order: first what decides of other controls, such as the unit, then the
/// texts and colors. What `form` itself printed gives the same page. Throws UsageError at a control or value that
/// there is not, or if the file is of another kind.
void LayOver(const FormFile& file, const PaperKind& kind, const Form& form);

}  // namespace linealis
