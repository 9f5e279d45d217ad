#include <QLabel>

#include "EditorWindow.h"
#include "MapFrame.h"

namespace vtr {
namespace {

class StartLinksTest : public EditorWindow {
  protected:
    QLabel &Link(const char *name) { return Find<QLabel>(window(), QLatin1String(name)); }
    void Click(const char *name) { QTest::mouseClick(&Link(name), Qt::LeftButton); }
};

TEST_F(StartLinksTest, WithoutAProjectTheLinksRunTheCommandsOfTheMenu) {
    window().Start(QString());
    EXPECT_TRUE(Link("lbl_start").isVisible());
    const auto loads = [this] { Click("lbl_start_load"); };
    EXPECT_TRUE(InDialog("cmdiag", loads, [](QWidget &dialog) { dialog.close(); }));
    const auto makes = [this] { Click("lbl_start_new"); };
    EXPECT_TRUE(InDialog("frm_newproject", makes, [](QWidget &dialog) { dialog.close(); }));
}

TEST_F(StartLinksTest, TheSampleIsMadeInTheUsersDataFolderAndOpened) {
    window().Start(QString());
    Click("lbl_start_sample");
    EXPECT_TRUE(session->campaign.ProjectLoaded);
    EXPECT_EQ(session->campaign.paths.Name, "Yaxel Sound");
    EXPECT_EQ(session->campaign.paths.ProjectDir, session->dataFolder + "sample-campaign/");
    EXPECT_TRUE(std::filesystem::exists(session->dataFolder + "sample-campaign/tiles"));
    EXPECT_FALSE(std::filesystem::exists(session->dataFolder + "sample-campaign.new"));
}

TEST_F(StartLinksTest, TheSampleThatIsThereIsOpenedAsItIs) {
    WriteSampleCampaign(session->dataFolder + "sample-campaign/", false);
    std::filesystem::create_directories(session->dataFolder);
    window().Start(QString());
    Click("lbl_start_sample");
    EXPECT_TRUE(session->campaign.ProjectLoaded);
    EXPECT_FALSE(std::filesystem::exists(session->dataFolder + "sample-campaign/tiles")) << "made anew";
}

TEST_F(StartLinksTest, ASampleThatCannotBeMadeIsToldAndLeavesTheLinks) {
    folder.Make("data", "no folder");
    window().Start(QString());
    ShownBox message;
    AnswerNextBox(message, QMessageBox::Ok);
    Click("lbl_start_sample");
    EXPECT_EQ(message.count, 1);
    EXPECT_TRUE(message.text.startsWith("Making the sample campaign failed.")) << message.text.toStdString();
    EXPECT_TRUE(message.text.contains(
        "No project was loaded. Put right what is said above and click \"Open the sample campaign\" again."))
        << message.text.toStdString();
    EXPECT_FALSE(session->campaign.ProjectLoaded);
    EXPECT_TRUE(Link("lbl_start_sample").isVisible());
}

TEST_F(StartLinksTest, TheRecentProjectsAreOffered) {
    WriteSample();
    std::string lines = "FLASHTARGET=0\r\nLASTPROJECT1=Land & <Sea>\r\nLASTFILE1=" + SamplePath() + "\r\n";
    folder.Make("program/prefs.cfg", lines);
    window().Start(QString());
    EXPECT_TRUE(Link("lbl_start_last(0)").isVisible());
    EXPECT_FALSE(Link("lbl_start_last(1)").isVisible());
    EXPECT_EQ(Link("lbl_start_last(0)").accessibleName(), "Land & <Sea>");
    EXPECT_TRUE(Link("lbl_start_last(0)").text().contains("Land &amp; &lt;Sea&gt;"));
    Click("lbl_start_last(0)");
    EXPECT_TRUE(session->campaign.ProjectLoaded);
}

TEST_F(StartLinksTest, TheyAreGoneOnceAProjectIsLoaded) {
    StartWithSample();
    for (const char *name : {"lbl_start", "lbl_start_load", "lbl_start_new", "lbl_start_sample",
                             "lbl_start_last(0)", "lbl_start_last(3)"})
        EXPECT_FALSE(Link(name).isVisible()) << name;
}

TEST_F(StartLinksTest, TheyLieOverTheMapAndAreNoPartOfIt) {
    window().Start(QString());
    auto &map = Find<MapSurface>(window(), QStringLiteral("Img_Map"));
    QImage black(640, 320, QImage::Format_RGB32);
    black.fill(Qt::black);
    EXPECT_EQ(map.grab().toImage().convertToFormat(QImage::Format_RGB32), black);
    EXPECT_TRUE(map.findChildren<QWidget *>().empty());
    const QImage shown = map.parentWidget()->grab(map.geometry()).toImage();
    EXPECT_NE(shown.convertToFormat(QImage::Format_RGB32), black);
}

TEST_F(StartLinksTest, TheMouseReachesTheMapWhereverThereIsNoLink) {
    window().Start(QString());
    auto &map = Find<MapSurface>(window(), QStringLiteral("Img_Map"));
    QWidget &frame = *map.parentWidget();
    const QRect text = Link("lbl_start").geometry();
    EXPECT_EQ(frame.childAt(text.center()), &map);
    EXPECT_EQ(frame.childAt(map.geometry().topLeft() + QPoint(20, 20)), &map);
    EXPECT_EQ(frame.childAt(Link("lbl_start_load").geometry().center()), &Link("lbl_start_load"));
    EXPECT_EQ(frame.childAt(QPoint(map.geometry().left() + 30, text.center().y())), &map);
}

TEST_F(StartLinksTest, ALongNameOfARecentProjectLeavesTheMapItsSize) {
    folder.Make("program/prefs.cfg", "LASTPROJECT1=" + std::string(200, 'W') + "\r\nLASTFILE1=x\r\n");
    window().Start(QString());
    EXPECT_EQ(Find<MapSurface>(window(), QStringLiteral("Img_Map")).size(), QSize(640, 320));
    EXPECT_EQ(window().frameGeometry().size(), QSize(888, 742));
}

TEST_F(StartLinksTest, EachLinkCanBeReachedByKey) {
    window().Start(QString());
    QApplication::setActiveWindow(&window());
    Link("lbl_start_sample").setFocus();
    QTest::keyClick(&Link("lbl_start_sample"), Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(session->campaign.ProjectLoaded);
}

}  // namespace
}  // namespace vtr
