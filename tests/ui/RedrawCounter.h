#pragma once

#include <QCoreApplication>
#include <QTranslator>

namespace vtr {

/// Hears the words by which each redraw says what it is at.
class RedrawCounter : public QTranslator {
  public:
    RedrawCounter() { QCoreApplication::installTranslator(this); }
    ~RedrawCounter() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *text, const char *, int) const override {
        count += QLatin1String(text) == QLatin1String("Drawing the map") ? 1 : 0;
        return {};
    }

    mutable int count = 0;
};

}  // namespace vtr
