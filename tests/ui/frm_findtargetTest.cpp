#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QCompleter>
#include <vector>

#include "DialogDriver.h"
#include "frm_findtarget.h"

namespace vtr {
namespace {

class FindTargetDialog : public ::testing::Test {
  protected:
    void SetUp() override {
        for (TargetRecord &target : targets)
            target.name = "Somewhere";
        targets[41].name = "BERLIN";
        targets[200].name = "Twin Peaks";
        targets[77].name = "Twin Peaks";
        targets[301].name = "K\xD6LN \x8A";  // capital O umlaut, capital S with a caron
        targets[300].name = "Emden ";
        dialog.show();
    }

    void Search(const QString &name) {
        Find<QLineEdit>(dialog, "txt_name").setText(name);
        Press<QPushButton>(dialog, "cmd_find");
    }
    QString Number() { return Find<QLabel>(dialog, "lbl_number").text(); }
    void ExpectNotFound(const QString &name) {
        const ShownBox box = BoxShownBy([&] { Search(name); });
        EXPECT_EQ(box.text, "Could not find target named '" + name + "'!");
        EXPECT_EQ(box.title, "VTR Target Editor");
        EXPECT_EQ(box.icon, QMessageBox::Information);
        EXPECT_EQ(Number(), "");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(found.empty());
    }

    QAbstractItemView &Offer() { return *dialog.findChild<QCompleter *>()->popup(); }
    QStringList Offered() {
        QStringList names;
        for (int row = 0; Offer().isVisible() && row < Offer().model()->rowCount(); ++row)
            names << Offer().model()->index(row, 0).data().toString();
        return names;
    }
    /// Types text as the user does.
    QLineEdit &Type(const char *text) {
        auto &name = Find<QLineEdit>(dialog, "txt_name");
        name.setFocus();
        QTest::keyClicks(&name, text);
        return name;
    }

