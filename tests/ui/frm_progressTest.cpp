#include <gtest/gtest.h>

#include <QKeyEvent>
#include <cmath>
#include <limits>

#include "DialogDriver.h"
#include "frm_progress.h"

namespace vtr {
namespace {

class PaintCounter : public QObject {
  public:
    explicit PaintCounter(QWidget &watched) { watched.installEventFilter(this); }
    int count = 0;

  protected:
    bool eventFilter(QObject *, QEvent *event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

TEST(frm_progress, SaysLoadingProjectUntilItIsGivenAnotherCaption) {
    frm_progress window;
    EXPECT_EQ(window.objectName(), "frm_progress");
    EXPECT_EQ(window.windowTitle(), "Loading Project...");
    EXPECT_FALSE(window.isModal());
}

TEST(frm_progress, RunsFromZeroToAHundredAndHoldsWhatLiesBeyond) {
    frm_progress window;
    auto &bar = Find<QProgressBar>(window, "prg_load");
    EXPECT_EQ(bar.minimum(), 0);
    EXPECT_EQ(bar.maximum(), 100);
    EXPECT_EQ(bar.value(), 0);
    window.SetProgress(68);
    EXPECT_EQ(bar.value(), 68);
    window.SetProgress(28);
    EXPECT_EQ(bar.value(), 28);
    window.SetProgress(28.99);
    EXPECT_EQ(bar.value(), 28);
    window.SetProgress(101);
    EXPECT_EQ(bar.value(), 100);
    window.SetProgress(-1);
    EXPECT_EQ(bar.value(), 0);
    window.SetProgress(1e300);
    EXPECT_EQ(bar.value(), 100);
    window.SetProgress(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(bar.value(), 0);
}

TEST(frm_progress, IsPaintedAtOnceWhenTheWholePercentChangesButNotMoreOftenThanAnEyeSees) {
    frm_progress window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
    PaintCounter paints(Find<QProgressBar>(window, "prg_load"));
    window.SetProgress(15);
    EXPECT_EQ(paints.count, 1);
    for (double value = 15.0; value < 16.0; value += 0.01)
        window.SetProgress(value);
    EXPECT_EQ(paints.count, 1);
    QTest::qSleep(30);
    window.SetProgress(16);
    EXPECT_EQ(paints.count, 2);
    for (int percent = 17; percent <= 99; ++percent)
        window.SetProgress(percent);
    EXPECT_LT(paints.count, 20);
    EXPECT_EQ(Find<QProgressBar>(window, "prg_load").value(), 99);
}

TEST(frm_progress, IsOnTheScreenWhileTheWorkRunsThoughNoEventLoopDoes) {
    frm_progress window;
    PaintCounter paints(Find<QProgressBar>(window, "prg_load"));
    window.show();
    window.SetProgress(1);
    EXPECT_GT(paints.count, 0);
}

TEST(frm_progress, WhatTheUserDoesMeanwhileWaitsForTheWorkToEnd) {
    frm_progress window;
    window.show();
    bool timerRan = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&timerRan] { timerRan = true; });
    timer.start(0);
    for (int value = 1; value <= 100; ++value)
        window.SetProgress(value);
    EXPECT_FALSE(timerRan);
}

TEST(frm_progress, TheUserCannotCloseIt) {
    frm_progress window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    window.close();
    EXPECT_TRUE(window.isVisible());
    window.SetProgress(50);
    EXPECT_EQ(Find<QProgressBar>(window, "prg_load").value(), 50);
    window.hide();
    EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace vtr
