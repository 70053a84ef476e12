#pragma once

#include "pipeline/form/PaperForm.h"
#include "pipeline/page/PaperPage.h"

#include <vector>

namespace linealis {

/// The remarks on the fields of a form.
PageWarnings FieldWarnings(const Form& form);

/// What of the form will disappoint on its page: every remark on a field, margins that a printer does not reach, no
/// room, scales, sizes that no settings file keeps, weights that do not print or leave no white, and what the kind
/// warns of. Quick.
PageWarnings FormWarnings(const PaperForm& form, const PageFrame& frame, PageWarnings ofKind);

/// The form's texts that stand on its page.
std::vector<PrintedField> PrintedFields(const PaperForm& form);

/// Warns if lines are at least as wide as the distance between them, in points.
void WarnOfInk(const Form& form, const TextField& weight, double distance, PageWarnings& warnings);

}  // namespace linealis
