#pragma once

#include "pipeline/form/PaperForm.h"
#include "pipeline/page/PageJob.h"
#include "platform/FolderItem.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// A front end that checks in passing looks at this much content at most. Bytes.
inline constexpr std::size_t longestContentChecked = std::size_t{8} << 20U;

/// What the page itself shows: nothing at all, lines off the paper, texts that overlap each other, the lines or the
/// edge of the paper, numbers that repeat. Names the fields of texts; a title that stands where the form has put it
/// is none to warn of. `content` is as Generate compresses it.
PageWarnings ContentWarnings(const PaperPage& page, std::string_view content, std::span<const RoleRange> roles);

/// All that will disappoint on a page: what its form says and what it shows.
PageWarnings WarningsOf(const DrawnPage& page);

/// What is wrong with the lines of a marker file, or why it has no effect. Looks at its beginning.
PageWarnings MarkerWarnings(const PaperForm& form, const FolderItem& file);

}  // namespace linealis
