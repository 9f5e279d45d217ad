#pragma once

#include <QString>
#include <exception>
#include <utility>

namespace vtr {

/// Names what the program is at as long as this lives. When an error flies past, the name stays for the
/// report.
class Operation {
  public:
    Operation(QString &current, QString name)
        : current_(current), previous_(std::exchange(current, std::move(name))) {}
    Operation(const Operation &) = delete;
    Operation &operator=(const Operation &) = delete;
    ~Operation() {
        if (std::uncaught_exceptions() == errorsBefore_)
            current_ = previous_;
    }

  private:
    QString &current_;
    QString previous_;
    int errorsBefore_ = std::uncaught_exceptions();
};

}  // namespace vtr
