#pragma once

#include "pipeline/PaperForm.h"

#include <string>
#include <string_view>

namespace linealis {

/// What a field takes, for who hovers over it: "Length in the current unit". Empty if there is nothing to say.
std::string_view HintFor(Meaning meaning);

/// What the page will make of a field's text, in words, if it is not what stands there: the text is no number, the
/// value is corrected or ignored, a character cannot be printed. Empty if all is well.
std::string RemarkOn(const PaperForm::State& field);

}  // namespace linealis
