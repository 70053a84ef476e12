#include "exchange/DxfGroups.h"

namespace linealis {

std::string DxfHandle(std::uint64_t number)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    do {
        text.insert(text.begin(), digits[number % digits.size()]);
        number /= digits.size();
    } while (number != 0);
    return text;
}

std::string DxfGroups::NextHandle() const
{
    return DxfHandle(lastHandle + 1);
}

std::string DxfGroups::AddHandle(int code)
{
    std::string handle = NextHandle();
    ++lastHandle;
    Add(code, handle);
    return handle;
}

std::string DxfGroups::Begin(std::string_view type, std::string_view owner, int codeOfHandle)
{
    constexpr int codeOfOwner = 330;
    Add(0, type);
    std::string handle = AddHandle(codeOfHandle);
    Add(codeOfOwner, owner);
    return handle;
}

}  // namespace linealis
