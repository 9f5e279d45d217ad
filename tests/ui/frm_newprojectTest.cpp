#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLabel>
#include <QSignalSpy>
#include <QUrl>
#include <filesystem>
#include <vector>

#include "DialogDriver.h"
#include "Dropping.h"
#include "TemporaryFolder.h"
#include "frm_newproject.h"

namespace vtr {
namespace {

struct ExpectedRow {
    int index;
    QString caption;
    QString title;
    QString filter;
    std::string file;
};

const std::vector<ExpectedRow> rows{
    {12, "BMP MAP:", "Browse for BMP MAP", "BMP MAP (*.bmp)", "campaign.bmp"},
    {11, "VTR.TM:", "Browse for VTR.TM", "VTR.TM (*.tm)", "vtr.tm"},
    {2, "TILES DIR.:", "DIRECTORY CONTAINING TILES", "*.pcx (*.pcx)", "BNGrass.pcx"},
    {0, "TARGET.DAT:", "Browse for TARGET.DAT", "TARGET.DAT (*.dat)", "TARGET.DAT"},
    {10, "TARNAMES.STR:", "Browse for TARNAMES.STR", "TARNAMES.STR (*.str)", "Tarnames.Str"},
    {1, "GRIDDATA.DAT:", "Browse for GRIDDATA.DAT", "GRIDDATA.DAT (*.dat)", "GRIDDATA.DAT"},
    {3, "FRNTLINE.DAT:", "Browse for FRNTLINE.DAT", "FRNTLINE.DAT (*.dat)", "FRNTLINE.DAT"},
    {4, "AIRFIELD.DAT:", "Browse for AIRFIELD.DAT", "AIRFIELD.DAT (*.dat)", "AIRFIELD.DAT"},
    {5, "VTR_RRD.DAT:", "Browse for VTR_RRD.DAT", "VTR_RRD.DAT (*.dat)", "vtr_rrd.dat"},
    {6, "ROADLIST.DAT", "Browse for ROADLIST.DA", "ROADLIST.DA (*.dat)", "ROADLIST.DAT"},
    {7, "ROADWPT.DAT:", "Browse for ROADWPT.DAT", "ROADWPT.DAT (*.dat)", "ROADWPT.DAT"},
    {8, "RAILLIST.DAT:", "Browse for RAILLIST.DAT", "RAILLIST.DAT (*.dat)", "RAILLIST.DAT"},
    {9, "RAILWPT.DAT:", "Browse for RAILWPT.DAT", "RAILWPT.DAT (*.dat)", "RAILWPT.DAT"},
};

class NewProjectDialog : public ::testing::Test {
  protected:
    NewProjectDialog() {
        for (const ExpectedRow &row : rows)
            game.Make(row.file, "content of " + row.file);
        program.Make("map.dat", std::string(1078, 'M'));
        dialog.show();
    }

