#pragma once

#include "pipeline/form/PaperForm.h"
#include "pipeline/page/PaperPage.h"

#include <vector>

namespace linealis {

/// Returns the remarks on the fields of a form.
PageWarnings FieldWarnings(const Form& form);

/// Returns everything on the form that will cause problems on paper: remarks on fields, margins that printers
/// cannot reach, lack of room, scales, sizes that a settings file does not store, line weights that do not print or
/// leave no white space, and the warnings of the kind itself. Fast: draws nothing.
PageWarnings FormWarnings(const PaperForm& form, const PageFrame& frame, PageWarnings ofKind);

/// Returns the texts of the form that are printed on the page.
std::vector<PrintedField> PrintedFields(const PaperForm& form);

/// Adds a warning if the lines are at least as wide as the distance between them, in points.
void WarnOfInk(const Form& form, const TextField& weight, double distance, PageWarnings& warnings);

}  // namespace linealis
