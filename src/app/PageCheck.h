#pragma once

#include "pipeline/PaperForm.h"
#include "pipeline/PaperPage.h"
#include "platform/FolderItem.h"

#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// The remarks on the fields of a form.
PageWarnings FieldWarnings(const PaperForm& form);

/// What of the form will disappoint on its page: every remark on a field, damaging texts, margins that a printer
/// does not reach, no room, scales, sizes that no settings file keeps, weights that do not print or leave no white,
/// lines that do not meet. Quick; `page` is what was read from the form.
PageWarnings FormWarnings(const PaperForm& form, const PaperPage& page);

/// The id of the warning of a title that covers lines.
inline constexpr std::string_view titleOverLines = "title-over-lines";

/// A front end that checks in passing looks at this much content at most. Bytes.
inline constexpr std::size_t longestContentChecked = std::size_t{8} << 20U;

/// What the page itself shows: nothing at all, lines off the paper, texts that overlap each other, the lines or the
/// edge of the paper, numbers that repeat. `content` is as Generate compresses it.
PageWarnings ContentWarnings(const PageFrame& frame, std::string_view content);

/// Both in one list. A warning of a text names the field that holds it, and a title that stands where the form has
/// put it is none to warn of.
PageWarnings JoinedWarnings(const PaperForm& form, PageWarnings ofForm, const PageWarnings& ofContent);

/// What is wrong with the lines of a marker file, or why it has no effect. Looks at its beginning.
PageWarnings MarkerWarnings(const PaperForm& form, const FolderItem& file);

}  // namespace linealis
