#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

namespace linealis {

class PaperForm;

/// One field of a settings file. Saving and loading walk the same table of them, in file order.
struct SettingsField {
    enum class Kind {
        FixedText,        ///< always the same text; a load drops it
        Text,             ///< text of a text field
        TextUnlessEmpty,  ///< the same, but a load of an empty text leaves the field as it is
        Popup,            ///< list index, as decimal text
        Box,              ///< check box, as "1" or "0"
        Boolean,          ///< check box, as one byte
        Integer,          ///< 32-bit integer made of a control's state
        Colour,           ///< three texts: the channels
        InverseColour,    ///< three texts: 255 less the channels
        FileReference,    ///< the output file
        SizeMarker,       ///< "10", or in old files the number of a fixed cell size
        SizeText,         ///< EditSize, which an old file's size marker replaces
    };

    Kind kind;
    std::string_view name;  ///< the control; the text itself where it is fixed
    std::int32_t (*toInteger)(const PaperForm& form) = nullptr;
    void (*fromInteger)(PaperForm& form, std::int32_t value) = nullptr;
};

using SettingsTable = std::vector<SettingsField>;

namespace settings {

inline SettingsField fixed(std::string_view text)
{
    return {SettingsField::Kind::FixedText, text};
}
inline SettingsField text(std::string_view control)
{
    return {SettingsField::Kind::Text, control};
}
inline SettingsField textUnlessEmpty(std::string_view control)
{
    return {SettingsField::Kind::TextUnlessEmpty, control};
}
inline SettingsField popup(std::string_view control)
{
    return {SettingsField::Kind::Popup, control};
}
inline SettingsField box(std::string_view control)
{
    return {SettingsField::Kind::Box, control};
}
inline SettingsField boolean(std::string_view control)
{
    return {SettingsField::Kind::Boolean, control};
}
inline SettingsField integer(std::string_view control, std::int32_t (*toInteger)(const PaperForm&),
                             void (*fromInteger)(PaperForm&, std::int32_t))
{
    return {SettingsField::Kind::Integer, control, toInteger, fromInteger};
}
inline SettingsField colour(std::string_view canvas)
{
    return {SettingsField::Kind::Colour, canvas};
}
inline SettingsField inverseColour(std::string_view canvas)
{
    return {SettingsField::Kind::InverseColour, canvas};
}
inline SettingsField fileReference()
{
    return {SettingsField::Kind::FileReference, ""};
}
inline SettingsField sizeMarker()
{
    return {SettingsField::Kind::SizeMarker, "10"};
}
inline SettingsField sizeText()
{
    return {SettingsField::Kind::SizeText, "EditSize"};
}

/// What every file but the graph paper's begins with: version, page and scales. Its seventh field is the size
/// marker, which means something to the kinds that have a cell size.
SettingsTable Head();

/// The four margins, in the order in which every file has them.
SettingsTable Margins();

/// The parts one behind the other.
SettingsTable Concatenate(std::initializer_list<SettingsTable> parts);

}  // namespace settings

}  // namespace linealis
