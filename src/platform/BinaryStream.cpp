#include "platform/BinaryStream.h"

#include "platform/ByteSource.h"
#include "platform/InputFile.h"
#include "platform/OutputFile.h"

#include <algorithm>
#include <array>

namespace linealis {

namespace {

/// Returns the length of the longest prefix of at most `limit` bytes that does not split a UTF-8 character.
std::size_t CutLength(std::string_view text, std::size_t limit)
{
    if (text.size() <= limit) {
        return text.size();
    }
    constexpr std::size_t longestCharacter = 4;
    const auto isContinuation = [&](std::size_t i) {
        return (static_cast<unsigned char>(text[i]) & 0xC0U) == 0x80U;
    };
    for (std::size_t length = limit; length + longestCharacter > limit; --length) {
        if (!isContinuation(length)) {
            return length;
        }
    }
    return limit;  // not UTF-8, so there is no character boundary
}

OutputFile::Target TargetOf(Links links)
{
    using Target = OutputFile::Target;
    switch (links) {
    case Links::Follow:
        return Target::Any;
    case Links::FollowAndWait:
        return Target::AnyAwaited;
    case Links::Refuse:
        break;
    }
    return Target::Regular;
}

std::unique_ptr<ByteSource> SourceIn(std::FILE* file)
{
    return file == nullptr ? nullptr : std::make_unique<FileSource>(file);
}

}  // namespace

BinaryStream::BinaryStream() = default;
BinaryStream::BinaryStream(BinaryStream&& other) noexcept = default;
BinaryStream& BinaryStream::operator=(BinaryStream&& other) noexcept = default;
BinaryStream::~BinaryStream() = default;

BinaryStream BinaryStream::Reading(const std::filesystem::path& path)
{
    BinaryStream stream;
    stream.input = SourceIn(OpenForReading(path, stream.error));
    return stream;
}

BinaryStream BinaryStream::Replacing(const std::filesystem::path& path, Links links)
{
    BinaryStream stream;
    stream.output = OutputFile::Open(path, TargetOf(links), stream.error);
    return stream;
}

BinaryStream BinaryStream::New(const std::filesystem::path& path)
{
    BinaryStream stream;
    stream.output = OutputFile::Open(path, OutputFile::Target::New, stream.error);
    return stream;
}

BinaryStream BinaryStream::OnStandardOutput()
{
    BinaryStream stream;
    stream.output = OutputFile::OnStandardOutput(stream.error);
    return stream;
}

BinaryStream BinaryStream::OnStandardInput()
{
    BinaryStream stream;
    stream.input = SourceIn(OpenStandardInput(stream.error));
    return stream;
}

BinaryStream BinaryStream::FromMemory(std::string_view bytes)
{
    BinaryStream stream;
    stream.input = std::make_unique<MemorySource>(bytes);
    return stream;
}

BinaryStream BinaryStream::IntoMemory(std::string& bytes)
{
    BinaryStream stream;
    stream.memory = &bytes;
    return stream;
}

std::error_code BinaryStream::Close()
{
    if (output && !error) {
        error = output->Commit();
    }
    output.reset();
    input.reset();
    memory = nullptr;
    return error;
}

void BinaryStream::Write(std::string_view bytes)
{
    if (output && !error) {
        error = output->Write(bytes);
    }
    if (memory != nullptr) {
        memory->append(bytes);
    }
}

void BinaryStream::WritePString(std::string_view text)
{
    const std::size_t length = CutLength(text, longestPString);
    const char lengthByte = static_cast<char>(length);
    Write({&lengthByte, 1});
    Write(text.substr(0, length));
}

void BinaryStream::WriteInt32(std::int32_t value)
{
    const auto bits = static_cast<std::uint32_t>(value);
    const std::array<char, 4> bytes = {static_cast<char>(bits >> 24U), static_cast<char>(bits >> 16U),
                                       static_cast<char>(bits >> 8U), static_cast<char>(bits)};
    Write({bytes.data(), bytes.size()});
}

void BinaryStream::WriteBoolean(bool value)
{
    const char byte = value ? 1 : 0;
    Write({&byte, 1});
}

std::string BinaryStream::Read(std::size_t count)
{
    if (!input) {
        return {};
    }
    if (count > longestField) {
        input->Skip(count);
        return {};
    }
    std::string bytes(count, '\0');
    bytes.resize(input->Read(bytes.data(), count));
    runShort = runShort || bytes.size() < count;
    NoteReadError();
    return bytes;
}

void BinaryStream::NoteReadError()
{
    if (!error) {
        error = input->Error();
    }
}

std::string BinaryStream::ReadLast(std::size_t count)
{
    const std::size_t wanted = std::min(count, longestField);
    if (input) {
        input->GoBackFromEnd(wanted);
    }
    return Read(wanted);
}

std::string BinaryStream::ReadRest(std::size_t longest)
{
    std::string rest, piece;
    do {
        piece = Read(longestField);
        rest += piece;
    } while (!piece.empty() && rest.size() <= longest);
    return rest;
}

bool BinaryStream::AtEnd()
{
    if (!input) {
        return true;
    }
    const bool isAtEnd = input->AtEnd();
    NoteReadError();
    return isAtEnd;
}

std::string BinaryStream::ReadPString()
{
    const std::string length = Read(1);
    return length.empty() ? std::string() : Read(static_cast<unsigned char>(length[0]));
}

std::int32_t BinaryStream::ReadInt32()
{
    std::string bytes = Read(4);
    if (bytes.size() < 4) {
        return 0;
    }
    std::uint32_t value = 0;
    for (const char byte : bytes) {
        value = value << 8U | static_cast<unsigned char>(byte);
    }
    return static_cast<std::int32_t>(value);
}

bool BinaryStream::ReadBoolean()
{
    const std::string byte = Read(1);
    return !byte.empty() && byte[0] != 0;
}

}  // namespace linealis
