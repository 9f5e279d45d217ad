#pragma once

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <memory>
#include <random>

#include "Campaign.h"
#include "DialogDriver.h"
#include "NumberField.h"
#include "Panel.h"

namespace vtr {

inline NumberField &Field(const QWidget &panel, const char *name) {
    return Find<NumberField>(panel, name);
}

inline std::string ShownIn(const QWidget &panel, const char *name) {
    return Find<QLineEdit>(panel, name).text().toStdString();
}

/// Types text as keys into the text box, replacing what it holds.
inline void TypeInto(const QWidget &panel, const char *name, const char *keys) {
    auto &edit = Find<QLineEdit>(panel, name);
    edit.selectAll();
    QTest::keyClicks(&edit, QLatin1String(keys));
}

/// A fine offset's text rounded to whole metres, halves to the even one.
std::string RoundedMetres(double value);

/// Every table filled with numbers that lie in the range of their fields, and fine offsets with fractions.
std::unique_ptr<Campaign> FilledCampaign();
/// A session with such a campaign.
std::unique_ptr<Session> FilledSession();

}  // namespace vtr
