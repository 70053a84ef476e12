#pragma once

#include "pipeline/PaperForm.h"

#include <string_view>

namespace linealis {

/// The lines per unit of a ruling. A number of 0 or less is replaced in the form by "5".
inline double LinesPerUnit(PaperForm& form, std::string_view field)
{
    if (form.Number(field) <= 0.0) {
        form.SetText(field, "5");
    }
    return form.Number(field);
}

}  // namespace linealis
