#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include "NumberField.h"

namespace vtr {

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

}  // namespace vtr
