#include "BackgroundWriter.h"

#include <algorithm>
#include <new>
#include <system_error>
#include <utility>

#include "AtomicWrite.h"
#include "Paths.h"

namespace vtr {

namespace {

void RemoveFile(const std::string &path) {
    std::error_code ignored;
    std::filesystem::remove(FilesystemPath(path), ignored);
}

}  // namespace

BackgroundWriter::BackgroundWriter(Written written) : written_(std::move(written)) {}

BackgroundWriter::~BackgroundWriter() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable())
        thread_.join();
}

void BackgroundWriter::Write(const std::string &path, Bytes bytes, const std::vector<std::string> &outdated) {
    Add({path, std::move(bytes), outdated});
}

void BackgroundWriter::Remove(const std::string &path) {
    Add({path, std::nullopt, {}});
}

void BackgroundWriter::Wait() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return jobs_.empty() && !working_; });
}

void BackgroundWriter::Add(Job job) {
    {
        const std::lock_guard lock(mutex_);
        const auto waiting = std::ranges::find(jobs_, job.path, &Job::path);
        if (waiting != jobs_.end()) {
            job.outdated.insert(job.outdated.end(), waiting->outdated.begin(), waiting->outdated.end());
            jobs_.erase(waiting);
        }
        jobs_.push_back(std::move(job));
        if (!thread_.joinable())
            thread_ = std::thread(&BackgroundWriter::Run, this);
    }
    changed_.notify_all();
}

void BackgroundWriter::Run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return ending_ || !jobs_.empty(); });
        if (jobs_.empty())
            return;
        const Job job = std::move(jobs_.front());
        jobs_.pop_front();
        working_ = true;
        lock.unlock();
        Do(job);
        lock.lock();
        working_ = false;
        changed_.notify_all();
    }
}

void BackgroundWriter::Do(const Job &job) const {
    if (!job.bytes) {
        RemoveFile(job.path);
        std::ranges::for_each(job.outdated, RemoveFile);
        return;
    }
    std::optional<Error> failure;
    try {
        AtomicWrite(job.path, *job.bytes);
    } catch (const Error &error) {
        failure = error;
    } catch (const std::bad_alloc &) {
        failure = Error(ErrorKind::FileAccess, {.file = job.path}, {"writing the file", "no memory left"});
    }
    if (!failure || failure->FileReplaced())
        std::ranges::for_each(job.outdated, RemoveFile);
    written_(failure);
}

}  // namespace vtr
