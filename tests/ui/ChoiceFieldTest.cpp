#include <gtest/gtest.h>

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "ChoiceField.h"

namespace vtr {
namespace {

class ChoiceFieldTest : public ::testing::Test {
  protected:
    ChoiceFieldTest() { field.addItems({QStringLiteral("AA"), QStringLiteral("BB"), QStringLiteral("CC")}); }

    QWidget window;
    ChoiceField &field = *new ChoiceField(QStringLiteral("cbo_air_country"), 6, &window);
    QSignalSpy changed{&field, &QComboBox::currentIndexChanged};
};

TEST_F(ChoiceFieldTest, HasRoomForItsLettersWhateverItsCaptions) {
    const QSize before = field.sizeHint();
    field.addItem(QString(100, u'X'));
    EXPECT_EQ(field.sizeHint(), before);
    const ChoiceField twoMore(QStringLiteral("cbo_air_1940"), 8);
    const int letter = field.fontMetrics().horizontalAdvance(u'X');
    EXPECT_EQ(twoMore.sizeHint(), before + QSize(2 * letter, 0));
    EXPECT_EQ(twoMore.minimumSizeHint(), twoMore.sizeHint());

    // As high as any other list, and with its arrow beside the letters.
    QComboBox plain;
    plain.addItem(QString(6, u'X'));
    EXPECT_EQ(before.height(), plain.sizeHint().height());
    EXPECT_NEAR(before.width(), plain.sizeHint().width(), letter);
}

TEST_F(ChoiceFieldTest, ShowingAnEntryTellsNobody) {
    changed.clear();
    field.ShowEntry(2);
    EXPECT_EQ(field.currentText(), QStringLiteral("CC"));
    field.ShowEntry(3);
    EXPECT_EQ(field.currentIndex(), -1) << "not in the list";
    field.ShowEntry(1);
    field.ShowEntry(-1);
    EXPECT_EQ(field.currentIndex(), -1);
    EXPECT_EQ(changed.size(), 0);
}

TEST_F(ChoiceFieldTest, TheWheelActsOnlyOnTheListWithTheFocus) {
    auto *other = new ChoiceField(QStringLiteral("cbo_air_1943"), 6, &window);
    other->addItems({QStringLiteral("AA"), QStringLiteral("BB")});
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(&field);
    layout->addWidget(other);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    field.setFocus();
    for (ChoiceField *list : {&field, other}) {
        QWheelEvent down(QPointF(5, 5), list->mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -120),
                         Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(list, &down);
    }
    EXPECT_EQ(field.currentIndex(), 1);
    EXPECT_EQ(other->currentIndex(), 0);
    EXPECT_FALSE(other->hasFocus());
}

}  // namespace
}  // namespace vtr
