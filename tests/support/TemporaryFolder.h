#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

namespace vtr {

/// An empty folder that goes away with the test.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string name = std::filesystem::temp_directory_path() / "vtr-test-XXXXXX";
        EXPECT_NE(mkdtemp(name.data()), nullptr);
        path_ = name + "/";
    }
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }

    const std::string &Path() const { return path_; }

    std::string Make(const std::string &name, std::string_view content) const {
        std::ofstream(path_ + name, std::ios::binary) << content;
        return path_ + name;
    }

    /// Makes a folder in it whose path is longer than a message shows.
    std::string MakeDeep() const {
        std::string deep = path_;
        for (int level = 0; level < 9; ++level)
            deep += std::string(200, 'm') + '/';
        std::filesystem::create_directories(deep);
        return deep;
    }

    std::string Content(const std::string &name) const {
        std::ifstream file(path_ + name, std::ios::binary);
        EXPECT_TRUE(file.is_open()) << name;
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::set<std::string> Names() const {
        std::set<std::string> names;
        for (const auto &entry : std::filesystem::directory_iterator(path_))
            names.insert(entry.path().filename());
        return names;
    }

  private:
    std::string path_;
};

/// Makes in folder what an AtomicWrite leaves that is killed, two hours old.
inline void MakeAbandonedTemporary(const TemporaryFolder &folder) {
    const std::string path = folder.Make(".vtr-4711-0.tmp", "half of a fi");
    std::filesystem::last_write_time(path,
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(2));
}

}  // namespace vtr
