#include "app/Preferences.h"

#include "platform/BinaryStream.h"
#include "platform/Turns.h"

namespace linealis {

namespace {

// The file format reserves zeros before and after the values, and marks a disabled check with a number of its own.
constexpr int reservedBefore = 100;    // integers
constexpr int reservedBehind = 10000;  // integers
constexpr std::int32_t noUpdateCheckMark = 4592;

}  // namespace

Preferences ReadPrefs(const FolderItem& file)
{
    Preferences preferences;
    if (!file.Exists() || file.Name().empty()) {
        return preferences;
    }
    BinaryStream stream = file.OpenAsBinaryFile();
    for (int i = 0; i < reservedBefore; ++i) {
        stream.ReadInt32();
    }
    stream.ReadPString();
    stream.ReadPString();
    preferences.noUpdateCheck = stream.ReadInt32() == noUpdateCheckMark;
    preferences.lastUpdateCheckVersion = stream.ReadInt32();
    stream.Close();
    return preferences;
}

void WritePrefs(const Preferences& preferences, const FolderItem& file, Platform& platform)
{
    if (file.IsEmpty()) {
        return;
    }
    BinaryStream stream = file.CreateBinaryFile();
    Turns turns([&] { platform.Yield(); });
    const auto writeReserved = [&](int count) {
        for (int i = 0; i < count; ++i) {
            stream.WriteInt32(0);
            turns.RuntimeBackgroundTask();
        }
    };
    writeReserved(reservedBefore);
    stream.WritePString("");
    stream.WritePString("");
    stream.WriteInt32(preferences.noUpdateCheck ? noUpdateCheckMark : 0);
    stream.WriteInt32(static_cast<std::int32_t>(preferences.lastUpdateCheckVersion));
    writeReserved(reservedBehind);
    stream.Close();
}

}  // namespace linealis
