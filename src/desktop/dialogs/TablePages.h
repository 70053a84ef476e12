#pragma once

#include "kinds/PaperKinds.h"
#include "pipeline/page/PaperPage.h"
#include "platform/FolderItem.h"
#include "platform/Turns.h"

#include <cstddef>
#include <string>
#include <vector>

namespace linealis::desktop {

/// The pages that a table makes of a form: one for each of its rows.
struct TablePages {
    std::string name;  ///< of its file
    std::string csv;   ///< the table itself
    std::vector<PaperPage> pages;

    /// Returns the name of the page of a row in messages. Rows count from 0.
    Message NameOf(std::size_t row) const;
};

/// Reads a table and the page of each row: the form of `window`, with its marker file, and the values of the row.
/// The window stays as it is. Takes a turn for each row. Throws TableError if the table cannot be read, is longer
/// than 64 MiB, has no rows or more than mostPadPages, or names a control or a value that does not exist.
TablePages ReadTablePages(const FolderItem& file, const PaperKind& kind, const PaperWindow& window, Turns& turns);

}  // namespace linealis::desktop
