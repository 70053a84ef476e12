#include "TestSupport.h"
#include "pdf/OwnPdf.h"
#include "pipeline/document/MarkerFile.h"
#include "platform/BinaryStream.h"
#include "platform/FileFault.h"

#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>

#include <future>

/// While set, the disk has room for half of what is asked for, as a file system may have it that then leaves the
/// file as long as it has got.
static bool hasHalfTheRoom = false;

extern "C" int fallocate(int file, int mode, off_t offset, off_t length)
{
    if (hasHalfTheRoom) {
        EXPECT_EQ(::ftruncate(file, offset + length / 2), 0);
        errno = ENOSPC;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_fallocate, file, mode, offset, length));
}

namespace linealis::test {
namespace {

class FileTest : public testing::Test {
protected:
    /// Replaces the file and tells how that ended.
    static std::error_code Replace(const fs::path& path, std::string_view bytes)
    {
        BinaryStream stream = FolderItem(path).CreateBinaryFile();
        stream.Write(bytes);
        return stream.Close();
    }

    /// The bytes that the calls write to a stream.
    template <typename Fill>
    std::string Written(Fill fill)
    {
        BinaryStream stream = BinaryStream::Replacing(folder / "written");
        fill(stream);
        EXPECT_FALSE(stream.Close());
        return ReadFile(folder / "written");
    }

    BinaryStream Open(std::string_view bytes)
    {
        WriteFile(folder / "read", bytes);
        return FolderItem(folder / "read").OpenAsBinaryFile();
    }

