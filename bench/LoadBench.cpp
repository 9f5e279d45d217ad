// Loading the whole sample without a window, compared with reading the same files with read(2).

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <vector>

#include "../tests/support/SilentWindow.h"
#include "Comparison.h"
#include "LoadProject.h"
#include "SampleCampaign.h"
#include "WholeFile.h"

namespace {

using namespace vtr;

/// Loads the map picture's bytes and does nothing else that a window would.
class NoWindow : public SilentWindow {
  public:
    void TellNoMap() override { std::abort(); }
    void LoadMapPicture(const std::string &path, LoadListener &) override { picture_ = ReadWholeFile(path); }
    void Tell(const LoadReport &report) override {
        if (!report.shortFiles.empty())
            std::abort();
    }

  private:
    Bytes picture_;
};

void ReadPlainly(const std::string &path) {
    const int file = open(path.c_str(), O_RDONLY);
    struct stat status {};
    if (file < 0 || fstat(file, &status) != 0)
        std::abort();
    const auto size = static_cast<std::size_t>(status.st_size);
    const std::unique_ptr<char[]> buffer(new char[size]);
    if (read(file, buffer.get(), size) != status.st_size)
        std::abort();
    close(file);
}

}  // namespace

int main() {
    const std::string folder = std::filesystem::temp_directory_path().string() + "/vtr-load-bench/";
    WriteSampleCampaign(folder, false);
    std::vector<std::string> files;
    for (const char *name : {"sample.prj", "map.bmp", "VTR.TM", "TARNAMES.STR", "TARGET.DAT", "VTR_RRD.DAT",
                             "FRNTLINE.DAT", "ROADWPT.DAT", "RAILWPT.DAT", "AIRFIELD.DAT"})
        files.push_back(folder + name);

    const auto campaign = std::make_unique<Campaign>();
    NoWindow window;
    ReportAtMost("load the sample",
                 Compare(
                     300, [&] { LoadProject(files.front(), *campaign, window); },
                     [&] {
                         for (const std::string &file : files)
                             ReadPlainly(file);
                     }),
                 "read(2) of its files", 8);
    std::filesystem::remove_all(folder);
}
