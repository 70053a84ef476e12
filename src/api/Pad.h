#pragma once

#include "api/Sheet.h"
#include "kinds/PadOptions.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace linealis::api {

/// What a pad is made of; linealis_pad documents it.
struct PadSheets {
    std::span<const linealis_sheet* const> fronts;
    const linealis_sheet* back = nullptr;  ///< null: blank
    std::optional<std::string_view> table = {};
};

/// Returns the file of a pad. Throws BadInput, UnknownInput, or PageGivenUp.
std::string PadOf(const PadSheets& sheets, const PadOptions& options);

}  // namespace linealis::api
