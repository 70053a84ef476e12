#pragma once

#include "pipeline/form/PaperForm.h"
#include "platform/BinaryStream.h"
#include "platform/FolderItem.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace linealis {

/// A settings file being read or written, with the values that do not belong to a control.
struct SettingsStream {
    BinaryStream stream;
    FolderItem outputFile;
    double sizeMarker = 0.0;    ///< the cell size marker in the head of the file
    bool isImpossible = false;  ///< a field had an invalid length
};

/// One field of a settings file: how to write and read it, and its description for the format documentation.
struct SettingsField {
    std::string_view control;  ///< the name of its control, or a description if it has none
    std::string_view encoding;
    std::function<void(SettingsStream& file)> write;
    std::function<void(SettingsStream& file)> read;
};

/// The fields of the settings file of a kind, in file order. Saving and loading use the same table.
using SettingsTable = std::vector<SettingsField>;

/// Writes the form that the table refers to and the reference to its output file. A failure leaves an existing file
/// as it was and is returned. Does nothing if `file` is empty.
std::error_code SaveSettings(const SettingsTable& table, const FolderItem& outputFile, const FolderItem& file);

/// Writes the settings to a stream and closes it. Returns any failure.
std::error_code SaveSettings(const SettingsTable& table, const FolderItem& outputFile, BinaryStream stream);

/// The outcome of a load.
struct LoadResult {
    std::error_code error = {};  ///< why the file could not be opened or read
    std::size_t fieldsRead = 0;  ///< complete fields before the end of the file
    std::size_t fields = 0;      ///< the number of fields in a complete file
    std::size_t impossible = 0;  ///< the first field with an invalid length, from 1; 0: none
    bool goesOn = false;         ///< the file has data after its last field

    /// Describes what is wrong with the content, to be appended to the file name. Empty if nothing is.
    Message Problem() const;
};

/// Reads a stream into the form that the table refers to, and the output file that it names. If the stream is not
/// open, both stay as they were; if reading fails, the output file does. The missing fields of a short file read as
/// empty.
LoadResult LoadSettings(const SettingsTable& table, FolderItem& outputFile, BinaryStream stream);

namespace settings {

/// The version of the file format, which every file starts with. It is not the version of the program.
SettingsField version();
/// A constant text. A load ignores it.
SettingsField fixed(std::string_view text);
/// The text of a field.
SettingsField text(TextField& field);
/// The text of a field. Loading an empty text leaves the field unchanged.
SettingsField textUnlessEmpty(TextField& field);
/// The list index as decimal text.
SettingsField index(Choice& choice);
/// The list index plus an offset as a 32-bit integer.
SettingsField integer(Choice& choice, std::int32_t offset);
/// The value of a check box as the text "1" or "0".
SettingsField box(CheckBox& box);
/// The value of a check box as one byte, 1 or 0.
SettingsField boolean(CheckBox& box);
/// A color as three texts, one per channel.
SettingsField color(Swatch& swatch);
/// A color as three texts, each 255 minus a channel.
SettingsField inverseColor(Swatch& swatch);
/// The path of the output file, with a 32-bit length.
SettingsField fileReference();
/// A cell size. The size marker of an old file replaces it.
SettingsField cellSize(const PaperForm& form, TextField& field);

/// The head of every file except that of graph paper: version, page, and scales. Its seventh field is the size
/// marker, which matters only to kinds with a cell size.
SettingsTable Head(PaperForm& form);

/// The four margins in file order: top, bottom, left, right.
SettingsTable Margins(PaperForm& form);

/// Joins the parts in the given order.
SettingsTable Concatenate(std::initializer_list<SettingsTable> parts);

}  // namespace settings

}  // namespace linealis