    QLineEdit &Field(int index) { return Find<QLineEdit>(dialog, QString("txt_filename(%1)").arg(index)); }
    ShownChooser Choose(const QString &button, const std::string &path) {
        ShownChooser chooser;
        ChooseNextFile(chooser, path);
        Press<QPushButton>(dialog, button);
        EXPECT_EQ(chooser.count, 1);
        return chooser;
    }
    ShownChooser Browse(int index, const std::string &path) {
        return Choose(QString("cmd_browse(%1)").arg(index), path);
    }
    void BrowseAllBut(int left) {
        for (const ExpectedRow &row : rows)
            if (row.index != left)
                Browse(row.index, game.Path() + row.file);
    }
    ShownChooser Create(const std::string &path) { return Choose("cmd_ok", path); }
    /// Drags the path onto widget and, when it is taken, drops it there. Like a file manager's it is a text
    /// too, which the text field would take.
    bool Drop(QWidget &widget, const std::string &path) {
        QMimeData data;
        data.setText(QString::fromStdString(path));
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
        return DropOn(widget, data);
    }
    TemporaryFolder game;
    TemporaryFolder program;
    TemporaryFolder target;
    frm_newproject dialog{program.Path()};
};

TEST_F(NewProjectDialog, ShowsItsRowsFromTopToBottomWithTheirCaptionsAndTheTooltip) {
    EXPECT_EQ(dialog.objectName(), "frm_newproject");
    EXPECT_EQ(dialog.windowTitle(), "New Project");
    EXPECT_EQ(Find<QPushButton>(dialog, "cmd_ok").text(), "&Create");
    EXPECT_EQ(Find<QPushButton>(dialog, "cmd_cancel").text(), "Cancel");
    int above = -1;
    for (const ExpectedRow &row : rows) {
        const auto &label = Find<QLabel>(dialog, QString("lbl_file(%1)").arg(row.index));
        EXPECT_EQ(label.text(), row.caption);
        EXPECT_EQ(Field(row.index).toolTip(), "Airfield Code");
        EXPECT_EQ(Find<QPushButton>(dialog, QString("cmd_browse(%1)").arg(row.index)).text(), "...");
        EXPECT_GT(Field(row.index).y(), above);
        above = Field(row.index).y();
    }
    QStringList labels;
    for (const QLabel *label : dialog.findChildren<QLabel *>())
        labels << label->text();
    EXPECT_TRUE(labels.contains("PROJECT NAME:"));
}

TEST_F(NewProjectDialog, OnlyTheMapsRowIsMarkedAsOptional) {
    std::vector<QLabel *> notes;
    for (QLabel *label : dialog.findChildren<QLabel *>())
        if (label->text().contains("OPT", Qt::CaseInsensitive))
            notes.push_back(label);
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0]->text(), "(OPT)");
    EXPECT_TRUE(notes[0]->isVisible());
    EXPECT_EQ(notes[0]->geometry().center().y(), Field(12).geometry().center().y());
}

TEST_F(NewProjectDialog, EachRowBrowsesUnderItsOwnTitleAndFilter) {
    for (const ExpectedRow &row : rows) {
        const ShownChooser chooser = Browse(row.index, game.Path() + row.file);
        EXPECT_EQ(chooser.title, row.title);
        EXPECT_EQ(chooser.filters, QStringList{row.filter});
        EXPECT_EQ(chooser.mode, QFileDialog::AcceptOpen);
        EXPECT_EQ(chooser.files, QFileDialog::ExistingFile);
        const std::string shown =
            row.index == 2 ? game.Path().substr(0, game.Path().size() - 1) : game.Path() + row.file;
        EXPECT_EQ(Field(row.index).text().toStdString(), shown);
    }
}

TEST_F(NewProjectDialog, BrowsingThatIsCancelledLeavesTheRow) {
    Field(4).setText("typed");
    Browse(4, "");
    EXPECT_EQ(Field(4).text(), "typed");
}

TEST_F(NewProjectDialog, EveryChooserStartsInTheFolderOfTheLastOne) {
    const TemporaryFolder other;
    other.Make("AIRFIELD.DAT", "");
    const auto folderOf = [](const TemporaryFolder &folder) {
        return QString::fromStdString(folder.Path()).chopped(1);
    };
    Browse(0, game.Path() + "TARGET.DAT");
    for (const ExpectedRow &row : rows)
        EXPECT_EQ(Browse(row.index, game.Path() + row.file).folder, folderOf(game)) << row.index;
    EXPECT_EQ(Browse(4, other.Path() + "AIRFIELD.DAT").folder, folderOf(game));
    EXPECT_EQ(Browse(5, "").folder, folderOf(other));
    EXPECT_EQ(Browse(3, "").folder, folderOf(other)) << "a chooser that was cancelled changes nothing";
    EXPECT_TRUE(Drop(dialog, game.Path()));
    EXPECT_EQ(Browse(5, "").folder, folderOf(game));
}

