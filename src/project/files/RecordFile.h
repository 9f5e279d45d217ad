#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "ByteReader.h"
#include "Bytes.h"
#include "Errors.h"
#include "LoadListener.h"

namespace vtr {

/// A file of records begins with their count in 32 bits.
constexpr std::size_t recordCountSize = 4;

/// A file with one record for each item of a kind.
template <std::size_t RecordSize>
struct RecordFile {
    std::string_view item;  ///< what messages call one
    std::size_t total;
    double progress;  ///< of reading the whole file

    /// Of the whole file, in bytes.
    constexpr std::size_t Size() const { return recordCountSize + total * RecordSize; }

    Place PlaceOf(const std::string &path, std::size_t i) const {
        return {.file = path,
                .offset = static_cast<std::int64_t>(recordCountSize + i * RecordSize),
                .item = item,
                .index = static_cast<int>(i)};
    }

    /// Calls decode(i, record, place) for every record of the file's bytes; path is for messages.
    template <typename DecodeRecord>
    void Decode(ConstByteSpan bytes, const std::string &path, LoadListener &listener,
                DecodeRecord decode) const {
        listener.HaveRead(path, bytes);
        ByteReader reader(bytes);
        reader.Skip(recordCountSize);
        for (std::size_t i = 0; i < total; ++i) {
            decode(i, reader.Take<RecordSize>(), PlaceOf(path, i));
            listener.AddProgress(progress / static_cast<double>(total));
        }
        if (reader.RanPastEnd())
            listener.FoundShortFile({path, bytes.size(), reader.Position()});
    }

    /// The file's bytes; encode(i, record, place) fills its records, which are zero before.
    template <typename EncodeRecord>
    Bytes Encode(const std::string &path, EncodeRecord encode) const {
        Bytes file(Size());
        PutUint32(file, 0, static_cast<std::uint32_t>(total));
        const ByteSpan records = ByteSpan(file).subspan(recordCountSize);
        for (std::size_t i = 0; i < total; ++i)
            encode(i, records.subspan(i * RecordSize).first<RecordSize>(), PlaceOf(path, i));
        return file;
    }
};

}  // namespace vtr
