#include "graph/RangeText.h"

#include "text/LetterCase.h"
#include "text/Numbers.h"

#include <algorithm>
#include <string>

namespace linealis {

bool TypeRange(const Form& wizard, AxisName axis, std::string_view range)
{
    const std::size_t first = range.find(':');
    if (first == std::string_view::npos) {
        return false;
    }
    const std::size_t second = std::min(range.find(':', first + 1), range.size());
    const std::string_view minimum = range.substr(0, first), maximum = range.substr(first + 1, second - first - 1),
                           rest = range.substr(second);
    const bool isLog = IsSameText(rest, ":log");
    if ((!rest.empty() && !isLog) || !IsNumber(minimum) || !IsNumber(maximum)) {
        return false;
    }
    const char letter = axis == AxisName::x ? 'X' : 'Y';
    wizard.Get<TextField>(std::string("EditMin") + letter).Type(std::string(minimum));
    wizard.Get<TextField>(std::string("EditMax") + letter).Type(std::string(maximum));
    wizard.Get<CheckBox>(std::string("CheckLog") + letter).Click(isLog);
    return true;
}

}  // namespace linealis
