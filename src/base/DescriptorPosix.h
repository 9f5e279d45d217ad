#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace vtr {

/// An open file or folder.
class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    ~Descriptor() {
        if (number_ >= 0)
            close(number_);
    }

    bool IsOpen() const { return number_ >= 0; }
    int Number() const { return number_; }
    /// False when closing it failed. An interrupted close has closed it too.
    bool Close() { return close(std::exchange(number_, -1)) == 0 || errno == EINTR; }

  private:
    int number_;
};

}  // namespace vtr
