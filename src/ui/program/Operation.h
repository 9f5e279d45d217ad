#pragma once

#include <QString>
#include <exception>
#include <string>
#include <utility>

namespace vtr {

/// Names what the program is at as long as this lives. When an error flies past, the name stays for the
/// report.
class Operation {
  public:
    Operation(std::string &current, const QString &name)
        : current_(current), previous_(std::exchange(current, name.toStdString())) {}
    Operation(const Operation &) = delete;
    Operation &operator=(const Operation &) = delete;
    ~Operation() {
        if (std::uncaught_exceptions() == errorsBefore_)
            current_ = previous_;
    }

  private:
    std::string &current_;
    std::string previous_;
    int errorsBefore_ = std::uncaught_exceptions();
};

}  // namespace vtr
