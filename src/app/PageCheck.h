#pragma once

#include "pipeline/PaperForm.h"
#include "pipeline/PaperPage.h"
#include "platform/FolderItem.h"

#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// Something that will disappoint on paper.
struct PageWarning {
    std::string_view id;  ///< for programs: the same for the same sort of warning
    std::string control;  ///< the name of the control that it comes from; empty if it is none
    std::string text;     ///< for people
};

using PageWarnings = std::vector<PageWarning>;

/// What of the form will disappoint on its page: damaging texts, margins that a printer does not reach, no room,
/// scales, sizes that no settings file keeps, lines that do not meet. Quick; reads the form only.
PageWarnings FormWarnings(const PaperForm& form, const PageFrame& frame);

/// A front end that checks in passing looks at this much content at most. Bytes.
inline constexpr std::size_t longestContentChecked = std::size_t{8} << 20U;

/// What the page itself shows: lines too thin or off the paper, texts that overlap each other, the lines or the
/// edge of the paper, numbers that repeat. `content` is as Generate compresses it.
PageWarnings ContentWarnings(const PageFrame& frame, std::string_view content);

/// What is wrong with the lines of a marker file, which is used if the form's box is on. Looks at its beginning.
PageWarnings MarkerWarnings(const PaperForm& form, const FolderItem& file);

}  // namespace linealis
