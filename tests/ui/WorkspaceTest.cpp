#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QStyle>
#include <QStyleFactory>

#include "EditorWindow.h"
#include "MapFrame.h"

namespace vtr {
namespace {

constexpr std::array fontPercents{100, 125, 150, 175, 200};

constexpr std::array modesAndFrames{
    std::pair("mnu_e_frontline", "fra_frontline"), std::pair("mnu_e_railway", "fra_railway"),
    std::pair("mnu_e_roadint", "fra_roadint"), std::pair("mnu_e_railint", "fra_railint"),
    std::pair("mnu_e_target", "fra_target")};

constexpr std::array frames{"fra_control", "fra_target",  "fra_airfield", "fra_frontline",
                            "fra_railway", "fra_roadint", "fra_railint"};

/// Always the styles that Qt brings along; adwaita where it is installed, as it is wherever everything is
/// checked.
QStringList Styles() {
    QStringList styles{QStringLiteral("Fusion"), QStringLiteral("Windows")};
    for (const QString &key : QStyleFactory::keys())
        if (key == QLatin1String("Adwaita"))
            styles << key;
    return styles;
}

class WorkspaceTest : public EditorWindow {
  protected:
    ~WorkspaceTest() override {
        QApplication::setFont(font_);
        QApplication::setStyle(QStringLiteral("Fusion"));  // which all tests run in
    }
    /// Opens the window anew in the style and font.
    void StartIn(const QString &style, int fontPercent) {
        EndAndMakeAnew();
        QApplication::setStyle(style);
        QFont larger = font_;
        larger.setPointSizeF(font_.pointSizeF() * fontPercent / 100);
        QApplication::setFont(larger);
        StartWithSample();
    }
    void Resize(QSize size) {
        window().resize(size);
        QCoreApplication::processEvents();
        ASSERT_EQ(window().size(), size);
    }
    MapSurface &Map() { return Find<MapSurface>(window(), QStringLiteral("Img_Map")); }
    QWidget &Frame(const char *name) { return Find<QWidget>(window(), QLatin1String(name)); }
    QScrollArea &Scroll() { return *window().findChild<QScrollArea *>(); }
    QRect InWindow(const QWidget &widget) { return {widget.mapTo(&window(), QPoint()), widget.size()}; }
    /// The part of widget that is seen, in its own pixels.
    static QRect Seen(const QWidget &widget) { return widget.visibleRegion().boundingRect(); }
    bool CanBeScrolledTo(const QWidget &control) {
        if (!Scroll().isAncestorOf(&control))
            return Seen(control) == control.rect();
        // A button as wide as a frame that is wider than the window is seen in two halves.
        const int width = std::min(control.width(), Scroll().viewport()->width());
        const QPoint middle = control.mapTo(Scroll().widget(), control.rect().center());
        Scroll().ensureVisible(middle.x(), middle.y(), width / 2, control.height() / 2 + 1);
        return Seen(control).width() >= width - 1 && Seen(control).height() == control.height();
    }
    void ExpectMenuMapAndStatusSeen() {
        EXPECT_EQ(Seen(*window().menuBar()), window().menuBar()->rect());
        EXPECT_EQ(Seen(*window().statusBar()), window().statusBar()->rect());
        EXPECT_TRUE(window().rect().contains(InWindow(*window().statusBar())));
        EXPECT_EQ(Seen(Map()), Map().rect());
        EXPECT_EQ(Map().size(), QSize(640, 320) * Map().Factor());
        for (const char *key : {"project", "curredit", "zoom", "xypos", "version"}) {
            auto &panel = Find<QToolButton>(window(), QLatin1String(key));
            EXPECT_TRUE(window().rect().contains(InWindow(panel))) << key;
        }
        for (const char *bar : {"h_scroll", "v_scroll"})
            EXPECT_EQ(Seen(Frame(bar)), Frame(bar).rect()) << bar;
    }

