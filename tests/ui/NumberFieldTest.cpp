#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "NumberField.h"

namespace vtr {
namespace {

class NumberFieldTest : public ::testing::Test {
  protected:
    NumberFieldTest() {
        field.selectAll();
        field.setFocus();
    }

    QString Text() const { return edit.text(); }
    void Type(const char *keys) { QTest::keyClicks(&field, QString::fromLatin1(keys)); }
    void Paste(const QString &text) {
        QApplication::clipboard()->setText(text);
        field.selectAll();
        edit.paste();
    }
    std::vector<int> Told() const {
        std::vector<int> numbers;
        for (const QList<QVariant> &signal : told)
            numbers.push_back(signal.front().toInt());
        return numbers;
    }

    NumberField field{QStringLiteral("tar_x"), 639};
    QLineEdit &edit = *field.findChild<QLineEdit *>(QStringLiteral("txt_tar_x"));
    QSignalSpy told{&field, &NumberField::NumberChanged};
};

using Numbers = std::vector<int>;

TEST_F(NumberFieldTest, BearsTheNamesOfTheUpDownAndOfItsTextBox) {
    EXPECT_EQ(field.objectName(), QStringLiteral("upd_tar_x"));
    EXPECT_EQ(field.findChildren<QLineEdit *>(QStringLiteral("txt_tar_x")).size(), 1);
}

TEST_F(NumberFieldTest, ShowsZeroFromTheStart) {
    EXPECT_EQ(Text(), QStringLiteral("0"));
}

TEST_F(NumberFieldTest, Typing700Turns639AtTheThirdKey) {
    Type("7");
    EXPECT_EQ(Text(), QStringLiteral("7"));
    Type("0");
    EXPECT_EQ(Text(), QStringLiteral("70"));
    Type("0");
    EXPECT_EQ(Text(), QStringLiteral("639"));
    EXPECT_EQ(Told(), (Numbers{7, 70, 639}));
}

TEST_F(NumberFieldTest, TypingMinus3TurnsIntoZeroAtThe3) {
    field.SetNumber(12);
    field.selectAll();
    told.clear();
    Type("-");
    EXPECT_EQ(Text(), QStringLiteral("-"));
    EXPECT_EQ(Told(), Numbers{});
    Type("3");
    EXPECT_EQ(Text(), QStringLiteral("0"));
    EXPECT_EQ(Told(), Numbers{0});
}

TEST_F(NumberFieldTest, AnEmptyTextDoesNothing) {
    field.SetNumber(12);
    told.clear();
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(Text(), QString());
    EXPECT_EQ(field.value(), 12);
    EXPECT_EQ(Told(), Numbers{});
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(Text(), QStringLiteral("12"));
    EXPECT_EQ(Told(), Numbers{});
}

TEST_F(NumberFieldTest, LettersBlanksAndForeignDigitsAreNotEntered) {
    field.SetNumber(12);
    told.clear();
    QTest::keyClick(&field, Qt::Key_End);
    Type("a e+");
    EXPECT_EQ(Text(), QStringLiteral("12"));
    for (const QString &pasted : {QStringLiteral("abc"), QStringLiteral("1 2"), QStringLiteral("5x"),
                                  QStringLiteral("\u0663"), QStringLiteral("--1"), QStringLiteral("1-")}) {
        Paste(pasted);
        EXPECT_EQ(Text(), QStringLiteral("12")) << pasted.toStdString();
    }
    EXPECT_EQ(Told(), Numbers{});
}

TEST_F(NumberFieldTest, ATextSetFromOutsideIsHeldToTheSameRules) {
    edit.setText(QStringLiteral("700"));
    EXPECT_EQ(Text(), QStringLiteral("639"));
    edit.setText(QStringLiteral("abc"));
    EXPECT_EQ(Text(), QStringLiteral("639"));
    edit.setText(QStringLiteral("-3"));
    EXPECT_EQ(Text(), QStringLiteral("0"));
    EXPECT_EQ(Told(), (Numbers{639, 0}));
}

TEST_F(NumberFieldTest, PastedNumbersOfAnySizeAreHeldInTheRange) {
    Paste(QStringLiteral("99999999999999999999999"));
    EXPECT_EQ(Text(), QStringLiteral("639"));
    Paste(QStringLiteral("-99999999999999999999999"));
    EXPECT_EQ(Text(), QStringLiteral("0"));
    Paste(QStringLiteral("4294967297"));
    EXPECT_EQ(Text(), QStringLiteral("639"));
    EXPECT_EQ(Told(), (Numbers{639, 0, 639}));
}

TEST_F(NumberFieldTest, AFractionIsRoundedAndHalvesGoToTheEvenNumber) {
    const std::pair<const char *, const char *> cases[] = {
        {"12.7", "13"},
        {"12.5", "12"},
        {"13.5", "14"},
        {"12.500", "12"},
        {"12.501", "13"},
        {"12.49", "12"},
        {"12.05", "12"},
        {"12.0", "12"},
        {"12.", "12"},
        {"0.5", "0"},
        {"1.5", "2"},
        {"009.6", "10"},
        {"-0.4", "0"},
        {"-0.6", "0"},
        {"-1.5", "0"},
        {"638.5", "638"},
        {"639.4", "639"},
        {"639.6", "639"},
        {"9999999999.5", "639"},
        {"12.50000000000000000000000000000000000001", "13"}};
    for (const auto &[fraction, shown] : cases) {
        field.SetNumber(100);
        told.clear();
        Paste(QString::fromLatin1(fraction));
        EXPECT_EQ(Text(), QString::fromLatin1(shown)) << "pasted " << fraction;
        EXPECT_EQ(Told(), Numbers{QString::fromLatin1(shown).toInt()}) << "pasted " << fraction;
        field.SetNumber(100);
        told.clear();
        edit.setText(QString::fromLatin1(fraction));
        EXPECT_EQ(Text(), QString::fromLatin1(shown)) << "set to " << fraction;
        EXPECT_EQ(Told(), Numbers{QString::fromLatin1(shown).toInt()}) << "set to " << fraction;
    }
}

TEST_F(NumberFieldTest, AFractionThatIsNoNumberIsNotPasted) {
    field.SetNumber(12);
    told.clear();
    for (const char *pasted : {"1.x", ".5", ".", "1.2.3", "1.-2", "1,5", "1e1"}) {
        Paste(QString::fromLatin1(pasted));
        EXPECT_EQ(Text(), QStringLiteral("12")) << pasted;
    }
    EXPECT_EQ(Told(), Numbers{});
}

TEST_F(NumberFieldTest, AFractionStaysAsItIsTypedAndTheNumberFollowsAtEveryKey) {
    for (const auto &[keys, number] :
         {std::pair("1", 1), {"2", 12}, {".", 12}, {"7", 13}, {"5", 13}, {"0", 13}}) {
        const QString before = Text();
        Type(keys);
        EXPECT_EQ(Text(), (before == QStringLiteral("0") ? QString() : before) + QLatin1String(keys));
        EXPECT_EQ(field.value(), number) << keys;
    }
    EXPECT_EQ(Told(), (Numbers{1, 12, 13}));
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(Text(), QStringLiteral("13"));
    EXPECT_EQ(Told(), (Numbers{1, 12, 13}));
}

TEST_F(NumberFieldTest, AFractionTypedKeyByKeyEndsAsThePastedOneDoes) {
    for (const bool cuts : {false, true}) {
        if (cuts)
            field.CutFraction();
        for (const char *fraction :
             {"12.7",  "12.5",  "12.75", "13.5",  "12.500", "12.501", "12.",
              "0.5",   "0.51",  "1.5",   "009.6", "-0.4",   "-0.6",   "-1.5",
              "638.5", "639.4", "639.6", "640.2", "+12.7",  "+0.6",   "12.50000000000000000001"}) {
            Paste(QString::fromLatin1(fraction));
            const QString pasted = Text();
            field.SetNumber(100);
            field.selectAll();
            Type(fraction);
            EXPECT_EQ(field.value(), pasted.toInt()) << fraction;
            QFocusEvent leaving(QEvent::FocusOut, Qt::TabFocusReason);
            QApplication::sendEvent(&field, &leaving);
            EXPECT_EQ(Text(), pasted) << fraction;
        }
    }
}

TEST_F(NumberFieldTest, AFractionTypedIntoTheTextBoxItselfStaysToo) {
    edit.selectAll();
    QTest::keyClicks(&edit, QStringLiteral("12.75"));
    EXPECT_EQ(Text(), QStringLiteral("12.75"));
    EXPECT_EQ(field.value(), 13);
}

TEST_F(NumberFieldTest, AFractionIsEditedKeyByKey) {
    Type("12.75");
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(Text(), QStringLiteral("12.7"));
    QTest::keyClick(&field, Qt::Key_Backspace);
    Type("3");
    EXPECT_EQ(Text(), QStringLiteral("12.3"));
    EXPECT_EQ(field.value(), 12);
    QTest::keyClick(&field, Qt::Key_Home);
    Type("5");
    EXPECT_EQ(Text(), QStringLiteral("512.3"));
    EXPECT_EQ(field.value(), 512);
    edit.setSelection(3, 2);
    Type("4");
    EXPECT_EQ(Text(), QStringLiteral("639"));
    Type(".");
    EXPECT_EQ(Text(), QStringLiteral("639."));
}

TEST_F(NumberFieldTest, AFractionBehindTheGreatestNumberIsHeldAtIt) {
    Type("639.0");
    EXPECT_EQ(Text(), QStringLiteral("639.0"));
    Type("4");
    EXPECT_EQ(Text(), QStringLiteral("639"));
    EXPECT_EQ(Told(), (Numbers{6, 63, 639}));
}

TEST_F(NumberFieldTest, SteppingAndSettingReplaceATypedFraction) {
    Type("12.7");
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(Text(), QStringLiteral("14"));
    Type(".5");
    field.SetNumber(14);
    EXPECT_EQ(Text(), QStringLiteral("14"));
    field.selectAll();
    Type("12.7");
    field.ShowRecordValue(14);
    EXPECT_EQ(Text(), QStringLiteral("14"));
}

TEST_F(NumberFieldTest, ShowingTheNumberThatIsBeingTypedLeavesTheFraction) {
    Type("12.7");
    field.ShowRecordValue(13);
    Type("5");
    EXPECT_EQ(Text(), QStringLiteral("12.75"));
}

TEST_F(NumberFieldTest, BlanksAroundAPastedNumberAndAPlusBeforeItAreTaken) {
    for (const QString &pasted : {QStringLiteral(" 45"), QStringLiteral("45 "), QStringLiteral("+45"),
                                  QStringLiteral("\t45\n"), QStringLiteral(" +45.2 ")}) {
        field.SetNumber(100);
        Paste(pasted);
        EXPECT_EQ(Text(), QStringLiteral("45")) << pasted.toStdString();
        EXPECT_EQ(field.value(), 45);
    }
    Type("7");
    EXPECT_EQ(Text(), QStringLiteral("457"));
}

TEST_F(NumberFieldTest, WhatIsRefusedIsToldWithTheReason) {
    field.SetNumber(12);
    const QSignalSpy refused(&field, &NumberField::Refused);
    QTest::keyClick(&field, Qt::Key_End);
    Type("3.");
    EXPECT_EQ(refused.count(), 0);
    const QString onlyNumbers = QStringLiteral("Only a number from 0 to 639 fits here.");
    const QString noComma = QStringLiteral("Write a fraction with a point, not a comma.");
    int count = 0;
    for (const auto &[keys, why] :
         {std::pair("e", onlyNumbers), {",", noComma}, {".", onlyNumbers}, {" ", onlyNumbers}}) {
        Type(keys);
        EXPECT_EQ(Text(), QStringLiteral("123."));
        ASSERT_EQ(refused.count(), ++count) << keys;
        EXPECT_EQ(refused.back().front().toString(), why) << keys;
    }
    Paste(QStringLiteral("1 2"));
    EXPECT_EQ(refused.count(), ++count);
    EXPECT_EQ(field.value(), 123);
}

TEST_F(NumberFieldTest, AFractionMayLoseItsWholePartByDeletionAndIsTheFractionAlone) {
    for (const QString &zeroText : {QString(), QStringLiteral("ALL")}) {
        field.SetZeroText(zeroText);
        field.SetNumber(5);
        edit.selectAll();
        const QSignalSpy refused(&field, &NumberField::Refused);
        Type("12.7");
        QTest::keyClick(&field, Qt::Key_Home);
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClick(&field, Qt::Key_Delete);
        EXPECT_EQ(Text(), QStringLiteral(".7"));
        EXPECT_EQ(field.value(), 1);
        QTest::keyClick(&field, Qt::Key_End);
        Type("5");
        QTest::keyClick(&field, Qt::Key_Backspace);
        QTest::keyClick(&field, Qt::Key_Backspace);
        EXPECT_EQ(Text(), QStringLiteral("."));
        EXPECT_EQ(field.value(), 0);
        QTest::keyClick(&field, Qt::Key_Home);
        Type("3");
        EXPECT_EQ(Text(), QStringLiteral("3."));
        QTest::keyClick(&field, Qt::Key_Backspace);
        Type("8");
        QTest::keyClick(&field, Qt::Key_Return);
        EXPECT_EQ(Text(), QStringLiteral("8"));
        EXPECT_EQ(refused.count(), 0);
    }
}

TEST_F(NumberFieldTest, AFieldThatCutsDropsTheFraction) {
    field.CutFraction();
    for (const auto &[fraction, shown] :
         {std::pair("12.7", "12"), {"13.5", "13"}, {"-0.6", "0"}, {"639.9", "639"}, {"640.0", "639"}}) {
        Paste(QString::fromLatin1(fraction));
        EXPECT_EQ(Text(), QString::fromLatin1(shown)) << "pasted " << fraction;
        field.SetNumber(100);
        edit.setText(QString::fromLatin1(fraction));
        EXPECT_EQ(Text(), QString::fromLatin1(shown)) << "set to " << fraction;
    }
}

TEST_F(NumberFieldTest, LeadingZerosStayWhileTypedAndGoWhenTheFieldIsLeft) {
    Type("007");
    EXPECT_EQ(Text(), QStringLiteral("007"));
    EXPECT_EQ(field.value(), 7);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(Text(), QStringLiteral("7"));
}

TEST_F(NumberFieldTest, TheProgramCannotSetANumberOutsideTheRange) {
    EXPECT_TRUE(field.SetNumber(639));
    EXPECT_FALSE(field.SetNumber(640));
    EXPECT_FALSE(field.SetNumber(-1));
    EXPECT_EQ(Text(), QStringLiteral("639"));
    EXPECT_EQ(Told(), Numbers{639});
}

TEST_F(NumberFieldTest, SettingTheSameNumberTellsNobody) {
    field.SetNumber(5);
    field.SetNumber(5);
    EXPECT_EQ(Told(), Numbers{5});
}

TEST_F(NumberFieldTest, ShowingARecordTellsNobody) {
    field.ShowRecordValue(5);
    EXPECT_EQ(Text(), QStringLiteral("5"));
    field.ShowRecordValue(1760);
    field.ShowRecordValue(7);
    EXPECT_EQ(Text(), QStringLiteral("7"));
    EXPECT_EQ(field.maximum(), 639);
    EXPECT_EQ(Told(), Numbers{});
}

TEST_F(NumberFieldTest, ARecordOutsideTheRangeIsShownAsItIsUntilItIsEdited) {
    for (const int number : {1760, -5, 32767, -32768, 640}) {
        field.ShowRecordValue(number);
        EXPECT_EQ(Text(), QString::number(number));
        EXPECT_EQ(field.value(), number);
        QTest::keyClick(&field, Qt::Key_Return);
        EXPECT_EQ(Text(), QString::number(number));
        field.clearFocus();
        field.setFocus();
        EXPECT_EQ(Text(), QString::number(number));
    }
    EXPECT_EQ(Told(), Numbers{});
}

TEST_F(NumberFieldTest, TypingIntoARecordOutsideTheRangeHoldsItInTheRange) {
    field.ShowRecordValue(1760);
    QTest::keyClick(&field, Qt::Key_End);
    Type("0");
    EXPECT_EQ(Text(), QStringLiteral("639"));
    EXPECT_EQ(Told(), Numbers{639});
    EXPECT_EQ(field.maximum(), 639);
    Type("0");
    EXPECT_EQ(Text(), QStringLiteral("639"));

    field.ShowRecordValue(1760);
    QTest::keyClick(&field, Qt::Key_End);
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(Text(), QStringLiteral("176"));
    EXPECT_EQ(Told(), (Numbers{639, 176}));
}

TEST_F(NumberFieldTest, SteppingFromARecordOutsideTheRangeGoesToTheNearestNumberOfTheRange) {
    field.ShowRecordValue(1760);
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_EQ(Text(), QStringLiteral("639"));
    field.ShowRecordValue(1760);
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(Text(), QStringLiteral("639"));
    field.ShowRecordValue(-5);
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(Text(), QStringLiteral("0"));
    EXPECT_EQ(field.minimum(), 0);
    EXPECT_EQ(Told(), (Numbers{639, 639, 0}));
}

TEST_F(NumberFieldTest, ANumberInTheRangeReplacesOneOutsideIt) {
    field.ShowRecordValue(1760);
    EXPECT_FALSE(field.SetNumber(640));
    EXPECT_EQ(Text(), QStringLiteral("1760"));
    EXPECT_TRUE(field.SetNumber(639));
    EXPECT_EQ(Told(), Numbers{639});
}

TEST_F(NumberFieldTest, StepsEndAtTheEndsOfTheRange) {
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_EQ(field.value(), 0);
    field.SetNumber(638);
    QTest::keyClick(&field, Qt::Key_PageUp);
    EXPECT_EQ(field.value(), 639);
}

void Wheel(QWidget &widget) {
    QWheelEvent event(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

TEST_F(NumberFieldTest, TheWheelActsOnlyOnTheFieldWithTheFocus) {
    QWidget window;
    QVBoxLayout layout(&window);
    auto *first = new NumberField(QStringLiteral("first"), 639);
    auto *second = new NumberField(QStringLiteral("second"), 639);
    layout.addWidget(first);
    layout.addWidget(second);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    first->setFocus();
    Wheel(*second);
    EXPECT_EQ(second->value(), 0);
    EXPECT_FALSE(second->hasFocus());
    Wheel(*first);
    EXPECT_EQ(first->value(), 1);
}

class ZeroTextTest : public NumberFieldTest {
  protected:
    ZeroTextTest() { field.SetZeroText(QStringLiteral("ALL")); }
};

TEST_F(ZeroTextTest, ZeroIsShownAsTheText) {
    EXPECT_EQ(Text(), QStringLiteral("ALL"));
    field.SetNumber(3);
    EXPECT_EQ(Text(), QStringLiteral("3"));
    field.SetNumber(0);
    EXPECT_EQ(Text(), QStringLiteral("ALL"));
    field.ShowRecordValue(3);
    field.ShowRecordValue(0);
    EXPECT_EQ(Text(), QStringLiteral("ALL"));
}

TEST_F(ZeroTextTest, ATypedZeroBecomesTheText) {
    field.SetNumber(3);
    field.selectAll();
    Type("0");
    EXPECT_EQ(Text(), QStringLiteral("ALL"));
    EXPECT_EQ(field.value(), 0);
}

TEST_F(ZeroTextTest, ADigitTypedBehindOrBeforeTheTextReplacesIt) {
    QTest::keyClick(&field, Qt::Key_End);
    Type("42");
    EXPECT_EQ(Text(), QStringLiteral("42"));
    EXPECT_EQ(field.value(), 42);
    field.SetNumber(0);
    QTest::keyClick(&field, Qt::Key_Home);
    Type("7");
    EXPECT_EQ(Text(), QStringLiteral("7"));
}

TEST_F(ZeroTextTest, ADigitTypedAfterRubbingOutALetterReplacesTheRest) {
    QTest::keyClick(&field, Qt::Key_End);
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(field.value(), 0);
    Type("5");
    EXPECT_EQ(Text(), QStringLiteral("5"));
}

TEST_F(ZeroTextTest, AFractionTypedFromZeroOnEndsAsThePastedOneDoes) {
    QTest::keyClick(&field, Qt::Key_End);
    Type(".7");
    EXPECT_EQ(Text(), QStringLiteral("0.7"));
    EXPECT_EQ(field.value(), 1);
    QTest::keyClick(&field, Qt::Key_Backspace);
    Type("5");
    EXPECT_EQ(field.value(), 0);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(Text(), QStringLiteral("ALL"));
    Type("0.7");
    EXPECT_EQ(Text(), QStringLiteral("0.7"));
}

TEST_F(ZeroTextTest, TheTextItselfCanBeTypedAndOtherLettersCannot) {
    field.SetNumber(3);
    told.clear();
    field.selectAll();
    Type("ALLX");
    EXPECT_EQ(Text(), QStringLiteral("ALL"));
    EXPECT_EQ(Told(), Numbers{0});
    Paste(QStringLiteral("LLAA"));
    EXPECT_EQ(Text(), QStringLiteral("ALL"));
}

TEST_F(ZeroTextTest, RubbingOutTheTextAndLeavingBringsItBack) {
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_Backspace);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(Text(), QStringLiteral("ALL"));
}

}  // namespace
}  // namespace vtr
