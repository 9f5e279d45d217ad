#include "TargetNameFile.h"

#include "Arithmetic.h"
#include "ByteReader.h"
#include "GamePosition.h"
#include "WholeFile.h"

namespace vtr {

namespace {

enum NameFileOffset : std::size_t {
    sizeField = 0,  // of all that follows the first 8 bytes
    countField = 4,
    offsetFields = 8,  // one of each name, counted from here
    firstName = offsetFields + 4 * targetNameTotal
};

/// The size field of a file of empty names.
constexpr std::int64_t sizeWithoutLetters = firstName - offsetFields + targetNameTotal;
static_assert(firstName == 1240);
static_assert(sizeWithoutLetters + targetNamesMaxLength == 32767);

/// A number in the file's odd three bytes: one, then two as a two-byte value that counts factor each.
std::size_t ThreeByteValue(ByteReader &reader, std::size_t factor) {
    const auto [low, middle, high] = reader.Take<3>();
    return low + factor * TwoByteValue(middle, high);
}

std::string NextName(ByteReader &reader) {
    std::string name;
    while (const std::uint8_t byte = reader.Next())
        name.push_back(static_cast<char>(byte));
    return name;
}

}  // namespace

void DecodeTargetNames(ConstByteSpan bytes, const std::string &path, Campaign &campaign,
                       LoadListener &listener) {
    listener.HaveRead(path, bytes);
    ByteReader reader(bytes);
    reader.Skip(countField);
    const std::size_t count = ThreeByteValue(reader, 256);
    reader.Skip(1);
    // The game counts the first offset's upper bytes 255-fold from here; for the 1232 of every file that has
    // 308 names that is where the first name starts.
    reader.Skip(ThreeByteValue(reader, 255) + 1);

    for (std::size_t i = 0; i < count; ++i) {
        const Place place{.file = path,
                          .offset = static_cast<std::int64_t>(reader.Position()),
                          .item = "target name",
                          .index = static_cast<int>(i)};
        campaign.TargetNameTable[CheckIndex(static_cast<std::int64_t>(i), targetNameTotal, place)] =
            NextName(reader);
        listener.AddProgress(8.0 / targetNameTotal);
    }
    if (reader.RanPastEnd())
        listener.FoundShortFile({path, bytes.size(), reader.Position()});
}

void ReadTargetNames(const std::string &path, Campaign &campaign, LoadListener &listener) {
    if (!path.empty())
        DecodeTargetNames(ReadSmallFile(path), path, campaign, listener);
}

Bytes EncodeTargetNames(const Campaign &campaign, const std::string &path) {
    std::int64_t size = sizeWithoutLetters;
    for (const std::string &name : campaign.TargetNameTable)
        size += static_cast<std::int64_t>(name.size());
    ToInt16(size, {.file = path, .offset = sizeField, .item = "size of all target names"});

    Bytes file(firstName);
    file.reserve(offsetFields + static_cast<std::size_t>(size));
    PutUint32(file, sizeField, static_cast<std::uint32_t>(size));
    PutUint32(file, countField, targetNameTotal);
    for (std::size_t i = 0; i < targetNameTotal; ++i) {
        PutUint32(file, offsetFields + 4 * i, static_cast<std::uint32_t>(file.size() - offsetFields));
        const std::string &name = campaign.TargetNameTable[i];
        file.insert(file.end(), name.begin(), name.end());
        file.push_back(0);
    }
    return file;
}

void WriteTargetNames(const std::string &path, const Campaign &campaign, const FileWrite &write) {
    if (!path.empty())
        write(path, EncodeTargetNames(campaign, path));
}

}  // namespace vtr