  private:
    const QFont font_ = QApplication::font();
};

TEST_F(WorkspaceTest, TheWindowCanBeAsSmallAsThisTableSaysInEveryFont) {
    constexpr std::array leastHeights{505, 512, 520, 530, 540};
    for (const QString &style : Styles())
        for (std::size_t i = 0; i < fontPercents.size(); ++i) {
            StartIn(style, fontPercents[i]);
            const QSize least = window().minimumSizeHint();
            EXPECT_LE(least.width(), 700) << style.toStdString() << ", font " << fontPercents[i];
            EXPECT_LE(least.height(), leastHeights[i]) << style.toStdString() << ", font " << fontPercents[i];
        }
}

TEST_F(WorkspaceTest, EverythingCanBeReachedInSmallWindowsAndLargeFonts) {
    for (const QString &style : Styles())
        for (const int percent : fontPercents) {
            StartIn(style, percent);
            for (const QSize size : {QSize(800, 600), QSize(1024, 700)}) {
                SCOPED_TRACE(testing::Message()
                             << style.toStdString() << ", font " << percent << ", width " << size.width());
                Resize(size);
                ExpectMenuMapAndStatusSeen();
                for (const char *name : frames)
                    for (const QWidget *control : Frame(name).findChildren<QWidget *>())
                        if (control->isVisible() && control->focusPolicy() != Qt::NoFocus) {
                            EXPECT_TRUE(CanBeScrolledTo(*control)) << control->objectName().toStdString();
                        }
            }
        }
}

TEST_F(WorkspaceTest, TheFrameOfTheModeIsInView) {
    for (const QString &style : Styles())
        for (const int percent : {100, 150, 200}) {
            StartIn(style, percent);
            Resize({800, 600});
            for (const auto &[entry, frame] : modesAndFrames) {
                SCOPED_TRACE(testing::Message()
                             << style.toStdString() << ", font " << percent << ", " << frame);
                Entry(entry).trigger();
                const QSize view = Scroll().viewport()->size();
                // Of a frame that is larger than the view, the upper left part.
                EXPECT_EQ(Seen(Frame(frame)), QRect(QPoint(), Frame(frame).size().boundedTo(view)));
                Scroll().verticalScrollBar()->setValue(0);
                Resize({801, 600});
                EXPECT_EQ(Seen(Frame(frame)).topLeft(), QPoint()) << "after the window's size has changed";
                Resize({800, 600});
            }
        }
}

TEST_F(WorkspaceTest, UndoBringsTheFrameOfWhatItUndidIntoView) {
    StartWithSample();
    Resize({800, 600});
    Entry("mnu_e_railway").trigger();
    Number("upd_rail_x1").SetNumber(17);
    Entry("mnu_e_target").trigger();
    ASSERT_TRUE(Seen(Frame("fra_railway")).isEmpty());
    Entry("mnu_e_undo").trigger();
    EXPECT_EQ(Seen(Frame("fra_railway")), Frame("fra_railway").rect());
}

TEST_F(WorkspaceTest, TabScrollsToTheFieldThatItEnters) {
    StartWithSample();
    Resize({800, 600});
    QApplication::setActiveWindow(&window());
    Number("upd_view_roadint").setFocus();
    for (int i = 0; i < 12; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const QWidget &field = *QApplication::focusWidget();
        EXPECT_EQ(Seen(field), field.rect()) << field.objectName().toStdString();
    }
}

TEST_F(WorkspaceTest, TheMapIsEnlargedAsFarAsTheWindowAllows) {
    struct Row {
        QSize window;
        int fontPercent;
        int factor;
    };
    for (const QString &style : {QStringLiteral("Fusion"), QStringLiteral("Windows")})
        for (const Row &row : {Row{{800, 600}, 100, 1},
                               {{888, 742}, 100, 1},
                               {{1366, 768}, 100, 1},
                               {{1920, 1020}, 100, 2},
                               {{1920, 1080}, 100, 2},
                               {{1920, 1080}, 150, 2},
                               {{2560, 1440}, 100, 3},
                               {{2560, 1440}, 150, 3},
                               {{3840, 2160}, 100, 5},
                               {{3840, 2160}, 200, 5}}) {
            SCOPED_TRACE(testing::Message() << style.toStdString() << ", " << row.window.width() << " x "
                                            << row.window.height() << ", font " << row.fontPercent);
            StartIn(style, row.fontPercent);
            Resize(row.window);
            EXPECT_EQ(Map().Factor(), row.factor);
            ExpectMenuMapAndStatusSeen();
            const QRect map = InWindow(Map());
            EXPECT_EQ(InWindow(Frame("v_scroll")).left(), map.right() + 3);
            EXPECT_EQ(InWindow(Frame("v_scroll")).height(), map.height());
            EXPECT_EQ(InWindow(Frame("h_scroll")).top(), map.bottom() + 3);
            EXPECT_EQ(InWindow(Frame("h_scroll")).width(), map.width());
        }
}

TEST_F(WorkspaceTest, InALargerWindowTheFramesAndButtonsKeepTheirWidth) {
    StartWithSample();
    std::vector<int> widths;
    for (const char *name : {"cmd_target_search", "cmd_reorder", "fra_control", "fra_railway"})
        widths.push_back(Frame(name).width());
    for (const QSize size : {QSize(888, 742), QSize(1280, 742), QSize(1920, 1080), QSize(2560, 1440)}) {
        Resize(size);
        std::size_t i = 0;
        for (const char *name : {"cmd_target_search", "cmd_reorder", "fra_control", "fra_railway"})
            EXPECT_NEAR(Frame(name).width(), widths[i++], 40) << name << ", " << size.width();
        for (const char *name : frames) {
            EXPECT_EQ(Seen(Frame(name)), Frame(name).rect()) << name << ", " << size.width();
            EXPECT_LE(Frame(name).height(), Frame(name).minimumSizeHint().height() + 64) << name;
        }
    }
}

TEST_F(WorkspaceTest, AFieldKeepsTheFocusWhenItsFrameGoesBesideTheMap) {
    StartIn(QStringLiteral("Fusion"), 150);
    QApplication::setActiveWindow(&window());
    Entry("mnu_e_frontline").trigger();
    Resize({888, 742});
    Number("upd_frnt_x").setFocus();
    const int above = InWindow(Map()).bottom();
    ASSERT_GT(InWindow(Frame("fra_frontline")).top(), above);
    Resize({1920, 1080});
    ASSERT_LT(InWindow(Frame("fra_frontline")).top(), InWindow(Map()).bottom());
    EXPECT_TRUE(Number("upd_frnt_x").hasFocus());
}

}  // namespace
}  // namespace vtr
