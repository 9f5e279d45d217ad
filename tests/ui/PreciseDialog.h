#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <functional>
#include <memory>

#include "DialogDriver.h"
#include "frm_precise.h"

namespace vtr {

constexpr std::uint32_t red = 0xFFFF0000;

/// The colour that index has in the test's PCX files.
inline std::uint32_t ColourOf(int index) {
    const auto value = static_cast<std::uint32_t>(index);
    return 0xFF000000U | value << 16 | (value / 2) << 8 | (191 - value);
}

/// A PCX file of 256 colours, width even, whose pixel at (x, y) has the colour index (below 192) of pixelOf.
inline QByteArray PcxFile(int width, int height, const std::function<int(int, int)> &pixelOf) {
    QByteArray file(128, '\0');
    const auto word = [&file](int offset, int value) {
        file[offset] = static_cast<char>(value & 255);
        file[offset + 1] = static_cast<char>(value >> 8);
    };
    file[0] = 10;
    file[1] = 5;
    file[2] = 1;
    file[3] = 8;
    word(8, width - 1);
    word(10, height - 1);
    file[65] = 1;
    word(66, width);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            file.append(static_cast<char>(pixelOf(x, y)));
    file.append('\x0C');
    for (int index = 0; index < 256; ++index) {
        const std::uint32_t colour = ColourOf(index);
        for (const int shift : {16, 8, 0})
            file.append(static_cast<char>(colour >> shift & 255));
    }
    return file;
}

/// Differs at every pixel from its neighbours and from its own turns.
inline int Pattern(int x, int y) {
    return (x * 7 + y * 13) % 190;
}

/// The cross with its middle at (x, y), and nothing else red in the picture.
inline void ExpectCrossIn(const Picture &picture, int x, int y) {
    for (int row = 0; row < picture.height; ++row)
        for (int column = 0; column < picture.width; ++column) {
            const bool upright = column == x && row >= y - 5 && row <= y + 6;
            const bool level = row == y && column >= x - 5 && column <= x + 6;
            const std::uint32_t pixel =
                picture.pixels.at(static_cast<std::size_t>(row * picture.width + column));
            ASSERT_EQ(pixel == red, upright || level) << column << ", " << row;
        }
}

/// The dialog, which takes its tiles from a folder of the test.
class PreciseDialog : public ::testing::Test {
  protected:
    PreciseDialog() { Open(); }

    void Open() { dialog = std::make_unique<frm_precise>(folder.path().toStdString()); }
    void Write(const QString &name, const QByteArray &bytes) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    void WriteTile(const QString &name, int width = 256, int height = 256) {
        Write(name, PcxFile(width, height, Pattern));
    }
    PictureWidget &Tile() { return Find<PictureWidget>(*dialog, "pic_tile"); }
    std::uint32_t Pixel(int x, int y) {
        const Picture &picture = Tile().Shown();
        return picture.pixels.at(static_cast<std::size_t>(y * picture.width + x));
    }
    /// A click with the left button, also at (0, 0), which QTest would take for "in the middle".
    void Click(int x, int y) {
        const QPointF at(x, y);
        const QPointF global = Tile().mapToGlobal(at);
        for (const auto &[type, held] : {std::pair(QEvent::MouseButtonPress, Qt::LeftButton),
                                         std::pair(QEvent::MouseButtonRelease, Qt::NoButton)}) {
            QMouseEvent event(type, at, global, Qt::LeftButton, held, Qt::NoModifier);
            QCoreApplication::sendEvent(&Tile(), &event);
        }
    }
    /// Moves the mouse to (x, y). A move to where an earlier test left it would tell the dialog nothing.
    void MoveMouse(int x, int y) {
        for (const QPoint to : {QPoint(x + 1, y), QPoint(x, y)})
            QTest::mouseMove(&Tile(), to);
        QCoreApplication::processEvents();
    }
    void ClickOk() { Press<QPushButton>(*dialog, "cmd_OK"); }
    QString CheckedOption() {
        QString checked;
        for (const QString name : {"opt_N", "Opt_E", "Opt_S", "Opt_W"})
            if (Find<QRadioButton>(*dialog, name).isChecked())
                checked += name;
        return checked;
    }
    QString LabelText(const char *name) { return Find<QLabel>(*dialog, name).text(); }
    QString Reason() { return Find<QLabel>(*dialog, "lbl_reason").text(); }
    void ExpectMetres(double x, double y) {
        EXPECT_EQ(dialog->MetresX(), x);
        EXPECT_EQ(dialog->MetresY(), y);
    }
    void ExpectCross(int x, int y) { ExpectCrossIn(Tile().Shown(), x, y); }

    /// Opens it with the focus where it goes by itself.
    void ShowActive() {
        dialog->show();
        QApplication::setActiveWindow(dialog.get());
        QCoreApplication::processEvents();
        ASSERT_NE(dialog->focusWidget(), nullptr);
        ASSERT_TRUE(dialog->focusWidget()->hasFocus());
    }

    /// Showing tile 1 brings that message and leaves an empty tile.
    void ExpectRefused(const QString &message, QMessageBox::Icon icon) {
        const ShownBox box = BoxShownBy([this] { dialog->ShowTile(1, Orientation::West); });
        EXPECT_EQ(box.text, message);
        EXPECT_EQ(box.title, "VTR Target Editor");
        EXPECT_EQ(box.icon, icon);
        EXPECT_EQ(box.buttons, QMessageBox::Ok);
        EXPECT_EQ(Tile().size(), QSize(256, 256));
    }

    QTemporaryDir folder;
    std::unique_ptr<frm_precise> dialog;
};

}  // namespace vtr
