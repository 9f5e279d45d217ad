#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "Bytes.h"
#include "Campaign.h"
#include "ErrorThrownBy.h"
#include "LoadListener.h"

// What the tests of the game's file formats share.

namespace vtr {

/// Keeps what a reader reports.
struct RecordingListener : LoadListener {
    std::vector<double> steps;
    std::vector<ShortFile> shortFiles;

    void AddProgress(double step) override { steps.push_back(step); }
    void FoundShortFile(const ShortFile &file) override { shortFiles.push_back(file); }
};

/// The offsets at which before and after differ; a test failure when they differ in size.
inline std::vector<std::size_t> ChangedOffsets(const Bytes &before, const Bytes &after) {
    EXPECT_EQ(before.size(), after.size());
    std::vector<std::size_t> offsets;
    for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i)
        if (before[i] != after[i])
            offsets.push_back(i);
    return offsets;
}

/// Expects before and after to differ within size bytes from offset on, and nowhere else.
inline void ExpectChangeOnlyWithin(const Bytes &before, const Bytes &after, std::size_t offset,
                                   std::size_t size) {
    const std::vector<std::size_t> changed = ChangedOffsets(before, after);
    EXPECT_FALSE(changed.empty());
    for (const std::size_t at : changed)
        EXPECT_TRUE(at >= offset && at < offset + size) << at;
}

/// Runs decode(bytes, campaign, listener) on file cut to each length from 0 to complete, and expects of
/// tables(campaign) exactly what it makes of the same bytes filled up with zeros, one report of the short
/// file, and none at its full length.
template <typename Decode, typename Tables>
void ExpectMissingBytesToCountAsZero(const Bytes &file, const Decode &decode, const Tables &tables) {
    const auto ofCut = std::make_unique<Campaign>();
    const auto ofFilled = std::make_unique<Campaign>();
    Bytes filled(file.size());
    RecordingListener heardOfFilled;
    decode(filled, *ofFilled, heardOfFilled);
    for (std::size_t length = 0; length <= file.size(); ++length) {
        RecordingListener heardOfCut;
        decode(Bytes(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length)), *ofCut, heardOfCut);
        ASSERT_TRUE(tables(*ofCut) == tables(*ofFilled)) << length;
        ASSERT_EQ(heardOfCut.steps, heardOfFilled.steps);
        ASSERT_TRUE(heardOfFilled.shortFiles.empty());
        ASSERT_EQ(heardOfCut.shortFiles.size(), length < file.size() ? 1U : 0U) << length;
        for (const ShortFile &report : heardOfCut.shortFiles) {
            ASSERT_EQ(report.found, length);
            ASSERT_EQ(report.expected, file.size());
        }
        if (length < file.size() && file[length] != 0) {
            filled[length] = file[length];
            heardOfFilled = {};
            decode(filled, *ofFilled, heardOfFilled);
        }
    }
}

/// Runs decode on many damaged versions of file. It may throw Errors; the sanitizers see to the rest.
inline void ExpectDamageToBeSurvived(const Bytes &file, const std::function<void(const Bytes &)> &decode) {
    std::mt19937 random(1944);
    for (int run = 0; run < 2000; ++run) {
        Bytes damaged = file;
        if (run % 4 == 0)
            damaged.resize(random() % (file.size() + 100));
        for (std::size_t hits = 1 + random() % 20; hits > 0 && !damaged.empty(); --hits)
            damaged[random() % damaged.size()] = static_cast<std::uint8_t>(random());
        try {
            decode(damaged);
        } catch (const Error &error) {
            ASSERT_FALSE(error.PlaceText().empty()) << error.what();
        }
    }
}

}  // namespace vtr
