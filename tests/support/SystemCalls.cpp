#include "SystemCalls.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>

namespace vtr {

namespace {

SystemCalls *active = nullptr;
constexpr uid_t nobody = 65534;

}  // namespace

SystemCalls::SystemCalls(std::vector<Fault> faults) : faults_(std::move(faults)) {
    active = this;
}

SystemCalls::~SystemCalls() {
    active = nullptr;
}

const Fault *SystemCalls::Enter(const char *call) {
    made_.emplace_back(call);
    const auto count = std::ranges::count(made_, call);
    const auto fault = std::ranges::find_if(
        faults_, [&](const Fault &planned) { return planned.call == call && planned.nth == count; });
    return fault == faults_.end() ? nullptr : &*fault;
}

OrdinaryUser::OrdinaryUser() : before_(geteuid()) {
    if (before_ == 0) {
        EXPECT_EQ(seteuid(nobody), 0);
    }
}

OrdinaryUser::~OrdinaryUser() {
    EXPECT_EQ(seteuid(before_), 0);
}

void OrdinaryUser::Give(const std::string &path) {
    if (geteuid() == 0) {
        EXPECT_EQ(chown(path.c_str(), nobody, nobody), 0);
    }
}

namespace {

/// The system's own call, or the failure that the test has planned for it.
template <typename Real, typename... Arguments>
auto Call(const char *name, Real real, Arguments... arguments) -> decltype(real(arguments...)) {
    const Fault *fault = active != nullptr ? active->Enter(name) : nullptr;
    if (fault != nullptr && fault->lookOn)
        fault->lookOn();
    if (fault == nullptr || fault->error == 0)
        return real(arguments...);
    errno = fault->error;
    return -1;
}

template <typename Buffer>
ssize_t Transfer(const char *name, ssize_t (*real)(int, Buffer, size_t), int file, Buffer bytes,
                 size_t count) {
    const Fault *fault = active != nullptr ? active->Enter(name) : nullptr;
    if (fault == nullptr)
        return real(file, bytes, count);
    errno = fault->error;
    return fault->error != 0 ? -1 : real(file, bytes, std::min(count, fault->atMost));
}

}  // namespace

extern "C" {

int __real_open(const char *, int, ...);
int __real_openat(int, const char *, int, ...);
int __real_close(int);
ssize_t __real_read(int, void *, size_t);
ssize_t __real_write(int, const void *, size_t);
int __real_fsync(int);
int __real_ftruncate(int, off_t);
int __real_fchown(int, uid_t, gid_t);
int __real_fchmod(int, mode_t);
int __real_fstat(int, struct stat *);
int __real_lstat(const char *, struct stat *);
int __real_renameat(int, const char *, int, const char *);

int __wrap_open(const char *path, int flags, ...) {
    return Call("open", &__real_open, path, flags);
}

int __wrap_openat(int folder, const char *path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    return Call("openat", &__real_openat, folder, path, flags, mode);
}

int __wrap_close(int file) {
    const int result = Call("close", &__real_close, file);
    if (result != 0)
        __real_close(file);
    return result;
}

ssize_t __wrap_read(int file, void *bytes, size_t count) {
    const ssize_t held = Transfer("read", &__real_read, file, bytes, count);
    if (active != nullptr)
        active->CountRead(held);
    return held;
}
ssize_t __wrap_write(int file, const void *bytes, size_t count) {
    return Transfer("write", &__real_write, file, bytes, count);
}
int __wrap_fsync(int file) {
    return Call("fsync", &__real_fsync, file);
}
int __wrap_ftruncate(int file, off_t size) {
    return Call("ftruncate", &__real_ftruncate, file, size);
}
int __wrap_fchown(int file, uid_t user, gid_t group) {
    return Call("fchown", &__real_fchown, file, user, group);
}
int __wrap_fchmod(int file, mode_t mode) {
    return Call("fchmod", &__real_fchmod, file, mode);
}
int __wrap_fstat(int file, struct stat *status) {
    return Call("fstat", &__real_fstat, file, status);
}
int __wrap_lstat(const char *path, struct stat *status) {
    return Call("lstat", &__real_lstat, path, status);
}
int __wrap_renameat(int from, const char *old, int to, const char *fresh) {
    return Call("renameat", &__real_renameat, from, old, to, fresh);
}

}  // extern "C"

}  // namespace vtr
