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

/// A settings file on its way to or from the disk, with what is no control's.
struct SettingsStream {
    BinaryStream stream;
    FolderItem outputFile;
    double sizeMarker = 0.0;    ///< what the head of the file says of the cell size
    bool isImpossible = false;  ///< a field has had a length that no field can have
};

/// One field of a settings file: how it is written and read, and, for the description of the format, what it is.
struct SettingsField {
    std::string_view control;  ///< the name of the control that it holds, or what else it is
    std::string_view encoding;
    std::function<void(SettingsStream& file)> write;
    std::function<void(SettingsStream& file)> read;
};

/// The fields of a kind's settings file in file order. Saving and loading walk the same table.
using SettingsTable = std::vector<SettingsField>;

/// Writes the form that the table belongs to, and the reference to its output file. A failure leaves the file as it
/// was and is returned. Nothing happens without a file.
std::error_code SaveSettings(const SettingsTable& table, const FolderItem& outputFile, const FolderItem& file);

/// The same into a stream. Returns its failure.
std::error_code SaveSettings(const SettingsTable& table, const FolderItem& outputFile, BinaryStream stream);

/// How a load went.
struct LoadResult {
    std::error_code error = {};  ///< why the file could not be opened or read
    std::size_t fieldsRead = 0;  ///< whole, before the file's end
    std::size_t fields = 0;      ///< of a whole file
    std::size_t impossible = 0;  ///< the first field whose length no field can have, from 1; 0: there is none
    bool goesOn = false;         ///< the file has more than its fields

    /// What is wrong with the contents, to be put behind the file's name; empty if nothing is.
    std::string Problem() const;
};

/// Reads a stream into the form that the table belongs to, and the output file that it refers to. One that is not
/// open leaves both as they were, and one that fails on the way the output file. A shorter file reads as empty at
/// its end.
LoadResult LoadSettings(const SettingsTable& table, FolderItem& outputFile, BinaryStream stream);

namespace settings {

/// The version of the format, which all files begin with. Not the program's.
SettingsField version();
/// A text that is always the same. A load drops it.
SettingsField fixed(std::string_view text);
SettingsField text(TextField& field);
/// The same, but a load of an empty text leaves the field as it is.
SettingsField textUnlessEmpty(TextField& field);
/// The list index, as decimal text.
SettingsField index(Choice& choice);
/// The list index plus an offset, as a 32-bit integer.
SettingsField integer(Choice& choice, std::int32_t offset);
/// "1" or "0".
SettingsField box(CheckBox& box);
/// One byte.
SettingsField boolean(CheckBox& box);
/// Three texts: the channels.
SettingsField color(Swatch& swatch);
/// Three texts: 255 less the channels.
SettingsField inverseColor(Swatch& swatch);
SettingsField fileReference();
/// A cell size, which the size marker of an old file replaces.
SettingsField cellSize(const PaperForm& form, TextField& field);

/// What every file but the graph paper's begins with: version, page and scales. Its seventh field is the size
/// marker, which means something to the kinds that have a cell size.
SettingsTable Head(PaperForm& form);

/// The four margins, in the order in which every file has them.
SettingsTable Margins(PaperForm& form);

/// The parts one behind the other.
SettingsTable Concatenate(std::initializer_list<SettingsTable> parts);

}  // namespace settings

}  // namespace linealis
