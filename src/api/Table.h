#pragma once

#include "api/linealis.h"
#include "kinds/PaperKinds.h"
#include "pipeline/form/Form.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

/// Rows of texts, with a name for each column.
struct linealis_table {
    std::vector<std::string_view> columns;  ///< literals
    std::vector<std::vector<std::string>> rows;
};

namespace linealis::api {

linealis_table TableOfKinds();
linealis_table TableOfPresets();
linealis_table TableOfFormats();
linealis_table TableOfControls(const Form& form);
/// Returns the items of a popup or radio group, and no rows for other controls.
linealis_table TableOfItems(const Control& control);
linealis_table TableOfWarnings(const PageWarnings& warnings);

/// Returns the cells of a column.
std::vector<std::string> ColumnOf(const linealis_table& table, std::string_view column);

}  // namespace linealis::api
