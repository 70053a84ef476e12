// Makes tables: a header of controls and rows of values. The first byte selects the kind.

#include "Fuzz.h"
#include "Made.h"

#include <array>
#include <vector>

namespace linealis::fuzz {

namespace {

std::string Cell(const std::string& text, Dice& dice)
{
    return dice.OneIn(4) ? '"' + text + '"' : text;
}

}  // namespace

std::string Mutate(std::string_view input, Dice& dice)
{
    const std::size_t number = input.empty() || dice.OneIn(8) ? dice.Below(PaperKinds().size())
                                                              : static_cast<unsigned char>(input.front());
    if (!input.empty() && dice.OneIn(2)) {
        return Scrambled(std::string(input));
    }
    ScreenlessPlatform platform;
    const Paper paper = PaperKinds()[number % PaperKinds().size()].makePaper(platform);
    std::vector<const Control*> columns;
    for (std::size_t count = 1 + dice.Below(5); count > 0; --count) {
        columns.push_back(dice.OneIn(6) ? nullptr : dice.OneOf(paper.form->Controls()));
    }
    const char separator = std::string_view(",;\t")[dice.Below(3)];
    constexpr std::array lineEnds = {"\n", "\r\n", "\r"};
    const std::string lineEnd = dice.OneOf(lineEnds);
    constexpr std::array beginnings = {"", "", "", "\xEF\xBB\xBF", "\xFF\xFE", "\n"};
    std::string table = static_cast<char>(number) + std::string(dice.OneOf(beginnings));
    for (std::size_t row = 0, rows = 1 + dice.Below(6); row < rows; ++row) {
        for (const Control* const column : columns) {
            const std::string text = column == nullptr ? (row == 0 ? "file" : SomeText(dice))
                                     : row == 0        ? NameOf(*column, dice)
                                                       : SomeValue(*column, dice);
            table += Cell(text, dice) + separator;
        }
        table.pop_back();
        table += lineEnd;
    }
    return table;
}

}  // namespace linealis::fuzz
