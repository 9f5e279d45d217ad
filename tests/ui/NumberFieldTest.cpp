#include <QVBoxLayout>
#include <QWheelEvent>

#include "NumberFieldTesting.h"

namespace vtr {
namespace {

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
