#include "SaveFiles.h"

#include <algorithm>
#include <filesystem>
#include <new>
#include <system_error>

#include "CampaignFiles.h"
#include "Paths.h"
#include "TemporaryNames.h"
#include "Text.h"

namespace vtr {

namespace {

const CampaignFile *FileOfBox(std::size_t box) {
    const auto found = std::ranges::find(campaignFiles, static_cast<int>(box), &CampaignFile::saveBox);
    return found == campaignFiles.end() ? nullptr : &*found;
}

/// Why a save must leave the file of that key alone: it would not be the project's own, or another's.
std::string ObjectionTo(const ProjectPaths &paths, const CampaignFile &file) {
    const std::string name = Utf8OfProjectText(paths.*file.name);
    if (name.find_first_of("/\\") != std::string::npos || name.find("..") != std::string::npos)
        return "leads out of the folder";
    std::error_code failed;
    const auto onDisk = FilesystemPath(PathOnDisk(paths.ProjectDir + name));
    const bool isLink = std::filesystem::is_symlink(onDisk, failed);
    const auto isSame = [&](const std::string &other) {
        return UpperAscii(name) == UpperAscii(other) ||
               (isLink && !other.empty() &&
                std::filesystem::equivalent(onDisk, FilesystemPath(PathOnDisk(paths.ProjectDir + other)),
                                            failed));
    };
    for (const CampaignFile &other : campaignFiles)
        if (other.name != file.name && isSame(Utf8OfProjectText(paths.*other.name)))
            return "is the file of " + UpperAscii(other.key) + " too";
    return isSame(paths.ProjectFile) ? "is the project file itself" : "";
}

/// Where a link at path leads, when that is outside folder or cannot be told.
std::string LinkOutOf(const std::string &folder, const std::string &path) {
    std::error_code failed;
    if (!std::filesystem::is_symlink(FilesystemPath(PathOnDisk(path)), failed))
        return {};
    try {
        return RealPathOutside(folder, path);
    } catch (const Error &) {  // round in a circle: writing the file fails and says so
        return {};
    }
}

/// Replaces files, each of which must be as it is expected to be (null: as it likes), and keeps what they are
/// then.
class Replacer {
  public:
    Replacer(const FileStamps *expected, FileStamps &stamps) : expected_(expected), stamps_(stamps) {}

    FileWrite WriteFor(std::size_t box) const {
        return [this, box](const std::string &path, ConstByteSpan bytes) { Replace(box, path, bytes); };
    }

  private:
    void Replace(std::size_t box, const std::string &path, ConstByteSpan bytes) const {
        if (expected_ != nullptr && HasChanged((*expected_)[box], path))
            throw Error(ErrorKind::FileAccess, {.file = path}, "the file as it was when this save began",
                        "one that another program has changed since");
        try {
            AtomicWrite(path, bytes);
        } catch (const Error &error) {
            if (error.FileReplaced())
                stamps_[box] = KnownFileOf(path, bytes);
            else if (error.AfterTheFailure() == FileAfterwards::MayBeDamaged)
                stamps_[box] = KnownFileBySizeAndTime(path);
            throw;
        }
        stamps_[box] = KnownFileOf(path, bytes);
    }

    const FileStamps *expected_;
    FileStamps &stamps_;
};

std::optional<int> Write(const CampaignFile &file, const Campaign &campaign, const std::string &programFolder,
                         const Replacer &replacer) {
    const std::string &name = campaign.paths.*file.name;
    const std::string path = campaign.paths.PathOf(name);
    if (const std::string objection = name.empty() ? "" : ObjectionTo(campaign.paths, file);
        !objection.empty())
        throw Error(ErrorKind::FileAccess, {.file = path},
                    "a file in the project's folder that only " + UpperAscii(file.key) + " names",
                    "\"" + Shortened(Utf8OfProjectText(name)) + "\", which " + objection);
    // Without a file too: the grid data is checked all the same.
    return file.write(path, campaign, programFolder, replacer.WriteFor(file.SaveBox()));
}

bool IsTicked(const CampaignFile &file, const SaveBoxes &ticked) {
    return file.write != nullptr && ticked[file.SaveBox()];
}

}  // namespace

std::string_view SaveBoxCaption(std::size_t box) {
    const CampaignFile *const file = FileOfBox(box);
    return file == nullptr ? std::string_view() : file->usualName;
}

SaveBoxFile FileOfSaveBox(const ProjectPaths &paths, std::size_t box) {
    const CampaignFile *const file = FileOfBox(box);
    if (file == nullptr || (paths.*file->name).empty())
        return {};
    SaveBoxFile found{.name = Utf8OfProjectText(paths.*file->name), .objection = {}, .linkedTo = {}};
    if (file->write == nullptr)
        return found;
    found.objection = ObjectionTo(paths, *file);
    if (found.objection.empty())
        found.linkedTo = LinkOutOf(paths.ProjectDir, paths.PathOf(paths.*file->name));
    return found;
}

bool SaveOutcome::LeavesMixture() const {
    if (!failure)
        return false;
    return failure->AfterTheFailure() == FileAfterwards::MayBeDamaged ||
           (!written.empty() && !notWritten.empty());
}

std::vector<const CampaignFile *> FilesToSave(const ProjectPaths &paths, const SaveBoxes &ticked) {
    std::vector<const CampaignFile *> files;
    for (const CampaignFile &file : campaignFiles)
        if (IsTicked(file, ticked) && !(paths.*file.name).empty() && ObjectionTo(paths, file).empty())
            files.push_back(&file);
    return files;
}

SaveOutcome SaveFiles(const Campaign &campaign, const SaveBoxes &ticked, const std::string &programFolder,
                      const FileStamps *expected) {
    RemoveAbandonedTemporaries(campaign.paths.ProjectDir);
    SaveOutcome outcome;
    const Replacer replacer(expected, outcome.stamps);
    const auto isNamed = [&campaign](const CampaignFile &file) {
        return !(campaign.paths.*file.name).empty();
    };
    for (const CampaignFile &file : campaignFiles)
        if (IsTicked(file, ticked) && isNamed(file))
            outcome.notWritten.push_back(file.usualName);
    for (const CampaignFile &file : campaignFiles) {
        if (!IsTicked(file, ticked))
            continue;
        std::optional<int> misfit;
        try {
            misfit = Write(file, campaign, programFolder, replacer);
        } catch (const Error &error) {
            outcome.failure = error;
        } catch (const std::bad_alloc &) {
            outcome.failure =
                Error(ErrorKind::Overflow, {.file = campaign.paths.PathOf(campaign.paths.*file.name)},
                      "a file that fits into memory", "no memory left");
        }
        if (misfit)
            outcome.misfit = misfit;
        else if (const FileAfterwards now =
                     outcome.failure ? outcome.failure->AfterTheFailure() : FileAfterwards::Replaced;
                 isNamed(file) && now != FileAfterwards::AsBefore) {
            std::erase(outcome.notWritten, file.usualName);
            if (now == FileAfterwards::Replaced)
                outcome.written.push_back(file.usualName);
        }
        if (outcome.failure)
            break;
    }
    return outcome;
}

}  // namespace vtr
