#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vtr {

/// What one call to the system shall do instead of its work.
struct Fault {
    std::string_view call;   ///< "fsync", "write", ...
    int nth = 1;             ///< which of its calls, counted from 1
    int error = 0;           ///< errno of the failure; 0: no failure but
    std::size_t atMost = 0;  ///< so many bytes at most are read or written
    /// Called first; the call does its work all the same when no failure is planned.
    std::function<void()> lookOn{};
};

/// Records the file calls made by this test program while it lives and lets some of them fail. The linker
/// puts it between the program and the system (--wrap), so that the code under test needs no seam for it.
class SystemCalls {
  public:
    explicit SystemCalls(std::vector<Fault> faults = {});
    SystemCalls(const SystemCalls &) = delete;
    SystemCalls &operator=(const SystemCalls &) = delete;
    ~SystemCalls();

    const std::vector<std::string> &Made() const { return made_; }
    /// All bytes that were read.
    std::size_t BytesRead() const { return bytesRead_; }
    void CountRead(ssize_t count) { bytesRead_ += count > 0 ? static_cast<std::size_t>(count) : 0; }
    /// The fault planned for this call, else null. Records the call.
    const Fault *Enter(const char *call);

  private:
    std::vector<Fault> faults_;
    std::vector<std::string> made_;
    std::size_t bytesRead_ = 0;
};

/// While it lives the program has the rights of an ordinary user: an administrator is never refused anything.
class OrdinaryUser {
  public:
    OrdinaryUser();
    OrdinaryUser(const OrdinaryUser &) = delete;
    OrdinaryUser &operator=(const OrdinaryUser &) = delete;
    ~OrdinaryUser();

    /// Makes what lies at path that user's own.
    static void Give(const std::string &path);

  private:
    uid_t before_;
};

}  // namespace vtr
