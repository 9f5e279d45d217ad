#include <QScrollBar>
#include <array>

#include "EditorWindow.h"
#include "MapFrame.h"

namespace vtr {
namespace {

/// The window sizes at which the map is enlarged by 1, 2 and 3.
constexpr std::array windowSizes{QSize(888, 742), QSize(1920, 1080), QSize(2560, 1440)};

/// These tests run at whatever pixel ratio the display has: the build runs them at several.
class EnlargedMapTest : public EditorWindow {
  protected:
    void SetUp() override { StartWithSample(); }
    MapSurface &Map() { return Find<MapSurface>(window(), QStringLiteral("Img_Map")); }
    void EnlargeTo(int factor) {
        window().resize(windowSizes[static_cast<std::size_t>(factor - 1)]);
        QCoreApplication::processEvents();
        ASSERT_EQ(Map().Factor(), factor);
        ASSERT_EQ(Map().size(), QSize(640, 320) * factor);
    }
    void ZoomTo(int zoom) {
        Entry("mnu_m_z_100").trigger();
        for (int i = 1; i < zoom; ++i)
            Entry("mnu_m_z_in").trigger();
    }
    /// Which pixel of the surface each pixel of the display shows, by its index; -1 beside the map.
    QImage ShownSurfacePixels() {
        std::vector<std::uint32_t> &pixels = Map().Surface().pixels;
        const auto before = pixels;
        for (std::uint32_t i = 0; i < pixels.size(); ++i)
            pixels[i] = 0xFF800000U + i;
        const QImage shown = window().grab().toImage().convertToFormat(QImage::Format_RGB32);
        pixels = before;
        return shown;
    }
    /// The display's pixels that show map pixel (x, y).
    QRect Display(const QImage &shown, int x, int y) {
        const MapView &view = session->view;
        const QRect inView((x - view.h_scroll.Value) * view.MapZoom, (y - view.v_scroll.Value) * view.MapZoom,
                           view.MapZoom, view.MapZoom);
        QRect area;
        const qreal ratio = shown.devicePixelRatio();
        const QPoint corner = Map().mapTo(&window(), QPoint());
        // Only the neighbourhood: the whole display has millions of pixels.
        const qreal scale = ratio * Map().Factor();
        const int left = static_cast<int>(corner.x() * ratio + inView.left() * scale) - 4;
        const int top = static_cast<int>(corner.y() * ratio + inView.top() * scale) - 4;
        const int size = static_cast<int>(view.MapZoom * scale) + 8;
        for (int row = top; row < top + size; ++row)
            for (int column = left; column < left + size; ++column) {
                const int index = static_cast<int>(shown.pixel(column, row) - 0xFF800000U);
                if (index >= 0 && index < 640 * 320 && inView.contains(index % 640, index / 640))
                    area |= QRect(column, row, 1, 1);
            }
        return area;
    }
    /// A click on a pixel of the display, as the system tells of it.
    void Click(const QImage &shown, QPoint pixel, Qt::KeyboardModifiers keys) {
        const QPointF at = QPointF(pixel) / shown.devicePixelRatio();
        QWindow *const handle = window().windowHandle();
        const QPointF global = at + handle->position();
        qt_handleMouseEvent(handle, at, global, Qt::LeftButton, Qt::LeftButton, QEvent::MouseButtonPress,
                            keys, 0);
        qt_handleMouseEvent(handle, at, global, Qt::NoButton, Qt::LeftButton, QEvent::MouseButtonRelease,
                            keys, 0);
    }
    TargetRecord &Target(std::size_t target) { return session->campaign.TargetTable[target]; }
    /// Clicks on the corners of the map pixel select and place the target, and clicks beside them do not.
    void ExpectCornersHit(int x, int y) {
        const QImage shown = ShownSurfacePixels();
        const QRect corners = Display(shown, x, y);
        const QRect around = corners.adjusted(-1, -1, 1, 1);
        const auto cornersOf = [](const QRect &area) {
            return std::array{area.topLeft(), area.topRight(), area.bottomLeft(), area.bottomRight()};
        };
        for (const QPoint corner : cornersOf(corners)) {
            SCOPED_TRACE(testing::Message() << "display " << corner.x() << ", " << corner.y());
            Target(5).x = static_cast<std::int16_t>(x);
            Target(5).y = static_cast<std::int16_t>(y);
            Number("upd_tar_code").SetNumber(20);
            Click(shown, corner, Qt::NoModifier);
            ASSERT_EQ(Number("upd_tar_code").value(), 5);
            Number("upd_tar_x").SetNumber(100);
            Number("upd_tar_y").SetNumber(50);
            Click(shown, corner, Qt::ShiftModifier);
            EXPECT_EQ(Target(5).x, x);
            EXPECT_EQ(Target(5).y, y);
        }
        for (const QPoint corner : cornersOf(around)) {
            Number("upd_tar_code").SetNumber(20);
            Click(shown, corner, Qt::NoModifier);
            EXPECT_EQ(Number("upd_tar_code").value(), 20) << corner.x() << ", " << corner.y();
        }
    }
};

TEST_F(EnlargedMapTest, AClickOnEachCornerOfAMapPixelSelectsAndPlacesThatPixel) {
    ASSERT_EQ(QString::number(window().devicePixelRatioF()),
              qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1")));
    for (auto &target : session->campaign.TargetTable)
        target.x = target.y = 0;
    for (const int factor : {1, 2, 3}) {
        EnlargeTo(factor);
        for (const int zoom : {1, 2, 7, 100}) {
            ZoomTo(zoom);
            for (const QPoint pixel :
                 {QPoint(318, 158), QPoint(319, 159), QPoint(320, 160), QPoint(321, 161)}) {
                SCOPED_TRACE(testing::Message() << "factor " << factor << ", zoom " << zoom << ", map pixel "
                                                << pixel.x() << ", " << pixel.y());
                if (zoom < 100 || pixel.x() < 321)  // at 10000% the view ends at row 161
                    ExpectCornersHit(pixel.x(), pixel.y());
            }
        }
    }
}

TEST_F(EnlargedMapTest, ThePositionIsThatOfTheMapPixelAtEveryEnlargement) {
    for (const int factor : {1, 2, 3}) {
        EnlargeTo(factor);
        Entry("mnu_m_z_100").trigger();
        const QImage shown = ShownSurfacePixels();
        const QPoint corner = Display(shown, 312, 97).bottomRight();
        const QPointF at = QPointF(corner) / shown.devicePixelRatio();
        qt_handleMouseEvent(window().windowHandle(), at, at + window().windowHandle()->position(),
                            Qt::NoButton, Qt::NoButton, QEvent::MouseMove, Qt::NoModifier, 0);
        EXPECT_EQ(PanelText("xypos"), "( 312,  97)") << factor;
    }
}

TEST_F(EnlargedMapTest, TheViewAndTheSurfaceAreTheSameAtEveryEnlargement) {
    struct Step {
        MapView view;
        std::vector<std::uint32_t> pixels;
        std::vector<int> bars;
        QRect area;
        bool operator==(const Step &) const = default;
    };
    std::vector<Step> first;
    for (const int factor : {1, 2, 3}) {
        if (factor > 1) {
            EndAndMakeAnew();
            StartWithSample();
        }
        EnlargeTo(factor);
        std::vector<Step> steps;
        for (int zoom = 1; zoom <= 100; ++zoom) {
            Step step;
            for (const char *name : {"h_scroll", "v_scroll"}) {
                auto &bar = Find<QScrollBar>(window(), QLatin1String(name));
                bar.setValue(bar.value() + zoom % 7 - 2);
                step.bars.insert(step.bars.end(), {bar.value(), bar.maximum(), bar.pageStep()});
            }
            window().Redraw();
            step.view = session->view;
            step.pixels = Map().Surface().pixels;
            step.area = Find<QWidget>(window(), QStringLiteral("shp_area")).geometry();
            steps.push_back(std::move(step));
            Entry("mnu_m_z_in").trigger();
        }
        if (factor == 1)
            first = std::move(steps);
        else
            for (std::size_t i = 0; i < first.size(); ++i)
                EXPECT_TRUE(steps[i] == first[i]) << "factor " << factor << ", zoom " << i + 1;
    }
}

TEST_F(EnlargedMapTest, TheMapIsPaintedPixelByPixelInWholeBlocks) {
    for (const int factor : {1, 2, 3}) {
        EnlargeTo(factor);
        const QImage shown = Map().grab().toImage().convertToFormat(QImage::Format_RGB32);
        const std::vector<std::uint32_t> &pixels = Map().Surface().pixels;
        ASSERT_EQ(shown.size(), QSize(640, 320) * factor * window().devicePixelRatioF());
        const qreal scale = factor * window().devicePixelRatioF();
        for (int y = 0; y < 320; ++y)
            for (int x = 0; x < 640; ++x)
                ASSERT_EQ(
                    shown.pixel(static_cast<int>((x + 0.5) * scale), static_cast<int>((y + 0.5) * scale)),
                    pixels[static_cast<std::size_t>(y * 640 + x)])
                    << x << ", " << y << " at a factor of " << factor;
    }
}

}  // namespace
}  // namespace vtr
