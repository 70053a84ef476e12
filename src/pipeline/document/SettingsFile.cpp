#include "pipeline/document/SettingsFile.h"

#include "pdf/OwnPdf.h"
#include "platform/FilePath.h"
#include "text/Numbers.h"

#include <algorithm>
#include <array>
#include <utility>

namespace linealis {

namespace {

constexpr double channelMaximum = 255.0;
constexpr std::string_view formatVersion = "1.3.0";
constexpr std::string_view noSizeMarker = "10";

using Channels = std::array<std::uint8_t, 3>;

std::uint8_t ToChannel(double value)
{
    return static_cast<std::uint8_t>(std::clamp<std::int64_t>(truncated(value), 0, 255));
}

void WriteColor(BinaryStream& stream, Color color, bool inverse)
{
    for (const std::uint8_t channel : Channels{color.red, color.green, color.blue}) {
        stream.WritePString(Str(inverse ? channelMaximum - channel : channel));
    }
}

Color ReadColor(BinaryStream& stream, bool inverse)
{
    Channels channels{};
    for (std::uint8_t& channel : channels) {
        const double value = Val(stream.ReadPString());
        channel = ToChannel(inverse ? channelMaximum - value : value);
    }
    return {channels[0], channels[1], channels[2]};
}

/// Returns the cell size that the marker of an old file stands for, or an empty text if it stands for none.
std::string_view SizeOfMarker(double marker, bool inInches)
{
    if (marker == 0.0) {
        return inInches ? "0.5" : "0.2";
    }
    if (marker == 1.0) {
        return inInches ? "0.25" : "0.5";
    }
    if (marker == 2.0) {
        return inInches ? "0.2" : "1.0";
    }
    return {};
}

void WriteAlias(const FolderItem& file, BinaryStream& stream)
{
    const std::string reference = file.Path().string();
    stream.WriteInt32(static_cast<std::int32_t>(reference.size()));
    stream.Write(reference);
}

/// Reads the reference to the output file. Accepts only an existing PDF, possibly one of another program (see
/// PaperWindow::MayReplaceOutputFile). With any other path, a settings file from somebody else could make Generate
/// overwrite an arbitrary file.
FolderItem ReadAlias(SettingsStream& settings)
{
    BinaryStream& stream = settings.stream;
    const std::int32_t length = stream.ReadInt32();
    const auto size = static_cast<std::size_t>(std::max(length, 0));
    settings.isImpossible = length < 0 || size > BinaryStream::longestField;
    const std::string reference = stream.Read(size);  // empty if it is longer than any path
    const std::filesystem::path path = PathOf(reference);
    const bool whole = reference.size() == size;
    if (!whole || reference.find('\0') != std::string::npos || !path.is_absolute()) {
        return {};
    }
    FolderItem file(path);
    return IsPdf(file) ? file : FolderItem();
}

}  // namespace

std::error_code SaveSettings(const SettingsTable& table, const FolderItem& outputFile, const FolderItem& file)
{
    return file.IsEmpty() ? std::error_code() : SaveSettings(table, outputFile, file.CreateBinaryFile());
}

std::error_code SaveSettings(const SettingsTable& table, const FolderItem& outputFile, BinaryStream stream)
{
    SettingsStream settings{.stream = std::move(stream), .outputFile = outputFile};
    for (const SettingsField& field : table) {
        field.write(settings);
    }
    return settings.stream.Close();
}

LoadResult LoadSettings(const SettingsTable& table, FolderItem& outputFile, BinaryStream stream)
{
    SettingsStream settings{.stream = std::move(stream), .outputFile = outputFile};
    if (!settings.stream.IsOpen()) {
        return {settings.stream.Error()};
    }
    LoadResult result;
    result.fields = table.size();
    for (std::size_t i = 0; i < table.size(); ++i) {
        table[i].read(settings);
        if (!settings.stream.HasRunShort()) {
            result.fieldsRead = i + 1;
        }
        if (settings.isImpossible && result.impossible == 0) {
            result.impossible = i + 1;
        }
    }
    result.goesOn = !settings.stream.AtEnd();
    if (const std::error_code error = settings.stream.Error()) {
        return {error};
    }
    outputFile = settings.outputFile;
    return result;
}

Message LoadResult::Problem() const
{
    if (impossible > 0) {
        return Message("has an invalid length in field %1 of %2; the fields after it are unreliable", impossible,
                       fields);
    }
    if (fieldsRead < fields) {
        return Message("ends at field %1 of %2; the remaining fields are empty", fieldsRead + 1, fields);
    }
    return goesOn ? Message("has extra data after the last of its %1 fields", fields) : Message();
}

namespace settings {

using File = SettingsStream;

SettingsField version()
{
    return fixed(formatVersion);
}

SettingsField fixed(std::string_view text)
{
    return {text, "fixed text", [text](File& file) { file.stream.WritePString(text); },
            [](File& file) { file.stream.ReadPString(); }};
}

SettingsField text(TextField& field)
{
    return {field.Name(), "text", [&field](File& file) { file.stream.WritePString(field.Text()); },
            [&field](File& file) { field.SetText(file.stream.ReadPString()); }};
}

SettingsField textUnlessEmpty(TextField& field)
{
    SettingsField unlessEmpty = text(field);
    unlessEmpty.encoding = "text; empty changes nothing";
    unlessEmpty.read = [&field](File& file) {
        if (std::string read = file.stream.ReadPString(); !read.empty()) {
            field.SetText(std::move(read));
        }
    };
    return unlessEmpty;
}

SettingsField index(Choice& choice)
{
    return {choice.Name(), "list index as text",
            [&choice](File& file) { file.stream.WritePString(Str(choice.ListIndex())); },
            [&choice](File& file) { choice.SetListIndex(truncated(Val(file.stream.ReadPString()))); }};
}

SettingsField integer(Choice& choice, std::int32_t offset)
{
    return {choice.Name(), offset < 0 ? "32-bit integer, list index - 1" : "32-bit integer, list index + 1",
            [&choice, offset](File& file) { file.stream.WriteInt32(choice.ListIndex() + offset); },
            [&choice, offset](File& file) { choice.SetListIndex(std::int64_t{file.stream.ReadInt32()} - offset); }};
}

SettingsField box(CheckBox& box)
{
    return {box.Name(), "\"1\" or \"0\"", [&box](File& file) { file.stream.WritePString(box.Value() ? "1" : "0"); },
            [&box](File& file) { box.SetValue(Val(file.stream.ReadPString()) != 0.0); }};
}

SettingsField boolean(CheckBox& box)
{
    return {box.Name(), "one byte, 1 or 0", [&box](File& file) { file.stream.WriteBoolean(box.Value()); },
            [&box](File& file) { box.SetValue(file.stream.ReadBoolean()); }};
}

SettingsField color(Swatch& swatch)
{
    return {swatch.Name(), "three texts: red, green, blue",
            [&swatch](File& file) { WriteColor(file.stream, swatch.Shown(), false); },
            [&swatch](File& file) { swatch.SetColor(ReadColor(file.stream, false)); }};
}

SettingsField inverseColor(Swatch& swatch)
{
    return {swatch.Name(), "three texts: 255 minus each channel",
            [&swatch](File& file) { WriteColor(file.stream, swatch.Shown(), true); },
            [&swatch](File& file) { swatch.SetColor(ReadColor(file.stream, true)); }};
}

SettingsField fileReference()
{
    return {"the PDF file", "32-bit length, then the path",
            [](File& file) { WriteAlias(file.outputFile, file.stream); },
            [](File& file) { file.outputFile = ReadAlias(file); }};
}

SettingsField cellSize(const PaperForm& form, TextField& field)
{
    SettingsField size = text(field);
    size.encoding = "text, unless a size marker replaces it";
    size.read = [&form, &field](File& file) {
        std::string read = file.stream.ReadPString();
        const std::string_view fixedSize = SizeOfMarker(file.sizeMarker, form.InInches());
        field.SetText(fixedSize.empty() ? std::move(read) : std::string(fixedSize));
    };
    return size;
}

SettingsTable Head(PaperForm& form)
{
    SettingsField sizeMarker = fixed(noSizeMarker);
    sizeMarker.read = [](File& file) { file.sizeMarker = Val(file.stream.ReadPString()); };
    return {version(),
            index(form.PopupOrientation),
            index(form.PopupPaperSize),
            fixed("0"),
            fixed("0"),
            index(form.PopupUnits),
            sizeMarker,
            text(form.EditXScale),
            text(form.EditYScale)};
}

SettingsTable Margins(PaperForm& form)
{
    return {text(form.EditTopMargin), text(form.EditBottomMargin), text(form.EditLeftMargin),
            text(form.EditRightMargin)};
}

SettingsTable Concatenate(std::initializer_list<SettingsTable> parts)
{
    SettingsTable whole;
    for (const SettingsTable& part : parts) {
        whole.insert(whole.end(), part.begin(), part.end());
    }
    return whole;
}

}  // namespace settings

}  // namespace linealis
