#include "NumberFieldTesting.h"

namespace vtr {
namespace {

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

TEST_F(NumberFieldTest, AFractionMayBeTypedWithoutAWholePart) {
    field.SetNumber(12);
    field.selectAll();
    Type(".7");
    EXPECT_EQ(Text(), QStringLiteral(".7"));
    EXPECT_EQ(field.value(), 1);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(Text(), QStringLiteral("1"));
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

}  // namespace
}  // namespace vtr
