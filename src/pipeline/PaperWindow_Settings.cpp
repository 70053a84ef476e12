#include "pipeline/PaperWindow.h"

#include "pdf/Numbers.h"
#include "pdf/OwnPdf.h"

#include <algorithm>
#include <array>
#include <string>

namespace linealis {

namespace {

constexpr double channelMaximum = 255.0;

using Channels = std::array<std::uint8_t, 3>;

Channels ChannelsOf(Color color)
{
    return {color.red, color.green, color.blue};
}

std::uint8_t ToChannel(double value)
{
    return static_cast<std::uint8_t>(std::clamp<std::int64_t>(truncated(value), 0, 255));
}

void WriteColor(BinaryStream& stream, Color color, bool inverse)
{
    for (const std::uint8_t channel : ChannelsOf(color)) {
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

/// The cell size that the marker of an old file stands for; empty if it stands for none.
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

}  // namespace

std::error_code PaperWindow::SaveSettings(const FolderItem& file) const
{
    if (file.IsEmpty()) {
        return {};
    }
    BinaryStream stream = file.CreateBinaryFile();
    for (const SettingsField& field : settingsTable) {
        WriteField(field, stream);
    }
    return stream.Close();
}

std::error_code PaperWindow::LoadSettings(const FolderItem& file)
{
    BinaryStream stream = file.OpenAsBinaryFile();
    if (!stream.IsOpen()) {
        return stream.Error();
    }
    double sizeMarker = 0.0;
    for (const SettingsField& field : settingsTable) {
        ReadField(field, stream, sizeMarker);
    }
    return stream.Close();
}

void PaperWindow::WriteField(const SettingsField& field, BinaryStream& stream) const
{
    using Kind = SettingsField::Kind;
    switch (field.kind) {
    case Kind::FixedText:
    case Kind::SizeMarker:
        stream.WritePString(field.name);
        break;
    case Kind::Text:
    case Kind::TextUnlessEmpty:
    case Kind::SizeText:
        stream.WritePString(form.Text(field.name));
        break;
    case Kind::Popup:
        stream.WritePString(Str(form.ListIndex(field.name)));
        break;
    case Kind::Box:
        stream.WritePString(form.Value(field.name) ? "1" : "0");
        break;
    case Kind::Boolean:
        stream.WriteBoolean(form.Value(field.name));
        break;
    case Kind::Integer:
        stream.WriteInt32(field.toInteger(form));
        break;
    case Kind::Colour:
    case Kind::InverseColour:
        WriteColor(stream, form.ColorOf(field.name), field.kind == Kind::InverseColour);
        break;
    case Kind::FileReference:
        WriteAlias(outputFile, stream);
        break;
    }
}

void PaperWindow::ReadField(const SettingsField& field, BinaryStream& stream, double& sizeMarker)
{
    using Kind = SettingsField::Kind;
    switch (field.kind) {
    case Kind::FixedText:
        stream.ReadPString();
        break;
    case Kind::SizeMarker:
        sizeMarker = Val(stream.ReadPString());
        break;
    case Kind::Text:
        form.SetText(field.name, stream.ReadPString());
        break;
    case Kind::TextUnlessEmpty:
        if (std::string text = stream.ReadPString(); !text.empty()) {
            form.SetText(field.name, std::move(text));
        }
        break;
    case Kind::SizeText:
        ReadSize(field.name, stream.ReadPString(), sizeMarker);
        break;
    case Kind::Popup:
        form.SetListIndex(field.name, truncated(Val(stream.ReadPString())));
        break;
    case Kind::Box:
        form.SetValue(field.name, Val(stream.ReadPString()) != 0.0);
        break;
    case Kind::Boolean:
        form.SetValue(field.name, stream.ReadBoolean());
        break;
    case Kind::Integer:
        field.fromInteger(form, stream.ReadInt32());
        break;
    case Kind::Colour:
    case Kind::InverseColour:
        form.SetColor(field.name, ReadColor(stream, field.kind == Kind::InverseColour));
        break;
    case Kind::FileReference:
        SetOutputFile(ReadAlias(stream));
        break;
    }
}

void PaperWindow::ReadSize(std::string_view control, std::string text, double sizeMarker)
{
    const std::string_view fixedSize = SizeOfMarker(sizeMarker, form.ListIndex("PopupUnits") == 0);
    form.SetText(control, fixedSize.empty() ? std::move(text) : std::string(fixedSize));
}

void PaperWindow::WriteAlias(const FolderItem& file, BinaryStream& stream)
{
    const std::string reference = file.Path().string();
    stream.WriteInt32(static_cast<std::int32_t>(reference.size()));
    stream.Write(reference);
}

FolderItem PaperWindow::ReadAlias(BinaryStream& stream)
{
    const std::int32_t size = stream.ReadInt32();
    if (size <= 0) {
        return {};
    }
    const std::string reference = stream.Read(static_cast<std::size_t>(size));
    const std::filesystem::path path = reference;
    const bool whole = reference.size() == static_cast<std::size_t>(size);
    if (!whole || reference.find('\0') != std::string::npos || !path.is_absolute()) {
        return {};
    }
    FolderItem file(path);
    return IsOwnPdf(file) ? file : FolderItem();
}

void PaperWindow::OpenDocument(const FolderItem& file)
{
    LoadSettings(file);
    ourFolderItem = file;
}

void PaperWindow::FileOpen_Action()
{
    if (const FolderItem file = platform.GetOpenFolderItem(settingsType); !file.IsEmpty()) {
        OpenDocument(file);
    }
}

void PaperWindow::FileSave_Action()
{
    SaveSettings(ourFolderItem);
}

void PaperWindow::FileSaveAs_Action()
{
    if (const FolderItem file = platform.GetSaveFolderItem(settingsType, "Untitled"); !file.IsEmpty()) {
        SaveSettings(file);
        ourFolderItem = file;
    }
}

}  // namespace linealis
