#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QTimer>
#include <QToolButton>
#include <filesystem>
#include <memory>

#include "DialogDriver.h"
#include "NumberField.h"
#include "SampleCampaign.h"
#include "TemporaryFolder.h"
#include "frm_main.h"

namespace vtr {

/// The editor's real main window in a program folder of its own, and a sample campaign beside it.
class EditorWindow : public ::testing::Test {
  protected:
    EditorWindow() {
        std::filesystem::create_directory(folder.Path() + "program");
        session->programFolder = folder.Path() + "program/";
        session->dataFolder = folder.Path() + "data/";
    }

    void WriteSample() { WriteSampleCampaign(folder.Path(), false); }
    std::string SamplePath() const { return folder.Path() + "sample.prj"; }
    void StartWithSample() {
        WriteSample();
        window().Start(QString::fromStdString(SamplePath()));
        // Redraws come only from what a test does.
        Find<QTimer>(window(), QStringLiteral("tmr_TargetFlash")).stop();
    }

    /// The window is made when it is first asked for, so that a test can prepare files before.
    frm_main &window() {
        if (!window_)
            window_ = std::make_unique<frm_main>(*session);
        return *window_;
    }

    /// Ends the program without closing its window and makes it anew.
    void EndAndMakeAnew() {
        window_.reset();
        auto next = std::make_unique<Session>();
        next->programFolder = session->programFolder;
        next->dataFolder = session->dataFolder;
        session = std::move(next);
    }

    NumberField &Number(const char *name) { return Find<NumberField>(window(), QLatin1String(name)); }
    QAction &Entry(const char *name) { return *window().findChild<QAction *>(QLatin1String(name)); }
    /// Does open and, in the dialog of that name that must come up modal over the window, act; true when one
    /// came up.
    bool InDialog(const char *name, const std::function<void()> &open,
                  const std::function<void(QWidget &)> &act) {
        bool shown = false;
        WhenModalOpens([&](QWidget &dialog) {
            shown = true;
            EXPECT_EQ(dialog.objectName(), QLatin1String(name));
            EXPECT_TRUE(dialog.isModal());
            EXPECT_EQ(dialog.parentWidget(), &window());
            act(dialog);
        });
        open();
        return shown;
    }
    /// Lets the program run until it ends; 99 when it has not done so within 20 s.
    static int ExitStatus() {
        QTimer limit;
        QObject::connect(&limit, &QTimer::timeout, [] { QCoreApplication::exit(99); });
        limit.start(20000);
        return QCoreApplication::exec();
    }
    QString PanelText(const char *key) { return Find<QToolButton>(window(), QLatin1String(key)).text(); }

    TemporaryFolder folder;
    std::unique_ptr<Session> session = std::make_unique<Session>();

  private:
    std::unique_ptr<frm_main> window_;
};

}  // namespace vtr
