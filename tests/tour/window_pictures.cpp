// Takes pictures of the main window in every style, font and size that it must be usable in, for somebody to
// look at: usage: window_pictures FOLDER [STYLE...]

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

QImage Taken(vtr::frm_main &window, QSize size, const QString &path) {
    window.resize(size);
    QTest::qWait(50);  // until the layouts have followed
    const QImage picture = window.grab().toImage();
    if (!picture.save(path))
        throw std::runtime_error("cannot write " + path.toStdString());
    if (window.size() != size)
        std::cout << path.toStdString() << ": " << window.width() << " x " << window.height() << '\n';
    return picture;
}

/// Every size, empty and with the sample, of the style and font that are set.
void TakeAll(const std::string &folder, const QString &project, const QString &name) {
    for (const bool isEmpty : {true, false}) {
        auto session = std::make_unique<vtr::Session>();
        session->programFolder = folder + "program/";
        session->dataFolder = folder + "data/";
        vtr::frm_main window(*session);
        window.Start(isEmpty ? QString() : project);
        for (const QSize size : sizes)
            Taken(window, size,
                  QStringLiteral("%1%2-%3x%4%5.png")
                      .arg(QString::fromStdString(folder), name)
                      .arg(size.width())
                      .arg(size.height())
                      .arg(isEmpty ? QStringLiteral("-empty") : QString()));
    }
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
            TakeAll(folder, QString::fromStdString(folder + "sample/sample.prj"),
                    QStringLiteral("%1-%2").arg(style).arg(percent));
        }
    return 0;
}
