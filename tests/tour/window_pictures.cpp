// Takes pictures of the main window in every style, font and size that it must be usable in, and a sheet of
// them for each style and font, for somebody to look at.

#include <QApplication>
#include <QPainter>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>
#include <filesystem>
#include <iostream>
#include <memory>

#include "EventBoundary.h"
#include "SampleCampaign.h"
#include "frm_main.h"

namespace {

constexpr std::array sizes{QSize(888, 742), QSize(800, 600), QSize(1024, 700), QSize(1920, 1080),
                           QSize(2560, 1440)};

QImage PictureOf(vtr::frm_main &window, QSize size) {
    window.resize(size);
    QTest::qWait(50);  // until the layouts have followed
    if (window.size() != size)
        throw std::runtime_error("the window cannot be made as small");
    return window.grab().toImage();
}

void Save(const QImage &picture, const QString &path) {
    if (!picture.save(path))
        throw std::runtime_error("cannot write " + path.toStdString());
}

/// Every size, empty and with the sample, in the style and font that are set.
void TakePictures(const std::string &folder, const QString &name) {
    constexpr QSize place(960, 560);
    QImage sheet(2 * place.width(), static_cast<int>(sizes.size()) * place.height(), QImage::Format_RGB32);
    sheet.fill(Qt::darkGray);
    QPainter painter(&sheet);
    for (const bool isEmpty : {true, false}) {
        auto session = std::make_unique<vtr::Session>();
        session->programFolder = folder + "program/";
        session->dataFolder = folder + "data/";
        vtr::frm_main window(*session);
        window.Start(isEmpty ? QString() : QString::fromStdString(folder + "sample/sample.prj"));
        QPoint corner(isEmpty ? 0 : place.width(), 0);
        for (const QSize size : sizes) {
            const QImage picture = PictureOf(window, size);
            Save(picture, QStringLiteral("%1%2-%3x%4%5.png")
                              .arg(QString::fromStdString(folder), name)
                              .arg(size.width())
                              .arg(size.height())
                              .arg(isEmpty ? QStringLiteral("-empty") : QString()));
            painter.drawImage(
                corner, picture.scaled(place - QSize(10, 10), Qt::KeepAspectRatio, Qt::SmoothTransformation));
            corner.ry() += place.height();
        }
    }
    Save(sheet, QStringLiteral("%1sheet-%2.png").arg(QString::fromStdString(folder), name));
}

}  // namespace

int main(int argc, char **argv) {
    if (argc < 2) {
        std::cerr << "usage: window_pictures FOLDER [STYLE...]\n";
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const std::string folder = std::filesystem::absolute(argv[1]).string() + "/";
    const auto session = std::make_unique<vtr::Session>();
    vtr::EventBoundary application(argc, argv, *session);
    std::filesystem::create_directories(folder + "program");
    vtr::WriteSampleCampaign(folder + "sample/", false);
    const QFont font = QApplication::font();
    for (const QString &style : argc > 2 ? QCoreApplication::arguments().mid(2) : QStyleFactory::keys())
        for (const int percent : {100, 150, 200}) {
            QApplication::setStyle(style);
            QFont larger = font;
            larger.setPointSizeF(font.pointSizeF() * percent / 100);
            QApplication::setFont(larger);
            TakePictures(folder, QStringLiteral("%1-%2").arg(style).arg(percent));
        }
    std::cout << "The sheets are " << folder << "sheet-*.png\n";
    return 0;
}