    std::array<TargetRecord, targetTotal> targets;
    std::vector<int> found;
    frm_findtarget dialog{targets, [this](int index) { found.push_back(index); }};
};

TEST_F(FindTargetDialog, HasItsCaptions) {
    EXPECT_EQ(dialog.objectName(), "frm_findtarget");
    EXPECT_EQ(dialog.windowTitle(), "Find Target");
    EXPECT_EQ(Find<QPushButton>(dialog, "cmd_find").text(), "&Find");
    EXPECT_EQ(Find<QPushButton>(dialog, "cmd_cancel").text(), "&Cancel");
    QStringList labels;
    for (const QLabel *label : dialog.findChildren<QLabel *>())
        labels << label->text();
    EXPECT_TRUE(labels.contains("Target Name:"));
    EXPECT_TRUE(labels.contains("Target Number:"));
}

TEST_F(FindTargetDialog, TheFindButtonCannotBePressedWhileTheNameIsEmpty) {
    auto &find = Find<QPushButton>(dialog, "cmd_find");
    auto &name = Find<QLineEdit>(dialog, "txt_name");
    EXPECT_FALSE(find.isEnabled());
    QTest::keyClicks(&name, "b");
    EXPECT_TRUE(find.isEnabled());
    QTest::keyClick(&name, Qt::Key_Backspace);
    EXPECT_FALSE(find.isEnabled());
    QTest::keyClick(&name, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(found.empty());
}

TEST_F(FindTargetDialog, SearchingForBerlinInSmallLettersFindsBERLIN) {
    Search("berlin");
    EXPECT_EQ(found, std::vector<int>{41});
    EXPECT_EQ(Number(), "41");
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(FindTargetDialog, SearchingForBerlFindsNothing) {
    ExpectNotFound("Berl");
}

TEST_F(FindTargetDialog, OfTwoTargetsWithTheSameNameTheLowerIndexIsSelected) {
    Search("twin peaks");
    EXPECT_EQ(found, std::vector<int>{77});
}

TEST_F(FindTargetDialog, ANameWithATrailingBlankDoesNotMatchTheSameNameWithoutIt) {
    ExpectNotFound("Berlin ");
    ExpectNotFound("Emden");
    Search("Emden ");
    EXPECT_EQ(found, std::vector<int>{300});
}

TEST_F(FindTargetDialog, LettersBeyondASCIIFoldTooInTheVeryLastTarget) {
    Search(QStringLiteral("k\u00F6ln \u0161"));
    EXPECT_EQ(found, std::vector<int>{301});
}

TEST_F(FindTargetDialog, TheMessageShowsMarkupAsItWasTyped) {
    ExpectNotFound("<b>x</b>");
}

TEST_F(FindTargetDialog, AFailedSearchClearsTheNumberOfAnEarlierOne) {
    Search("berlin");
    found.clear();
    dialog.show();
    ExpectNotFound("nowhere");
}

TEST_F(FindTargetDialog, EnterInTheNameFinds) {
    Find<QLineEdit>(dialog, "txt_name").setText("BERLIN");
    QTest::keyClick(&Find<QLineEdit>(dialog, "txt_name"), Qt::Key_Return);
    EXPECT_EQ(found, std::vector<int>{41});
}

TEST_F(FindTargetDialog, CancelAndEscapeSelectNothing) {
    Find<QLineEdit>(dialog, "txt_name").setText("BERLIN");
    ExpectClosedBy(dialog, "cmd_cancel");
    EXPECT_TRUE(found.empty());
}

TEST_F(FindTargetDialog, OffersTheNamesThatContainWhatIsTyped) {
    QLineEdit &name = Type("erl");
    EXPECT_EQ(Offered(), QStringList{"BERLIN"});
    EXPECT_EQ(name.text(), "erl");
    name.selectAll();
    QTest::keyClicks(&name, "e");
    EXPECT_EQ(Offered().size(), 301);  // all but the last
    QTest::keyClick(&name, Qt::Key_Backspace);
    EXPECT_FALSE(Offer().isVisible());
    QTest::keyClicks(&name, "zz");
    EXPECT_FALSE(Offer().isVisible());
}

TEST_F(FindTargetDialog, OffersANameOfSeveralTargetsWithTheirNumbers) {
    Type("PEAK");
    EXPECT_EQ(Offered(), (QStringList{"Twin Peaks (target 77)", "Twin Peaks (target 200)"}));
}

TEST_F(FindTargetDialog, TheNameMarkedInTheOfferIsNotWrittenIntoTheField) {
    QLineEdit &name = Type("peak");
    QTest::keyClick(&Offer(), Qt::Key_Down);
    ASSERT_TRUE(Offer().currentIndex().isValid());
    EXPECT_EQ(name.text(), "peak");
    QTest::keyClick(&Offer(), Qt::Key_Escape);
    EXPECT_FALSE(Offer().isVisible());
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(name.text(), "peak");
}

TEST_F(FindTargetDialog, EnterOnAnOfferedNameSelectsThatTargetAndPressesNoButton) {
    Type("peak");
    QTest::keyClick(&Offer(), Qt::Key_Down);
    QTest::keyClick(&Offer(), Qt::Key_Down);
    QTest::keyClick(&Offer(), Qt::Key_Return);
    EXPECT_EQ(found, std::vector<int>{200});
    EXPECT_EQ(Number(), "200");
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(FindTargetDialog, AClickOnAnOfferedNameSelectsThatTarget) {
    Type("berl");
    QTest::mouseClick(Offer().viewport(), Qt::LeftButton, Qt::NoModifier,
                      Offer().visualRect(Offer().model()->index(0, 0)).center());
    EXPECT_EQ(found, std::vector<int>{41});
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(FindTargetDialog, AButtonBehindTheOfferIsPressedByTheFirstClick) {
    Type("berlin");
    ASSERT_TRUE(Offer().isVisible());
    const auto pressAt = [this](const QPoint &onScreen) {
        QMouseEvent press(QEvent::MouseButtonPress, Offer().mapFromGlobal(onScreen), onScreen, Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&Offer(), &press);
    };
    auto &find = Find<QPushButton>(dialog, "cmd_find");
    pressAt(find.mapToGlobal(find.rect().center()));
    EXPECT_EQ(found, std::vector<int>{41});
    EXPECT_FALSE(Offer().isVisible());
}

TEST_F(FindTargetDialog, TheKeyOfTheFindButtonFindsOverTheOfferToo) {
    Type("berlin");
    ASSERT_TRUE(Offer().isVisible());
    QTest::keyClick(&Offer(), Qt::Key_F, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !found.empty(); }));
    EXPECT_EQ(found, std::vector<int>{41});
    EXPECT_FALSE(Offer().isVisible());
}

TEST_F(FindTargetDialog, EnterWithoutAMarkedNameFindsAsWithoutTheOffer) {
    Type("berlin");
    ASSERT_TRUE(Offer().isVisible());
    QTest::keyClick(&Offer(), Qt::Key_Return);
    EXPECT_EQ(found, std::vector<int>{41});
}

}  // namespace
}  // namespace vtr