TEST_F(NewProjectDialog, TheHintTellsOfDroppingAndWhatThereIsToKnowOfTheRowsAsTheyAreFilled) {
    const auto &hint = Find<QLabel>(dialog, "lbl_hint");
    const auto lines = [&hint] { return hint.text().split('\n', Qt::SkipEmptyParts); };
    EXPECT_TRUE(hint.isVisible());
    ASSERT_EQ(lines().size(), 1);
    EXPECT_TRUE(lines()[0].contains("Drop a folder of game files here"));
    QTest::keyClicks(&Field(4), "x");
    ASSERT_EQ(lines().size(), 3);
    EXPECT_EQ(lines()[1], "Not found: AIRFIELD.DAT.");
    EXPECT_EQ(lines()[2], "Typed by hand, so copied but not entered in the project file: AIRFIELD.DAT.");
    Field(4).setText(QString::fromStdString(game.Path() + "AIRFIELD.DAT"));
    EXPECT_EQ(lines().size(), 2);
    Browse(4, game.Path() + "AIRFIELD.DAT");
    EXPECT_EQ(lines().size(), 1);
    Browse(6, game.Path() + "AIRFIELD.DAT");
    EXPECT_EQ(lines().mid(1), QStringList("Of one file name, so that one overwrites the other: AIRFIELD.DAT, "
                                          "ROADLIST.DAT."));
    Field(6).clear();
    EXPECT_EQ(lines().size(), 1);
}

TEST_F(NewProjectDialog, TheLongestHintIsShownWholeAndMovesNothing) {
    const auto &hint = Find<QLabel>(dialog, "lbl_hint");
    const QRect before = hint.geometry();
    const QSize size = dialog.size();
    // Those of the longest captions and more: nothing there, one name, typed by hand.
    for (const int index : {10, 1, 3, 4, 5, 6, 7, 8, 9})
        Field(index).setText("no/such file");
    QTest::qWait(20);
    EXPECT_EQ(hint.text().count('\n'), 3);
    EXPECT_EQ(hint.geometry(), before);
    EXPECT_EQ(dialog.size(), size);
    EXPECT_LE(hint.heightForWidth(hint.width()), hint.height());
}

TEST_F(NewProjectDialog, TheHintsToolTipNamesTheRowsThatTheHintOnlyCounts) {
    for (const int index : {4, 5, 6, 7, 8})
        Field(index).setText("no/such file");
    const auto &hint = Find<QLabel>(dialog, "lbl_hint");
    EXPECT_TRUE(hint.text().contains("Not found: AIRFIELD.DAT, VTR_RRD.DAT, ROADLIST.DAT and 2 more."));
    EXPECT_TRUE(hint.toolTip().contains(
        "Not found: AIRFIELD.DAT, VTR_RRD.DAT, ROADLIST.DAT, ROADWPT.DAT, RAILLIST.DAT."))
        << hint.toolTip().toStdString();
    for (const int index : {4, 5, 6, 7, 8})
        Field(index).clear();
    EXPECT_EQ(hint.toolTip(), "");
}

TEST_F(NewProjectDialog, BlanksAndQuotationMarksAreRefusedBeforeAnythingIsCopied) {
    for (const QString &text : {QStringLiteral("  "), QStringLiteral("\"/game/AIRFIELD.DAT\"")}) {
        BrowseAllBut(-1);
        Field(4).setText(text);
        const ShownBox box = BoxShownBy([this] { Press<QPushButton>(dialog, "cmd_ok"); });
        EXPECT_TRUE(box.text.contains("AIRFIELD.DAT")) << box.text.toStdString();
        EXPECT_EQ(box.title, "New Project");
        EXPECT_EQ(box.icon, QMessageBox::Critical);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(dialog.focusWidget(), &Field(4));
    }
    EXPECT_TRUE(target.Names().empty());
}

TEST_F(NewProjectDialog, EveryRowButTheMapHasToBeFilled) {
    for (int missing = 0; missing < 12; ++missing) {
        for (int index = 0; index < 12; ++index)
            Field(index).setText(index == missing ? "" : "x");
        const ShownBox box = BoxShownBy([this] { Press<QPushButton>(dialog, "cmd_ok"); });
        EXPECT_EQ(box.text, "Please Fill in ALL Fields");
        EXPECT_EQ(box.title, "New Project");
        EXPECT_EQ(box.icon, QMessageBox::Critical);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(dialog.focusWidget(), &Field(missing));
    }
}

