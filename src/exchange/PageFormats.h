#pragma once

#include "pipeline/page/PageJob.h"

#include <span>
#include <string>
#include <string_view>

namespace linealis {

/// How a page is written; each format takes what it can use.
struct WriteOptions {
    LocalTime now;               ///< dates a PDF file
    std::string carried = {};    ///< the form that a file carries; empty: none
    double dotsPerInch = 300.0;  ///< of pixels
    bool isTransparent = false;  ///< pixels without the white of the paper
};

/// A format of pages: one row of the one table of them. Options, endings, dialogs, clipboard, completion and
/// messages are made of it.
struct PageFormat {
    std::string_view name;      ///< on the command line, and the ending of its files without a dot
    std::string_view title;     ///< "SVG"
    std::string_view words;     ///< what it is good for, in a dialog
    std::string_view mimeType;  ///< on the clipboard
    bool hasPixels = false;     ///< whether resolution and transparency count
    bool carriesForm = false;   ///< whether its files give their form back
    /// Writes the page to an open stream; closing it is up to the caller. What `turns` throws passes through.
    void (*write)(const DrawnPage& page, const WriteOptions& options, BinaryStream& stream, Turns& turns);
};

/// All formats. The first is what a page is if nothing says otherwise.
std::span<const PageFormat> PageFormats();

/// The format of that name, in any case; null if there is none.
const PageFormat* FindPageFormat(std::string_view name);

/// Returns the names of all formats for a sentence, each after `prefix`: ".pdf, .svg or .png".
std::string FormatNames(std::string_view prefix = "");

/// Returns the titles of the formats that have the property, for a sentence, and `another` behind them if it is not
/// empty: "SVG, PNG or JSON".
std::string FormatTitles(bool PageFormat::*property, std::string_view another = "");

/// Whether the name of a file ends as those of a format do that carries its form.
bool IsNameOfCarrier(std::string_view fileName);

/// The page as bytes.
std::string BytesOf(const PageFormat& format, const DrawnPage& page, const WriteOptions& options, Turns& turns);

}  // namespace linealis
