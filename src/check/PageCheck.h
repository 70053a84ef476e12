#pragma once

#include "pipeline/document/MarkerFile.h"
#include "pipeline/form/PaperForm.h"
#include "pipeline/page/PageJob.h"
#include "platform/FolderItem.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// The size of the content, in bytes, up to which front ends check a page without being asked. A larger page would
/// take noticeable time.
inline constexpr std::size_t longestContentChecked = std::size_t{8} << 20U;

/// Returns the problems that the content of a page shows: nothing visible, lines beyond the edge of the paper,
/// texts that overlap each other, grid lines, or the edge, repeated numbers, numbers too large for many readers,
/// and damage. A warning about a text names its field, if it comes from one. A title may cover grid lines if it
/// does so when the form opens and has not been moved. `content` is uncompressed; `roles` are the roles of its
/// parts.
PageWarnings ContentWarnings(const PaperPage& page, std::string_view content, std::span<const RoleRange> roles);

/// Returns all problems of a page: those of its form and those of its content.
PageWarnings WarningsOf(const DrawnPage& page);

/// Adds a warning with the reason if the control has no effect on the page.
void WarnIfIdle(const PaperForm& form, const Control& control, PageWarnings& warnings);

/// Returns what is wrong with the lines of a marker file, or why the file has no effect. Looks for what is wrong
/// with all lines in the first BinaryStream::longestField bytes only. Returns nothing if the form has no markers or
/// `file` is empty.
PageWarnings MarkerWarnings(const PaperForm& form, const FolderItem& file);

/// Returns the lines of a marker file that are no markers, by number from 1: a value that is not a number, or no
/// text. Names the first of them one by one and counts the rest. A line without any text is none.
std::vector<Message> MarkerFaults(const MarkerFile& file);

}  // namespace linealis
