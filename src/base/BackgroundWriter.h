#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "Bytes.h"
#include "Errors.h"

namespace vtr {

/// Writes files in a thread of its own, so that nobody waits for the disk. The thread is given bytes and
/// paths and nothing else.
class BackgroundWriter {
  public:
    /// Is called by the thread after each write, with its failure when it failed.
    using Written = std::function<void(const std::optional<Error> &failure)>;

    explicit BackgroundWriter(Written written);
    BackgroundWriter(const BackgroundWriter &) = delete;
    BackgroundWriter &operator=(const BackgroundWriter &) = delete;
    /// Does all that is left to do.
    ~BackgroundWriter();

    /// Replaces the file at path by bytes, flushed to the disk, and removes the files of outdated when that
    /// is done. Bytes for the same file that still wait are forgotten.
    void Write(const std::string &path, Bytes bytes, const std::vector<std::string> &outdated = {});
    /// Removes the file, after what was asked for before.
    void Remove(const std::string &path);
    /// Waits until all is done.
    void Wait();

  private:
    struct Job {
        std::string path;
        std::optional<Bytes> bytes;  ///< none: remove the file
        std::vector<std::string> outdated;
    };
    void Add(Job job);
    void Run();
    void Do(const Job &job) const;

    const Written written_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Job> jobs_;
    bool working_ = false;
    bool ending_ = false;
    std::thread thread_;  ///< started by the first job
};

}  // namespace vtr
