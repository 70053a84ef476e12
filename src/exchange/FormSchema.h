#pragma once

#include "exchange/FormJson.h"

namespace linealis {

/// Returns the JSON Schema (draft 2020-12) of the forms of a kind that ParseForm and LayOver accept: the names and
/// aliases of its controls, with the possible values, defaults, names and hints of each.
Json FormSchema(const PaperKind& kind);

/// Returns the schema of the forms of all kinds. Such a form names its kind.
Json FormSchema();

}  // namespace linealis
