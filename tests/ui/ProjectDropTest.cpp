#include <gmock/gmock.h>

#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>

#include "Dropping.h"
#include "EditorWindow.h"
#include "frm_save.h"

namespace vtr {
namespace {

class ProjectDrop : public EditorWindow {
  protected:
    static QUrl LocalUrl(const std::string &path) {
        return QUrl::fromLocalFile(QString::fromStdString(path));
    }

    bool Drop(QWidget &widget, const QList<QUrl> &urls) {
        QMimeData data;
        data.setUrls(urls);
        return DropOn(widget, data);
    }
    bool DropSample() { return Drop(window(), {LocalUrl(SamplePath())}); }

    /// Opens the sample and changes a target, by which a load shows.
    void StartWithChangedSample() {
        StartWithSample();
        session->campaign.TargetTable[100].x = 7;
    }
    bool SampleWasLoadedAgain() const { return session->campaign.TargetTable[100].x != 7; }

    /// Drops the sample's file and answers the question that comes.
    ShownBox AnswerAfterDrop(QMessageBox::StandardButton answer) {
        ShownBox question;
        AnswerNextBox(question, answer);
        EXPECT_TRUE(DropSample());
        EXPECT_EQ(question.count, 0) << "the question comes while the file manager waits";
        QCoreApplication::processEvents();
        EXPECT_EQ(question.count, 1);
        return question;
    }
};

TEST_F(ProjectDrop, OfAProjectFileLoadsItWhenTheDropIsOver) {
    WriteSample();
    window().Start(QString());
    EXPECT_TRUE(DropSample());
    EXPECT_FALSE(session->campaign.ProjectLoaded);
    QCoreApplication::processEvents();
    EXPECT_TRUE(session->campaign.ProjectLoaded);
    EXPECT_EQ(session->campaign.paths.ProjectFile, "sample.prj");
    EXPECT_EQ(session->campaign.paths.ProjectDir, folder.Path());
}

TEST_F(ProjectDrop, IsRememberedWithoutDetours) {
    WriteSample();
    window().Start(QString());
    EXPECT_TRUE(Drop(window(), {LocalUrl(folder.Path() + "program/../sample.prj")}));
    QCoreApplication::processEvents();
    EXPECT_EQ(session->preferences.RecentProjectFiles[0], SamplePath());
}

TEST_F(ProjectDrop, TakesTheSuffixInAnyLetterCase) {
    WriteSample();
    std::filesystem::rename(SamplePath(), folder.Path() + "SAMPLE.PRJ");
    window().Start(QString());
    EXPECT_TRUE(Drop(window(), {LocalUrl(folder.Path() + "SAMPLE.PRJ")}));
    QCoreApplication::processEvents();
    EXPECT_TRUE(session->campaign.ProjectLoaded);
    EXPECT_EQ(session->campaign.paths.ProjectFile, "SAMPLE.PRJ");
}

TEST_F(ProjectDrop, WithAProjectOpenAsksAndCancelKeepsIt) {
    StartWithChangedSample();
    const ShownBox question = AnswerAfterDrop(QMessageBox::Cancel);
    EXPECT_EQ(question.text, "Do you wish to export this project?");
    EXPECT_EQ(question.title, "VTR Target Editor");
    EXPECT_EQ(question.icon, QMessageBox::Question);
    EXPECT_EQ(question.buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    EXPECT_FALSE(SampleWasLoadedAgain());
    EXPECT_EQ(window().findChild<frm_save *>(), nullptr);
}

TEST_F(ProjectDrop, WithAProjectOpenAndNoLoadsTheOther) {
    StartWithChangedSample();
    AnswerAfterDrop(QMessageBox::No);
    EXPECT_TRUE(SampleWasLoadedAgain());
    EXPECT_EQ(window().findChild<frm_save *>(), nullptr);
}

TEST_F(ProjectDrop, WithAProjectOpenAndYesWaitsForTheSaveAndThenLoads) {
    StartWithChangedSample();
    ShownBox question;
    bool waited = false;
    AnswerNextBox(question, QMessageBox::Yes);
    EXPECT_TRUE(Drop(window(), {LocalUrl(SamplePath())}));
    WhenModalOpens<frm_save>([&](frm_save &dialog) {
        waited = !SampleWasLoadedAgain();
        Find<QCheckBox>(dialog, QStringLiteral("chk_save(4)")).setChecked(true);
        Press<QPushButton>(dialog, QStringLiteral("cmd_save"));
    });
    QCoreApplication::processEvents();
    EXPECT_TRUE(waited);
    EXPECT_TRUE(SampleWasLoadedAgain());
}

TEST_F(ProjectDrop, CancelInTheSaveDialogCancelsTheLoad) {
    StartWithChangedSample();
    ShownBox question;
    AnswerNextBox(question, QMessageBox::Yes);
    EXPECT_TRUE(Drop(window(), {LocalUrl(SamplePath())}));
    WhenModalOpens<frm_save>(
        [](frm_save &dialog) { Press<QPushButton>(dialog, QStringLiteral("cmd_close")); });
    QCoreApplication::processEvents();
    EXPECT_FALSE(SampleWasLoadedAgain());
}

TEST_F(ProjectDrop, ASaveThatFailsAndIsThenGivenUpCancelsTheLoad) {
    StartWithChangedSample();
    std::filesystem::remove(folder.Path() + "GRIDDATA.DAT");
    std::filesystem::create_directory(folder.Path() + "GRIDDATA.DAT");
    ShownBox question;
    ShownBox failure;
    AnswerNextBox(question, QMessageBox::Yes);
    EXPECT_TRUE(Drop(window(), {LocalUrl(SamplePath())}));
    WhenModalOpens<frm_save>([&](frm_save &dialog) {
        Find<QCheckBox>(dialog, QStringLiteral("chk_save(2)")).setChecked(true);
        AcceptNextBox(failure);
        Press<QPushButton>(dialog, QStringLiteral("cmd_save"));
        EXPECT_TRUE(dialog.isVisible());
        Press<QPushButton>(dialog, QStringLiteral("cmd_close"));
    });
    QCoreApplication::processEvents();
    EXPECT_EQ(failure.count, 1);
    EXPECT_FALSE(SampleWasLoadedAgain());
}

TEST_F(ProjectDrop, OfAnythingElseIsRefused) {
    WriteSample();
    window().Start(QString());
    EXPECT_FALSE(Drop(window(), {LocalUrl(folder.Path() + "TARGET.DAT")}));
    EXPECT_FALSE(Drop(window(), {LocalUrl(folder.Path() + "sample.prj.bak")}));
    EXPECT_FALSE(Drop(window(), {LocalUrl(folder.Path())}));
    EXPECT_FALSE(Drop(window(), {LocalUrl(SamplePath()), LocalUrl(SamplePath())}));
    EXPECT_FALSE(Drop(window(), {QUrl("https://example.org/sample.prj")}));
    QMimeData text;
    text.setText(QString::fromStdString(SamplePath()));
    EXPECT_FALSE(DropOn(window(), text));
    QCoreApplication::processEvents();
    EXPECT_FALSE(session->campaign.ProjectLoaded);
}

TEST_F(ProjectDrop, OntoATextFieldIsForTheWindow) {
    StartWithChangedSample();
    const QList<QLineEdit *> fields = window().findChildren<QLineEdit *>();
    ASSERT_GT(fields.size(), 20);
    for (const QLineEdit *field : fields)
        EXPECT_FALSE(field->acceptDrops()) << field->objectName().toStdString();
    QMimeData text;
    text.setText("123");
    NumberField &x = Number("upd_tar_x");
    const QString before = x.text();
    EXPECT_FALSE(DropOn(*x.findChild<QLineEdit *>(), text));
    EXPECT_EQ(x.text(), before);

    ShownBox question;
    AnswerNextBox(question, QMessageBox::No);
    EXPECT_TRUE(Drop(*x.findChild<QLineEdit *>(), {LocalUrl(SamplePath())}));
    QCoreApplication::processEvents();
    EXPECT_TRUE(SampleWasLoadedAgain());
}

}  // namespace
}  // namespace vtr
