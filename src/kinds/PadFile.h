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

/// The type of the files that a PDF file of a pad carries: the forms of its pages, as JSON.
inline constexpr std::string_view formMimeType = "application/json";

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

    /// Lets the file carry the table that all fronts are made from, as CSV, and the form that its rows are laid
    /// over. Their own forms need not be carried then. Call this before AddFront.
    void AttachTable(std::string_view csv, std::string_view form);

    /// Adds the next of the different pages on the fronts. `form` is the form that the page is made from, as
    /// CarriedForm writes it; the file carries each different form once. None if it is empty.
    void AddFront(const DrawnPage& page, std::string_view form = {});
    /// Sets the page on the backs.
    void SetBack(const DrawnPage& page, std::string_view form = {});
    /// Shows the first front page on the backs too.
    void SetBackToFront() { back = fronts.at(0); }

    /// Writes the sheets, `copies` times, and the rest of the file, dated `now`. The plan counts the pages above.
    /// Calls `onSide` after each side with the number of sides written.
    void Finish(
        const PadPlan& plan, std::size_t copies, const LocalTime& now,
        const std::function<void(std::size_t sides)>& onSide = [](std::size_t /*sides*/) {});

private:
    void AttachForm(const std::string& name, std::string_view form);
    void AddSide(const PadSide& side);
    std::size_t ContentOf(const PlacedPage& page) const;

    PdfPages file;
    std::vector<std::size_t> fronts;  ///< their contents
    std::size_t back = 0;
    std::set<std::string, std::less<>> forms;  ///< that the file carries
};

}  // namespace linealis
