#pragma once

#include "kinds/PaperKinds.h"
#include "pipeline/form/Controls.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace linealis {

using Json = nlohmann::ordered_json;

/// What there is to know of a kind.
Json KindJson(const PaperKind& kind);

/// What a control is and holds, and what else it could hold.
Json ControlJson(Control& control);

/// A whole form: its kind, all its controls by their names, and the aliases of these.
Json FormJson(const PaperKind& kind, const Form& form);

/// What a file gives for a control.
struct GivenControl {
    std::string name;   ///< or alias
    std::string value;  ///< as SetControl takes it
    std::string fault;  ///< what is wrong with it, such as "has no "value""; empty: nothing
};

/// A form that was read from JSON: what FormJson gives, or a part of it. Beside the objects of FormJson, whose
/// "value" counts, a control may be its value alone: a text, a number, true or false.
struct FormFile {
    std::string name;                    ///< of the file, for messages
    std::string kind;                    ///< empty: it tells none
    std::vector<GivenControl> controls;  ///< in the file's order, each once
};

/// Why a file holds no form that can be used.
struct FormError {
    std::string message;  ///< begins with the name of the file
};

/// Reads a form from the text of a file: from JSON, or from a page as SVG or PNG, which carries its form. `name` is
/// the file's, for messages. Throws FormError, also if it is longer than longestForm or has more than mostControls.
FormFile ParseForm(std::string name, std::string_view text);

/// The same of a file, of which no more is read than can be of the form. Throws FormError if it cannot be read too.
FormFile ReadFormFile(const FolderItem& file);

/// The most bytes of a picture, for who reads it whole.
inline constexpr std::size_t longestFormFile = std::size_t{64} << 20U;

/// The most controls that a form tells of: more than any kind has names and aliases.
inline constexpr std::size_t mostControls = 256;

/// The form as a page carries it.
std::string CarriedForm(const PaperKind& kind, const Form& form);

/// Sets what the file has, whatever its order: first what decides of other controls, such as the unit, then the
/// texts and colors. What `form` itself printed gives the same page. Throws UnknownInput at a control or value that
/// there is not, or FormError if the file is of another kind or has no value for a control; the form is then as it
/// was.
void LayOver(const FormFile& file, const PaperKind& kind, Form& form);

}  // namespace linealis
