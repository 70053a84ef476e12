#pragma once

#include <string>
#include <string_view>

namespace linealis {

/// Returns the entries in the dictionary of a stream that is a file of that MIME type, attached to a PDF file.
std::string PdfAttachmentEntries(std::string_view mimeType);

/// Returns the first attached file of that MIME type in the bytes of a PDF file that PdfPages has written, if it is
/// not compressed. Empty if there is none, or if the bytes end before its end. Trusts no length in the bytes.
std::string_view PdfAttachmentIn(std::string_view pdf, std::string_view mimeType);

}  // namespace linealis
