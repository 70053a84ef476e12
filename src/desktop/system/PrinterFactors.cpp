#include "desktop/system/PrinterFactors.h"

#include "platform/BinaryStream.h"
#include "text/Numbers.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace linealis {

namespace {

constexpr std::string_view factorsHeading =
    "# Length factors of printers: across the sheet, down it, name of the printer\n";

struct PrinterLine {
    std::string printer;
    PrinterFactors factors;
};

bool IsPossible(double factor)
{
    return factor >= smallestFactor && factor <= largestFactor;
}

/// Returns the name as stored in the file: line breaks become spaces, because each printer takes one line.
std::string PrinterName(std::string_view printer)
{
    std::string name(printer);
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return name;
}

/// Removes the text up to the separator, and the separator, from the front of `text`. Returns the removed text
/// without the separator.
std::string_view TakeUpTo(char end, std::string_view& text)
{
    const std::string_view taken = text.substr(0, text.find(end));
    text.remove_prefix(std::min(taken.size() + 1, text.size()));
    return taken;
}

/// Reads "1.002 0.998 Name of the printer". Returns nothing for any other line, including the heading.
std::optional<PrinterLine> ReadLine(std::string_view line)
{
    const std::string_view x = TakeUpTo(' ', line);
    const std::string_view y = TakeUpTo(' ', line);
    if (!IsNumber(x) || !IsNumber(y) || line.empty() || !IsPossible(Val(x)) || !IsPossible(Val(y))) {
        return std::nullopt;
    }
    return PrinterLine{std::string(line), {Val(x), Val(y)}};
}

std::vector<PrinterLine> ReadLines(const FolderItem& file, std::error_code& error)
{
    std::vector<PrinterLine> lines;
    if (!file.Exists()) {
        return lines;
    }
    BinaryStream stream = file.OpenAsBinaryFile();
    const std::string text = stream.Read(BinaryStream::longestField);
    error = stream.Error();
    std::string_view left = text;
    while (!left.empty()) {
        if (auto line = ReadLine(TakeUpTo('\n', left))) {
            lines.push_back(std::move(*line));
        }
    }
    return lines;
}

}  // namespace

Message LengthProblem(const Message& direction, std::string_view length, double expected)
{
    const double measured = Val(length);
    if (IsNumber(length) && measured > 0.0 && IsPossible(FactorOf(expected, measured))) {
        return {};
    }
    constexpr std::string_view oneDecimal = "0.0";
    const auto number = [&](double factor) {
        return Message::Number(myformatstring(expected / factor, oneDecimal));
    };
    return Message(
        "The length %1 is '%2'; possible are %3 to %4 mm. If the sheet is further off, it was fitted to the "
        "paper: print it at 100 %.",
        direction, length, number(largestFactor), number(smallestFactor));
}

FolderItem PrinterFactorsFile(const FolderItem& preferencesFolder)
{
    return preferencesFolder.Child("LinealisPrinters");
}

PrinterFactors ReadPrinterFactors(const FolderItem& file, std::string_view printer)
{
    const std::string name = PrinterName(printer);
    PrinterFactors factors;
    std::error_code unread;
    for (const PrinterLine& line : ReadLines(file, unread)) {
        if (line.printer == name) {
            factors = line.factors;
        }
    }
    return factors;
}

std::error_code WritePrinterFactors(const FolderItem& file, std::string_view printer, PrinterFactors factors)
{
    const std::string name = PrinterName(printer);
    if (name.empty() || !IsPossible(factors.x) || !IsPossible(factors.y)) {
        return std::make_error_code(std::errc::invalid_argument);
    }
    if (file.IsEmpty()) {
        return {};
    }
    std::error_code error;
    std::vector<PrinterLine> lines = ReadLines(file, error);
    if (error) {
        return error;
    }
    std::erase_if(lines, [&](const PrinterLine& line) { return line.printer == name; });
    if (factors != PrinterFactors{}) {
        lines.push_back({name, factors});
    }
    std::string text(factorsHeading);
    for (const PrinterLine& line : lines) {
        text += mystring(line.factors.x) + " " + mystring(line.factors.y) + " " + line.printer + "\n";
    }
    BinaryStream stream = file.CreateBinaryFile();
    stream.Write(text);
    return stream.Close();
}

}  // namespace linealis