    TemporaryFolder folder;
};

using Stream = FileTest;
using Replacing = FileTest;

TEST_F(Stream, ValuesHaveTheirBytes)
{
    const std::string bytes = Written([](BinaryStream& stream) {
        stream.WritePString("");
        stream.WritePString("é");
        stream.WriteInt32(0x01020384);
        stream.WriteInt32(-2);
        stream.WriteBoolean(true);
        stream.WriteBoolean(false);
    });
    EXPECT_EQ(bytes, std::string("\0\2\xC3\xA9\1\2\3\x84\xFF\xFF\xFF\xFE\1\0", 14));
    BinaryStream stream = Open(bytes);
    EXPECT_EQ(stream.ReadPString(), "");
    EXPECT_EQ(stream.ReadPString(), "é");
    EXPECT_EQ(stream.ReadInt32(), 0x01020384);
    EXPECT_EQ(stream.ReadInt32(), -2);
    EXPECT_TRUE(stream.ReadBoolean());
    EXPECT_FALSE(stream.ReadBoolean());
}

TEST_F(Stream, LongTextIsCutBetweenCharacters)
{
    const auto kept = [&](const std::string& text) {
        const std::string bytes = Written([&](BinaryStream& stream) { stream.WritePString(text); });
        EXPECT_EQ(static_cast<unsigned char>(bytes.at(0)), bytes.size() - 1);
        EXPECT_EQ(text.substr(0, bytes.size() - 1), bytes.substr(1));
        return bytes.size() - 1;
    };
    const std::string a(252, 'a');
    EXPECT_EQ(kept(a + "bcd"), 255U);
    EXPECT_EQ(kept(a + "bcde"), 255U);
    EXPECT_EQ(kept(a + "b" + "é"), 255U);
    EXPECT_EQ(kept(a + "bc" + "é"), 254U);
    EXPECT_EQ(kept(a + "b" + "€"), 253U);
    EXPECT_EQ(kept(a + "😀"), 252U);
    EXPECT_EQ(kept(a + "€" + "é"), 255U);
    EXPECT_LE(kept(std::string(10000, '\xA9')), 255U);
}

TEST_F(Stream, ReadsNothingPastTheEnd)
{
    BinaryStream stream = Open("\5abc");
    EXPECT_EQ(stream.ReadPString(), "abc");
    EXPECT_EQ(stream.ReadPString(), "");
    EXPECT_EQ(stream.ReadInt32(), 0);
    EXPECT_FALSE(stream.ReadBoolean());
    EXPECT_EQ(stream.Read(0x7fffffff), "");
    EXPECT_FALSE(stream.Close());
    EXPECT_EQ(Open("\1\2\3").ReadInt32(), 0);
    BinaryStream longField = Open(std::string(70'000, 'x') + "\1z end");
    EXPECT_EQ(longField.Read(70'000), "") << "no field is that long";
    EXPECT_EQ(longField.ReadPString(), "z") << "but what follows has its place";
    EXPECT_EQ(longField.Read(SIZE_MAX), "");
    EXPECT_EQ(longField.Read(1), "");
    EXPECT_EQ(longField.ReadLast(3), "end");
    EXPECT_EQ(Open("abc").ReadLast(100), "abc");

    EXPECT_EQ(FolderItem(folder / "missing").OpenAsBinaryFile().Error(), std::errc::no_such_file_or_directory);
    EXPECT_FALSE(FolderItem(folder / "").OpenAsBinaryFile().IsOpen()) << "a folder";
    EXPECT_FALSE(FolderItem().OpenAsBinaryFile().IsOpen());
}

TEST_F(Stream, OnlyRegularFilesAreRead)
{
    const fs::path pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    for (const fs::path& path : {pipe, fs::path("/dev/zero"), fs::path("/dev/stdin")}) {
        const BinaryStream stream = FolderItem(path).OpenAsBinaryFile();
        EXPECT_FALSE(stream.IsOpen());
        EXPECT_EQ(stream.Error(), FileFault::NotRegular) << path;
        EXPECT_EQ(MarkerFile(FolderItem(path)).Error().English(), path.string() + ": Is not a regular file");
    }
    const auto errorOf = [&](const std::string& text) {
        WriteFile(folder / "read", text);
        return MarkerFile(FolderItem(folder / "read")).Error().English();
    };
    const std::string line(65536, 'x'), name = folder / "read";
    EXPECT_EQ(errorOf(line + "\r\n" + line + "\r" + line), "");
    EXPECT_EQ(errorOf("\n" + line + "x\n"), name + ": a line is longer than 64 KiB");
    EXPECT_EQ(errorOf(std::string("a\0b", 3)), name + ": not a text file");
    errorOf("a\n");
    fs::resize_file(folder / "read", 1ULL << 40U);
    EXPECT_EQ(MarkerFile(FolderItem(folder / "read")).Error().English(), name + ": larger than 64 MiB");
}

TEST_F(Stream, ImpossibleNamesAreErrors)
{
    std::string deep = folder / "";
    for (int i = 0; i < 2500; ++i) {
        deep += "d/";
    }
    WriteFile(folder / "fi", "old");
    const std::string withZero = std::string(folder / "fi") + std::string("\0x", 2);
    for (const std::string& name :
         {std::string(folder / std::string(256, 'n')), deep + "file", withZero, std::string()}) {
        const FolderItem file(name);
        EXPECT_TRUE(Replace(name, "x") && file.OpenAsBinaryFile().Error() && file.CreateNewBinaryFile().Error());
        EXPECT_TRUE(!file.Exists() && !file.IsOwnRegularFile() && !IsOwnPdf(file));
        file.Delete();
    }
    EXPECT_EQ(folder.Names(), Names{"fi"});
    EXPECT_EQ(ReadFile(folder / "fi"), "old");
    EXPECT_FALSE(Replace(folder / std::string(255, 'n'), "x"));
}

TEST_F(Replacing, TheOldFileStandsUntilTheNewOneIsWhole)
{
    const fs::path file = folder / "file";
    WriteFile(file, "old");
    {
        BinaryStream dropped = BinaryStream::Replacing(file);
        dropped.Write(std::string(100000, 'x'));
        EXPECT_EQ(ReadFile(file), "old");
        BinaryStream moved = std::move(dropped);
        moved.Write("y");
    }
    EXPECT_EQ(ReadFile(file), "old");
    EXPECT_EQ(folder.Names(), Names{"file"});
    {
        BinaryStream one = BinaryStream::Replacing(file), other = BinaryStream::Replacing(file);
        one.Write("one");
        other.Write("other");
        EXPECT_FALSE(other.Close());
        EXPECT_FALSE(one.Close());
    }
    EXPECT_EQ(ReadFile(file), "one");
    EXPECT_EQ(folder.Names(), Names{"file"});
}

TEST_F(Replacing, PermissionsStay)
{
    const fs::path file = folder / "file", script = folder / "script";
    const ::mode_t umask = ::umask(022);
    WriteFile(file, "old");
    WriteFile(script, "old");
    fs::permissions(file, fs::perms(0600));
    fs::permissions(script, fs::perms(0775));
    for (const fs::path& path : {file, script, fs::path(folder / "new")}) {
        EXPECT_FALSE(Replace(path, "new"));
        EXPECT_EQ(ReadFile(path), "new");
    }
    ::umask(umask);
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0600));
    EXPECT_EQ(fs::status(script).permissions(), fs::perms(0775));
    EXPECT_EQ(fs::status(folder / "new").permissions(), fs::perms(0644));
}

TEST_F(Replacing, NobodyElseMayOpenTheNewFileBeforeItsTime)
{
    const fs::path file = folder / "file";
    const ::mode_t umask = ::umask(0);
    WriteFile(file, "old");
    fs::permissions(file, fs::perms(0600));
    BinaryStream replacing = BinaryStream::Replacing(file), made = BinaryStream::New(folder / "new");
    int open = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator("/proc/self/fd")) {
        std::error_code gone;  // what the iteration itself has open
        if (fs::read_symlink(entry, gone).string().starts_with((folder / "").string())) {
            ++open;
            EXPECT_EQ(fs::status(entry).permissions(), fs::perms(0600)) << fs::read_symlink(entry);
        }
    }
    EXPECT_GE(open, 3) << "the old file and two new ones";
    EXPECT_FALSE(made.Close());
    ::umask(umask);
    EXPECT_EQ(fs::status(folder / "new").permissions(), fs::perms(0600));
}

TEST_F(Replacing, OwnerGroupAndAttributesStayButNoRightGrows)
{
    const fs::path file = folder / "file";
    WriteFile(file, "old");
    const bool attributes = ::setxattr(file.c_str(), "user.note", "kept", 4, 0) == 0;
    const bool superuser = ::chown(file.c_str(), 1234, 2345) == 0;
    fs::permissions(file, fs::perms(06676));
    EXPECT_FALSE(Replace(file, "new"));
    struct stat status {};
    ASSERT_EQ(::stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0676U) << "whoever writes a program anew does not make it run as another";
    std::string note(4, ' ');
    EXPECT_TRUE(!attributes || (::getxattr(file.c_str(), "user.note", note.data(), 4) == 4 && note == "kept"));
    if (superuser) {
        EXPECT_TRUE(status.st_uid == 1234 && status.st_gid == 2345);
        const Unprivileged user;
        EXPECT_FALSE(Replace(file, "newer"));
        EXPECT_EQ(fs::status(file).permissions(), fs::perms(0666)) << "the group is another";
    }
}

TEST_F(Replacing, AListOfWhoHasAccessStays)
{
    const fs::path file = folder / "file";
    WriteFile(file, "old");
    // Version 2; tag, rights and id of the owner, user 1234, the group, the mask and the others, 16, 16 and 32 bits
    // each.
    using namespace std::string_literals;
    const std::string list = "\2\0\0\0"
                             "\1\0\6\0\xFF\xFF\xFF\xFF"
                             "\2\0\6\0\xD2\4\0\0"
                             "\4\0\4\0\xFF\xFF\xFF\xFF"
                             "\x10\0\6\0\xFF\xFF\xFF\xFF"
                             "\x20\0\0\0\xFF\xFF\xFF\xFF"s;
    const char* const name = "system.posix_acl_access";
    if (::setxattr(file.c_str(), name, list.data(), list.size(), 0) != 0) {
        GTEST_SKIP() << "the file system has no such lists";
    }
    EXPECT_FALSE(Replace(file, "new"));
    std::string kept(list.size(), ' ');
    EXPECT_EQ(::getxattr(file.c_str(), name, kept.data(), kept.size()), static_cast<ssize_t>(list.size()));
    EXPECT_EQ(kept, list);
}

TEST_F(Replacing, LinksAreFollowed)
{
    fs::create_directories(folder / "far/away");
    WriteFile(folder / "far/away/file", "old");
    fs::create_symlink("far/link", folder / "link");
    fs::create_symlink("away/file", folder / "far/link");
    EXPECT_FALSE(Replace(folder / "link", "new"));
    EXPECT_EQ(ReadFile(folder / "far/away/file"), "new");
    EXPECT_TRUE(fs::is_symlink(folder / "link") && fs::is_symlink(folder / "far/link"));

    fs::create_symlink(folder / "far/later", folder / "dangling");
    EXPECT_FALSE(Replace(folder / "dangling", "there"));
    EXPECT_TRUE(fs::is_symlink(folder / "dangling"));
    EXPECT_EQ(ReadFile(folder / "far/later"), "there");

    EXPECT_EQ(FolderItem(folder / "link").WithoutLinks().CreateBinaryFile().Error(), FileFault::IsALink);
    EXPECT_EQ(BinaryStream::New(folder / "dangling").Close(), std::errc::file_exists);

    fs::create_symlink("there", folder / "back");
    fs::create_symlink("back", folder / "there");
    EXPECT_TRUE(Replace(folder / "back", "nowhere"));
    EXPECT_EQ(folder.Names(), (Names{"back", "dangling", "far", "link", "there"}));
}

TEST_F(Replacing, WhatMayNotBeWrittenCannotBeOpened)
{
    const fs::path file = folder / "file";
    WriteFile(file, "old");
    fs::permissions(file, fs::perms(0444));
    for (const auto& [name, permissions] : {std::pair("closed", 0555), std::pair("sticky", 01777)}) {
        fs::create_directory(folder / name);
        WriteFile(folder / name / "writable", std::string(100, 'x'));
        fs::permissions(folder / name / "writable", fs::perms(0666));
        fs::permissions(folder / name, fs::perms(permissions));
    }
    {
        const Unprivileged user;
        if (!user.Worked()) {
            GTEST_SKIP() << "the superuser cannot step down here";
        }
        EXPECT_EQ(Replace(file, "new"), std::errc::permission_denied);
        EXPECT_EQ(Replace(folder / "closed/file", "new"), std::errc::permission_denied);
        EXPECT_EQ(Replace(folder / "closed/writable", "a shorter text"), std::error_code());
        EXPECT_EQ(Replace(folder / "sticky/writable", "a shorter text"), std::error_code());
        BinaryStream::Replacing(folder / "closed/writable").Write(std::string(100'000, 'x'));
        hasHalfTheRoom = true;
        EXPECT_EQ(Replace(folder / "closed/writable", std::string(1000, 'x')), std::errc::no_space_on_device);
        hasHalfTheRoom = false;
    }
    for (const char* const path : {"closed/writable", "sticky/writable"}) {
        EXPECT_EQ(ReadFile(folder / path), "a shorter text") << "written in place, but only when whole";
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "sticky"), {}), 1);
    EXPECT_EQ(Replace(folder / "closed", "new"), std::errc::is_a_directory);
    EXPECT_EQ(Replace(folder / "missing/file", "new"), std::errc::no_such_file_or_directory);
    EXPECT_EQ(ReadFile(file), "old");
    EXPECT_EQ(folder.Names(), (Names{"closed", "file", "sticky"}));
}

TEST_F(Replacing, PipesAndDevicesAreWrittenDirectly)
{
    const fs::path pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(Replace(pipe, "x"), std::errc::no_such_device_or_address) << "nobody reads it";
    auto reader = std::async(std::launch::async, [&] { return ReadFile(pipe); });
    const std::string bytes(300000, 'x');
    BinaryStream awaited = FolderItem(pipe).WaitingForReader().CreateBinaryFile();
    awaited.Write(bytes);
    EXPECT_FALSE(awaited.Close());
    EXPECT_TRUE(reader.get() == bytes);
    EXPECT_TRUE(fs::is_fifo(pipe));
    EXPECT_EQ(folder.Names(), Names{"pipe"});

    EXPECT_EQ(Replace("/dev/full", "x"), std::errc::no_space_on_device);
    EXPECT_EQ(Replace("/dev/full", bytes), std::errc::no_space_on_device);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_F(Replacing, ANameStaysWhereItWasGiven)
{
    const fs::path old = fs::current_path();
    fs::create_directory(folder / "elsewhere");
    fs::current_path(folder / "");
    const FolderItem item("größe.pdf");
    fs::current_path(folder / "elsewhere");
    EXPECT_EQ(item.Name(), "größe.pdf");
    EXPECT_FALSE(item.Exists());
    EXPECT_FALSE(item.CreateBinaryFile().Close());
    fs::current_path(old);
    EXPECT_TRUE(item.Exists());
    EXPECT_TRUE(fs::exists(folder / "größe.pdf"));
    EXPECT_TRUE(FolderItem().IsEmpty() && !FolderItem().Exists());
}

}  // namespace
}  // namespace linealis::test