TEST_F(NewProjectDialog, MakesTheProjectWhereTheUserWantsIt) {
    BrowseAllBut(-1);
    Find<QLineEdit>(dialog, "txt_prjname").setText(QStringLiteral("N\u00F6rd = Front"));
    const ShownChooser chooser = Create(target.Path() + "north.prj");
    EXPECT_EQ(chooser.title, "Save Project As...");
    EXPECT_EQ(chooser.filters, QStringList{"Target Editor Projects (*.prj)"});
    EXPECT_EQ(chooser.mode, QFileDialog::AcceptSave);
    EXPECT_EQ(chooser.files, QFileDialog::AnyFile);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.ProjectPath(), target.Path() + "north.prj");
    EXPECT_EQ(target.Content("north.prj"),
              "Name=N\xF6rd = Front\r\nMap=campaign.bmp\r\nMapTM=vtr.tm\r\nTARGETS=TARGET.DAT\r\n"
              "TARNAMES=Tarnames.Str\r\nGridData=GRIDDATA.DAT\r\nFrontline=FRNTLINE.DAT\r\n"
              "Airfield=AIRFIELD.DAT\r\nRailway=vtr_rrd.dat\r\nROADWPT=ROADWPT.DAT\r\n"
              "RoadList=ROADLIST.DAT\r\nRAILWPT=RAILWPT.DAT\r\nRailList=RAILLIST.DAT\r\n");
    for (const ExpectedRow &row : rows) {
        if (row.index != 2) {
            EXPECT_EQ(target.Content(row.file), "content of " + row.file);
        }
    }
    EXPECT_EQ(target.Names().count("BNGrass.pcx"), 0U);
}

TEST_F(NewProjectDialog, AProjectIsNamedWithItsSuffixWhenTheUserLeavesItOut) {
    BrowseAllBut(-1);
    Create(target.Path() + "bare");
    EXPECT_EQ(dialog.ProjectPath(), target.Path() + "bare.prj");
}

TEST_F(NewProjectDialog, ANameWithADotGetsTheSuffixTooAndIsAskedAboutAsTheFileThatWouldBeReplaced) {
    BrowseAllBut(-1);
    target.Make("Front.1943.prj", "the one before");
    target.Make("front.1943", "another file");
    QString question;
    QString title;
    ShownChooser again;
    WhenModalOpens<QMessageBox>([&](QMessageBox &box) {
        question = box.text();
        title = box.windowTitle();
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
        // Declined, the chooser comes again.
        ChooseNextFile(again, target.Path() + "front.1944");
        box.button(QMessageBox::No)->click();
    });
    Create(target.Path() + "front.1943");
    EXPECT_EQ(question.toStdString(),
              target.Path() + "Front.1943.prj already exists.\nDo you want to replace it?");
    EXPECT_EQ(title, "VTR Target Editor");
    EXPECT_EQ(again.count, 1);
    EXPECT_EQ(dialog.ProjectPath(), target.Path() + "front.1944.prj");
    EXPECT_EQ(target.Content("Front.1943.prj"), "the one before");
    EXPECT_EQ(target.Content("front.1943"), "another file");
}

TEST_F(NewProjectDialog, AProjectThatIsReplacedIsAskedAboutOnce) {
    BrowseAllBut(-1);
    target.Make("a.prj", "the one before");
    ShownBox question;
    AnswerNextBox(question, QMessageBox::Yes);
    Create(target.Path() + "a.PRJ");
    EXPECT_EQ(question.count, 1);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(target.Content("a.prj").substr(0, 5), "Name=");
}

TEST_F(NewProjectDialog, OfTheFileToBeReplacedInAVeryDeepFolderOnlyTheBeginningIsShown) {
    BrowseAllBut(-1);
    const std::string deep = target.MakeDeep();
    std::ofstream(deep + "a.prj") << "the one before";
    ShownBox question;
    AnswerNextBox(question, QMessageBox::Yes);
    Create(deep + "a.prj");
    EXPECT_TRUE(question.text.endsWith("mmm... already exists.\nDo you want to replace it?"))
        << question.text.toStdString();
    EXPECT_LT(question.text.size(), 700);
}

