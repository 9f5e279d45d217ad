#include "UnsavedWork.h"

#include <algorithm>
#include <bit>
#include <concepts>
#include <memory>
#include <string_view>
#include <type_traits>

#include "Errors.h"
#include "GamePosition.h"
#include "Hash.h"

namespace vtr {

namespace {

constexpr std::string_view signature = "VTR-WORK";
constexpr std::uint32_t formatVersion = 1;

// The file begins with the signature, the version and the size of the whole file, and ends with the hash of
// all that is before it. In between stand the fields, little-endian and without gaps.
constexpr std::size_t versionOffset = signature.size();
constexpr std::size_t sizeOffset = versionOffset + sizeof(std::uint32_t);
constexpr std::size_t firstField = sizeOffset + sizeof(std::uint64_t);
constexpr std::size_t hashSize = sizeof(std::uint64_t);

class FieldWriter {
  public:
    template <std::integral Number>
    void Put(Number value) {
        auto rest = static_cast<std::make_unsigned_t<Number>>(value);
        for (std::size_t i = 0; i < sizeof(Number); ++i, rest = static_cast<decltype(rest)>(rest >> 8))
            bytes.push_back(static_cast<std::uint8_t>(rest));
    }
    void Put(double value) { Put(std::bit_cast<std::uint64_t>(value)); }
    void Put(std::string_view text) {
        Put(static_cast<std::uint32_t>(text.size()));
        bytes.insert(bytes.end(), text.begin(), text.end());
    }

    template <typename... Values>
    void operator()(const Values &...values) {
        (Put(values), ...);
    }

    Bytes bytes;
};

template <std::integral Number>
Number NumberAt(ConstByteSpan bytes, std::size_t offset) {
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < sizeof(Number); ++i)
        number |= std::uint64_t{bytes[offset + i]} << (8 * i);
    return static_cast<Number>(number);
}

class FieldReader {
  public:
    FieldReader(ConstByteSpan fields, const std::string &path) : fields_(fields), path_(path) {}

    bool IsAtEnd() const { return position_ == fields_.size(); }
    Error WrongField(std::string expected, std::string found) const {
        return {ErrorKind::IndexOutOfRange,
                {.file = path_, .offset = static_cast<std::int64_t>(firstField + position_)},
                std::move(expected),
                std::move(found)};
    }

    template <std::integral Number>
    void Get(Number &value) {
        value = NumberAt<Number>(Take(sizeof(Number)), 0);
    }
    void Get(double &value) {
        std::uint64_t bits = 0;
        Get(bits);
        value = std::bit_cast<double>(bits);
    }
    void Get(std::string &text) {
        std::uint32_t length = 0;
        Get(length);
        const ConstByteSpan letters = Take(length);
        text.assign(letters.begin(), letters.end());
    }

    template <typename... Values>
    void operator()(Values &...values) {
        (Get(values), ...);
    }

  private:
    ConstByteSpan Take(std::size_t count) {
        if (count > fields_.size() - position_)
            throw WrongField("a field of " + std::to_string(count) + " bytes",
                             std::to_string(fields_.size() - position_) + " bytes");
        position_ += count;
        return fields_.subspan(position_ - count, count);
    }

