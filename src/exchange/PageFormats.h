#pragma once

#include "exchange/Devices.h"
#include "pipeline/page/PageJob.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace linealis {

/// How to write a page. Each format uses the options that apply to it.
struct WriteOptions {
    LocalTime now;               ///< the date in a PDF file
    std::string carried = {};    ///< the form that the file carries; empty for none
    double dotsPerInch = 300.0;  ///< for formats with pixels
    bool isTransparent = false;  ///< for formats with pixels: without the white of the paper
    /// For formats with pixels: the screen that the picture fills, and whether the page is scaled to it (see
    /// PngOptions).
    std::optional<Screen> screen = {};
    bool fitsScreen = false;
};

/// A file format for pages: a row of the only table of formats. All lists of formats are generated from it:
/// options, extensions, dialogs, clipboard, completion, and messages.
struct PageFormat {
    std::string_view name;      ///< for the command line; also the extension of its files, without a dot
    std::string_view title;     ///< for users: "SVG"
    std::string_view words;     ///< its purpose, for dialogs
    std::string_view mimeType;  ///< for the clipboard
    bool hasPixels = false;     ///< whether resolution and transparency apply
    bool carriesForm = false;   ///< whether the file of a page carries its form
    bool givesForm = false;     ///< whether a form can be read back from its files, be it only from those of pads
    bool isPasted = true;       ///< whether programs paste it, so that it goes to the clipboard
    /// Writes the page to an open stream, which the caller closes. Exceptions of `turns` pass through.
    void (*write)(const DrawnPage& page, const WriteOptions& options, BinaryStream& stream, Turns& turns);
};

/// Returns all formats. The first one is the default.
std::span<const PageFormat> PageFormats();

/// Returns the format with that name, in any case, or null.
const PageFormat* FindPageFormat(std::string_view name);

/// Returns the names of all formats for a sentence, each after `prefix`: ".pdf, .svg or .png".
std::string FormatNames(std::string_view prefix = "");

/// Returns the titles of the formats that have the property, for a sentence, with `another` at the end unless it is
/// empty: "SVG, PNG or JSON".
std::string FormatTitles(bool PageFormat::*property, std::string_view another = "");

/// Whether the file name has the extension of a format that can give a form back. A bare extension such as ".svg"
/// counts too.
bool IsNameOfCarrier(std::string_view fileName);

/// Returns the page as the bytes of a file. Exceptions of `turns` pass through.
std::string BytesOf(const PageFormat& format, const DrawnPage& page, const WriteOptions& options, Turns& turns);

}  // namespace linealis