TEST_F(NewProjectDialog, ANameThatAFolderHasIsRefusedInTheChooser) {
    BrowseAllBut(-1);
    std::filesystem::create_directory(target.Path() + "north.prj");
    ShownBox refusal;
    ShownChooser again;
    WhenModalOpens<QMessageBox>([&](QMessageBox &box) {
        ++refusal.count;
        refusal.text = box.text();
        refusal.buttons = box.standardButtons();
        ChooseNextFile(again, target.Path() + "south");
        box.accept();
    });
    Create(target.Path() + "north");
    EXPECT_EQ(refusal.count, 1);
    EXPECT_EQ(refusal.buttons, QMessageBox::Ok);
    EXPECT_EQ(refusal.text.toStdString(),
              "There is a folder called " + target.Path() + "north.prj\nChoose another name.");
    EXPECT_EQ(again.count, 1);
    EXPECT_EQ(dialog.ProjectPath(), target.Path() + "south.prj");
}

TEST_F(NewProjectDialog, RowsFilledTogetherAreLookedAtOnce) {
    std::vector<std::unique_ptr<QSignalSpy>> spies;
    for (const ExpectedRow &row : rows)
        spies.push_back(std::make_unique<QSignalSpy>(&Field(row.index), &QLineEdit::textChanged));
    EXPECT_TRUE(Drop(dialog, game.Path()));
    for (const auto &spy : spies)
        EXPECT_EQ(spy->count(), 0);
    EXPECT_EQ(Field(4).text().toStdString(), game.Path() + "AIRFIELD.DAT");
}

TEST_F(NewProjectDialog, WithoutAPlaceToSaveItTheDialogClosesWithAnEmptyPath) {
    BrowseAllBut(-1);
    Create("");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.ProjectPath(), "");
    EXPECT_TRUE(target.Names().empty());
}

TEST_F(NewProjectDialog, CancelAndEscapeDoNothing) {
    BrowseAllBut(-1);
    ExpectClosedBy(dialog, "cmd_cancel");
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_TRUE(target.Names().empty());
}

TEST_F(NewProjectDialog, AFileDroppedOntoARowCountsAsBrowsingForIt) {
    for (const ExpectedRow &row : rows)
        EXPECT_TRUE(Drop(Field(row.index), game.Path() + row.file));
    EXPECT_EQ(Field(2).text().toStdString() + "/", game.Path());
    EXPECT_EQ(Field(5).text().toStdString(), game.Path() + "vtr_rrd.dat");
    Create(target.Path() + "a.prj");
    EXPECT_THAT(target.Content("a.prj"), ::testing::HasSubstr("\r\nRailway=vtr_rrd.dat\r\n"));
}

TEST_F(NewProjectDialog, AFolderDroppedOntoTheDialogFillsEveryRowWhoseFileItHolds) {
    Field(12).setText("kept");
    std::filesystem::remove(game.Path() + "AIRFIELD.DAT");
    EXPECT_TRUE(Drop(dialog, game.Path()));
    for (const ExpectedRow &row : rows) {
        std::string expected = game.Path() + row.file;
        if (row.index == 12)
            expected = "kept";  // its usual name is worldmap.bmp
        else if (row.index == 2)
            expected = game.Path().substr(0, game.Path().size() - 1);
        else if (row.index == 4)
            expected = "";
        EXPECT_EQ(Field(row.index).text().toStdString(), expected) << row.index;
    }
}

TEST_F(NewProjectDialog, AFolderDroppedOntoARowFillsAllRowsAndOntoTheTilesRowThatRowAlone) {
    EXPECT_TRUE(Drop(Field(2), game.Path()));
    EXPECT_EQ(Field(2).text().toStdString() + "/", game.Path());
    EXPECT_EQ(Field(0).text(), "");
    EXPECT_TRUE(Drop(Field(7), game.Path()));
    EXPECT_EQ(Field(0).text().toStdString(), game.Path() + "TARGET.DAT");
}

