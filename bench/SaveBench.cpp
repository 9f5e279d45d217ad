// Encoding and saving all six files, compared with writing, flushing and renaming the same bytes.

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <vector>

#include "Comparison.h"
#include "SampleCampaign.h"
#include "SaveCampaign.h"
#include "SaveFiles.h"
#include "WholeFile.h"

namespace {

using namespace vtr;

void WritePlainly(const std::string &folder, const std::string &name, const Bytes &bytes) {
    const std::string temporary = folder + name + ".new";
    const int file = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (file < 0 || write(file, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()) ||
        fsync(file) != 0 || close(file) != 0 || std::rename(temporary.c_str(), (folder + name).c_str()) != 0)
        std::abort();
    const int directory = open(folder.c_str(), O_RDONLY | O_DIRECTORY);
    if (directory < 0 || fsync(directory) != 0)
        std::abort();
    close(directory);
}

/// Nothing is to be asked.
struct NoQuestions : SaveQuestions {
    bool MayOverwrite(const std::vector<std::string_view> &) override { std::abort(); }
    bool MaySaveWithoutEarlierVersion(const Error &) override { std::abort(); }
};

}  // namespace

int main() {
    // In the current folder, because the folder for temporary files may be in memory, where a flush is free.
    const std::string folder = std::filesystem::current_path().string() + "/vtr-save-bench/";
    WriteSampleCampaign(folder, false);
    const std::unique_ptr<Campaign> campaign = MakeSampleCampaign();
    campaign->paths.ProjectDir = folder;
    const SaveBoxes all{true, true, true, false, true, true, true};
    std::vector<std::pair<std::string, Bytes>> files;
    for (const char *name :
         {"TARGET.DAT", "TARNAMES.STR", "GRIDDATA.DAT", "FRNTLINE.DAT", "AIRFIELD.DAT", "VTR_RRD.DAT"})
        files.emplace_back(name, ReadWholeFile(folder + name));

    const auto save = [&] {
        const SaveOutcome outcome = SaveFiles(*campaign, all, folder);
        if (!outcome.Succeeded() || outcome.written.size() != files.size())
            std::abort();
    };
    const auto writePlainly = [&] {
        for (const auto &[name, bytes] : files)
            WritePlainly(folder, name, bytes);
    };
    ReportAtMost("encode and save six files", CompareMedians(1000, save, writePlainly),
                 "write, flush and rename", 1.1);

    const auto session = std::make_unique<Session>();
    session->campaign = *campaign;
    session->programFolder = folder;
    session->dataFolder = folder + "data/";
    NoQuestions questions;
    const auto saveLater = [&] {
        if (!SaveCampaign(*session, all, questions)->Succeeded())
            std::abort();
    };
    const auto saveFirst = [&] {
        session->keptVersions = {};
        saveLater();
    };
    ReportAtMost("first save with earlier versions", CompareMedians(100, saveFirst, save), "without", 2.1);
    ReportAtMost("later saves", CompareMedians(100, saveLater, save), "without", 1.1);
    std::filesystem::remove_all(folder);
}
