#pragma once

#include "kinds/PaperKinds.h"
#include "pipeline/form/Controls.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace linealis {

using Json = nlohmann::ordered_json;

/// Returns the text of a document for people and programs: indented, with a line feed at the end. Replaces invalid
/// UTF-8 and escapes characters that a terminal would obey.
std::string JsonText(const Json& json);

/// Returns the description of a kind: its name, title, and settings extension.
Json KindJson(const PaperKind& kind);

/// Returns the word for a type of control: "text", "popup", "check", "radio", "color" or "label".
const char* TypeName(ControlKind kind);

/// Returns the type, caption, and value of a control, the items that it offers, and whether it is enabled.
Json ControlJson(Control& control);

/// Returns a whole form: its kind, all controls by name, and the control name for each alias.
Json FormJson(const PaperKind& kind, const Form& form);

/// The value that a file gives for a control.
struct GivenControl {
    std::string name;   ///< of the control, or its alias
    std::string value;  ///< as SetControl takes it
    Message fault;      ///< what is wrong with it: "has no "value""; empty if nothing is
};

/// A form read from JSON: the output of FormJson or a part of it. In place of the object that FormJson writes for a
/// control, of which only "value" counts, the value itself may stand: a text, a number, true, or false.
struct FormFile {
    std::string name;                    ///< of the file, for messages
    std::string kind;                    ///< empty if the file names none
    std::vector<GivenControl> controls;  ///< in the order of the file, each name once
};

/// Thrown if a file contains no usable form.
struct FormError {
    Message message;  ///< starts with the name of the file, except for a form of the wrong kind
};

/// Reads a form from the contents of a file: JSON, or a page as SVG or PNG that carries its form, or a pad as PDF,
/// of whose forms this is the first. `name` is the
/// name of the file in messages. Does not check whether the kind and the controls exist; LayOver does. Throws
/// FormError if there is no form, or if it exceeds longestForm or mostControls.
FormFile ParseForm(std::string name, std::string_view text);

/// Reads a form from a file. Reads only the part of the file that can contain the form. Throws FormError as
/// ParseForm does, and if the file cannot be read.
FormFile ReadFormFile(const FolderItem& file);

/// The longest picture, in bytes, that callers accept when they read a whole file for ParseForm.
inline constexpr std::size_t longestFormFile = std::size_t{64} << 20U;

/// The most controls in a form file: more than the names and aliases of any kind.
inline constexpr std::size_t mostControls = 256;

/// Returns the JSON text that a page carries: the kind and the value of each control.
std::string CarriedForm(const PaperKind& kind, const Form& form);

/// Sets the controls that the file gives. The order in the file does not matter: controls that affect others, such
/// as the unit, are set first, texts and colors last. A file made by FormJson from the same form leads to the same
/// page. Throws UnknownInput if a control or value does not exist, FormError if the file is of another kind or
/// lacks the value of a control; the form is then unchanged.
void LayOver(const FormFile& file, const PaperKind& kind, Form& form);

}  // namespace linealis