TEST_F(NewProjectDialog, AFileOfAnotherKindIsNotTakenByARow) {
    game.Make("renamed.dat", "");
    game.Make("map.png", "");
    for (const auto &[row, file] : {std::pair(0, "campaign.bmp"),
                                    {0, "AIRFIELD.DAT"},
                                    {2, "TARGET.DAT"},
                                    {10, "TARGET.DAT"},
                                    {11, "campaign.bmp"},
                                    {12, "map.png"}}) {
        EXPECT_FALSE(Drop(Field(row), game.Path() + file)) << row;
        EXPECT_EQ(Field(row).text(), "");
    }
    EXPECT_TRUE(Drop(Field(0), game.Path() + "renamed.dat"));
    EXPECT_EQ(Field(0).text().toStdString(), game.Path() + "renamed.dat");
}

TEST_F(NewProjectDialog, TheTilesAreFoundInAFolderDirectlyBelowTheOneThatIsDropped) {
    std::filesystem::remove(game.Path() + "BNGrass.pcx");
    std::filesystem::create_directories(game.Path() + "art/tiles");
    game.Make("art/tiles/BNGrass.pcx", "");
    EXPECT_TRUE(Drop(dialog, game.Path()));
    EXPECT_EQ(Field(2).text(), "") << "two folders below";
    EXPECT_TRUE(Drop(Field(2), game.Path() + "art"));
    EXPECT_EQ(Field(2).text().toStdString(), game.Path() + "art/tiles");
    EXPECT_TRUE(Drop(Field(2), game.Path()));
    EXPECT_EQ(Field(2).text().toStdString() + "/", game.Path()) << "no tiles: what was dropped";
    EXPECT_TRUE(Drop(dialog, game.Path() + "art"));
    EXPECT_EQ(Field(2).text().toStdString(), game.Path() + "art/tiles");
}

TEST_F(NewProjectDialog, SeveralFilesAtOnceAreNotTakenByARow) {
    QMimeData two;
    for (const char *file : {"TARGET.DAT", "GRIDDATA.DAT"})
        two.setUrls(two.urls() << QUrl::fromLocalFile(QString::fromStdString(game.Path() + file)));
    EXPECT_FALSE(DropOn(Field(0), two));
    EXPECT_FALSE(DropOn(dialog, two));
    EXPECT_EQ(Field(0).text(), "");
}

TEST_F(NewProjectDialog, ANameThatThe1252CharactersLackIsWrittenAsUTF8) {
    BrowseAllBut(-1);
    Find<QLineEdit>(dialog, "txt_prjname").setText(QStringLiteral("\u0424\u0440\u043E\u043D\u0442"));
    Create(target.Path() + "north.prj");
    EXPECT_EQ(target.Content("north.prj").substr(0, 17), "Name=\xD0\xA4\xD1\x80\xD0\xBE\xD0\xBD\xD1\x82\r\n");
}

TEST_F(NewProjectDialog, TextAndPagesOfTheWebAreNotTakenByTheRows) {
    QMimeData text;
    text.setText("TARGET.DAT");
    QMimeData page;
    page.setUrls({QUrl("https://example.org/TARGET.DAT")});
    page.setText("https://example.org/TARGET.DAT");
    for (const ExpectedRow &row : rows)
        for (const QMimeData *data : {&text, &page}) {
            EXPECT_FALSE(DropOn(Field(row.index), *data)) << row.index;
            EXPECT_EQ(Field(row.index).text(), "");
        }
}

TEST_F(NewProjectDialog, AFolderDroppedOntoTheProjectsNameIsForTheRows) {
    auto &name = Find<QLineEdit>(dialog, "txt_prjname");
    EXPECT_FALSE(name.acceptDrops());
    Drop(name, game.Path());
    EXPECT_EQ(name.text(), "");
    EXPECT_EQ(Field(0).text().toStdString(), game.Path() + "TARGET.DAT");
    QMimeData text;
    text.setText("front");
    EXPECT_FALSE(DropOn(name, text));
    EXPECT_EQ(name.text(), "");
}

TEST_F(NewProjectDialog, AFileDroppedBesideTheRowsIsNotTaken) {
    EXPECT_FALSE(Drop(dialog, game.Path() + "TARGET.DAT"));
}

}  // namespace
}  // namespace vtr