    const ConstByteSpan fields_;
    const std::string &path_;
    std::size_t position_ = 0;
};

void VisitFiles(FieldWriter &fields, const std::vector<StampedFile> &files) {
    fields(static_cast<std::uint32_t>(files.size()));
    for (const StampedFile &file : files)
        fields(file.usualName, file.stamp.size, file.stamp.modified, file.stamp.known, file.stamp.hash);
}

void VisitFiles(FieldReader &fields, std::vector<StampedFile> &files) {
    std::uint32_t count = 0;
    for (fields(count); count > 0; --count) {
        StampedFile &file = files.emplace_back();
        fields(file.usualName, file.stamp.size, file.stamp.modified, file.stamp.known, file.stamp.hash);
    }
}

using TargetNames = decltype(Campaign::TargetNameTable);

// A target's name is nearly always the copy of its entry in the table: then one byte tells it.

void VisitName(FieldWriter &fields, const TargetRecord &target, const TargetNames &names) {
    const bool isCopy = target.code < names.size() && target.name == names[target.code];
    fields(std::uint8_t{isCopy});
    if (!isCopy)
        fields(target.name);
}

void VisitName(FieldReader &fields, TargetRecord &target, const TargetNames &names) {
    std::uint8_t isCopy = 0;
    fields(isCopy);
    if (target.code >= names.size())
        throw fields.WrongField("a target's code from 0 to " + std::to_string(names.size() - 1),
                                std::to_string(target.code));
    if (isCopy != 0)
        target.name = names[target.code];
    else
        fields(target.name);
}

void CheckOffset(FieldWriter & /*fields*/, double /*metres*/) {}

void CheckOffset(FieldReader &fields, double metres) {
    if (!(metres >= 0 && metres <= tileMetres))
        throw fields.WrongField("0 to " + std::to_string(tileMetres) + " metres", std::to_string(metres));
}

template <typename Fields, typename Offsets>
void VisitOffsets(Fields &fields, Offsets &offsets) {
    for (auto &metres : offsets) {
        fields(metres);
        CheckOffset(fields, metres);
    }
}

/// The fields of a file in their order, for writing and for reading.
template <typename Fields, typename Work, typename Tables>
void VisitAll(Fields &fields, Work &work, Tables &tables) {
    fields(work.project, work.keptAt);
    VisitFiles(fields, work.files);
    for (auto &name : tables.TargetNameTable)
        fields(name);
    for (auto &target : tables.TargetTable) {
        fields(target.x, target.y, target.code, target.spare, target.count, target.extra_word,
               target.airfield_mark, target.airfield_ref);
        VisitName(fields, target, tables.TargetNameTable);
        VisitOffsets(fields, target.fineOffsets);
        for (auto &byte : target.unknown)
            fields(byte);
    }
    for (auto &airfield : tables.AirfieldTable) {
        fields(airfield.index_byte, airfield.base_1940, airfield.base_1943, airfield.base_1944,
               airfield.base_1945, airfield.spare, airfield.airfield_extra_word, airfield.country);
        for (auto &slot : airfield.yearSlots)
            fields(slot.aircraft, slot.german, slot.german_no_plane, slot.allied_no_plane_a,
                   slot.allied_no_plane_b);
    }
    fields(tables.RailwayLineCount, tables.firstDisabledRailwayLine);
    for (auto &line : tables.RailwayTable) {
        fields(line.x1, line.x2, line.y1, line.y2);
        VisitOffsets(fields, line.fineOffsets);
    }
    for (auto &frontline : tables.FrontlineTable)
        for (auto &point : frontline.points)
            fields(point.x, point.y, point.on_map);
}

/// The fields of a file that is whole. Throws an Error when it is not.
ConstByteSpan FieldsOf(ConstByteSpan bytes, const std::string &path) {
    const auto fail = [&path](ErrorKind kind, std::size_t offset, std::string expected, std::string found) {
        throw Error(kind, {.file = path, .offset = static_cast<std::int64_t>(offset)}, std::move(expected),
                    std::move(found));
    };
    const std::string found = std::to_string(bytes.size()) + " bytes";
    if (bytes.size() < firstField + hashSize)
        fail(ErrorKind::FileTooShort, 0, "a file of unsaved work", found);
    if (!std::ranges::equal(bytes.first(signature.size()), signature))
        fail(ErrorKind::TypeMismatch, 0, "a file of unsaved work", "something else");
    if (const auto version = NumberAt<std::uint32_t>(bytes, versionOffset); version != formatVersion)
        fail(ErrorKind::TypeMismatch, versionOffset,
             "unsaved work of this version of the editor (format " + std::to_string(formatVersion) + ")",
             "format " + std::to_string(version) + ", which another version of the editor wrote");
    if (const auto size = NumberAt<std::uint64_t>(bytes, sizeOffset); size != bytes.size())
        fail(size > bytes.size() ? ErrorKind::FileTooShort : ErrorKind::FileTooLarge, sizeOffset,
             std::to_string(size) + " bytes", found);
    const std::size_t hashOffset = bytes.size() - hashSize;
    if (NumberAt<std::uint64_t>(bytes, hashOffset) != HashOf(bytes.first(hashOffset)))
        fail(ErrorKind::TypeMismatch, hashOffset, "the checksum of its content", "another: it is damaged");
    return bytes.subspan(firstField, hashOffset - firstField);
}

}  // namespace

bool IsOfAnotherVersion(ConstByteSpan bytes) {
    return bytes.size() >= firstField && std::ranges::equal(bytes.first(signature.size()), signature) &&
           NumberAt<std::uint32_t>(bytes, versionOffset) != formatVersion;
}

Bytes EncodeUnsavedWork(const UnsavedWork &work, const Campaign &campaign) {
    FieldWriter fields;
    fields.bytes.reserve(std::size_t{1} << 17);
    fields.bytes.assign(signature.begin(), signature.end());
    fields(formatVersion, std::uint64_t{});
    VisitAll(fields, work, campaign);
    const std::size_t size = fields.bytes.size() + hashSize;
    for (std::size_t i = 0; i < sizeof(std::uint64_t); ++i)
        fields.bytes[sizeOffset + i] = static_cast<std::uint8_t>(std::uint64_t{size} >> (8 * i));
    fields(HashOf(fields.bytes));
    return std::move(fields.bytes);
}

UnsavedWork DecodeUnsavedWork(ConstByteSpan bytes, const std::string &path, Campaign &campaign) {
    FieldReader fields(FieldsOf(bytes, path), path);
    UnsavedWork work;
    const auto tables = std::make_unique<Campaign>(campaign);
    VisitAll(fields, work, *tables);
    if (!fields.IsAtEnd())
        throw fields.WrongField("the end of the fields", "more of them");
    campaign = std::move(*tables);
    return work;
}

}  // namespace vtr
