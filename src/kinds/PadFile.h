#pragma once

#include "kinds/PadPlan.h"
#include "pdf/PdfPages.h"
#include "pipeline/page/PageJob.h"

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// Writes the PDF file of a pad to a stream. Takes the pages one by one and keeps none of them, so that a pad of
/// many rows takes little memory; then writes the sheets. Contents are in the file once, however many sides show
/// them.
///
/// Long work calls `theTurns`, whose exceptions pass through: the stream then has an unfinished file. The stream
/// keeps its own errors; closing it is up to the caller.
class PadFile {
public:
    /// Both must outlive the object.
    PadFile(BinaryStream& theStream, Turns& theTurns);

    /// Adds the next of the different pages on the fronts. `form` is the form that the page is made from, as
    /// CarriedForm writes it; the file carries each different form once. None if it is empty.
    void AddFront(const DrawnPage& page, std::string_view form = {});
    /// Sets the page on the backs.
    void SetBack(const DrawnPage& page, std::string_view form = {});
    /// Lets the file carry the table that the fronts are made from, as CSV.
    void AttachTable(std::string_view csv);

    /// Writes the sheets, `copies` times, and the rest of the file, dated `now`. The plan counts the pages above.
    void Finish(const PadPlan& plan, std::size_t copies, const LocalTime& now);

private:
    std::size_t Add(const DrawnPage& page, const std::string& name, std::string_view form);
    void AddSide(const PadSide& side);
    std::size_t ContentOf(const PlacedPage& page) const;

    PdfPages file;
    std::vector<std::size_t> fronts;  ///< their contents
    std::size_t back = 0;
    std::set<std::string, std::less<>> forms;  ///< that the file carries
};

}  // namespace linealis
