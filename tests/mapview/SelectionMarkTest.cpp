#include <array>
#include <cmath>

#include "MapScene.h"
#include "SelectionMark.h"
#include "ViewAt.h"

namespace vtr {
namespace {

std::array<std::pair<int, int>, 4> PlacesOf(const SelectionMark::Corners &corners) {
    return {{{corners.left, corners.top},
             {corners.right, corners.top},
             {corners.left, corners.bottom},
             {corners.right, corners.bottom}}};
}

bool IsInView(int x, int y) {
    return x >= 0 && x < mapWidth && y >= 0 && y < mapHeight;
}

TEST(SelectionMark, FourCornersStandAroundTheMiddleOfTheMapPixel) {
    EXPECT_EQ(MarkOf(ViewAt(1, 0, 0), 100, 50).corners, (SelectionMark::Corners{93, 43, 107, 57, 3}));
    EXPECT_EQ(MarkOf(ViewAt(4, 20, 10), 100, 50).corners, (SelectionMark::Corners{306, 146, 337, 177, 6}));
}

TEST(SelectionMark, AtEveryZoomAndPlaceInViewThereIsACornerAndNoArrow) {
    for (int zoom = 1; zoom <= 100; ++zoom) {
        const int columns = 640 / zoom;
        const int rows = 320 / zoom;
        for (int y = 0; y < rows; y += std::max(1, rows / 16))
            for (int x = 0; x < columns; x += std::max(1, columns / 16)) {
                const SelectionMark mark = MarkOf(ViewAt(zoom, 0, 0), x, y);
                ASSERT_TRUE(mark.corners && !mark.arrow) << x << "," << y << " at " << zoom;
                ASSERT_TRUE(std::ranges::any_of(
                    PlacesOf(*mark.corners),
                    [](const auto &place) { return IsInView(place.first, place.second); }))
                    << x << "," << y << " at " << zoom;
            }
    }
}

TEST(SelectionMark, TheCornersLieOnNoPixelOfTheTargetAndItsRing) {
    for (int zoom = 1; zoom <= 100; ++zoom) {
        MapScene scene;
        scene.display.mnu_v_targets = true;
        scene.Show(zoom, zoom == 1 ? 0 : 100, zoom == 1 ? 0 : 50);
        const int column = zoom == 1 ? 320 : 100 + 320 / zoom;
        const int row = zoom == 1 ? 160 : 50 + 160 / zoom;
        scene.SetTarget(0, column, row);
        scene.Redraw(true);
        const auto corners = MarkOf(scene.view, column, row).corners;
        ASSERT_TRUE(corners);
        for (const auto &[x, y] : PlacesOf(*corners)) {
            const int inwardsX = x == corners->left ? 1 : -1;
            const int inwardsY = y == corners->top ? 1 : -1;
            // Each corner is drawn two pixels thick.
            for (int along = 0; along < corners->arm; ++along)
                for (const auto &[dx, dy] :
                     {std::pair(along, 0), std::pair(along, 1), std::pair(0, along), std::pair(1, along)})
                    ASSERT_TRUE(!IsInView(x + inwardsX * dx, y + inwardsY * dy) ||
                                scene.At(x + inwardsX * dx, y + inwardsY * dy) == MapScene::ground)
                        << x << "," << y << " at " << zoom;
        }
    }
}

TEST(SelectionMark, AnArrowAtTheEdgePointsToAnItemOutOfView) {
    const MapView view = ViewAt(4, 200, 100);
    const double diagonal = std::sqrt(0.5);
    const auto arrowTo = [&view](int x, int y) {
        const SelectionMark mark = MarkOf(view, x, y);
        EXPECT_FALSE(mark.corners);
        return mark.arrow.value_or(SelectionMark::Arrow{});
    };
    // The middle of the viewport lies between the map pixels 279 and 280, 139 and 140.
    const SelectionMark::Arrow left = arrowTo(0, 139);
    EXPECT_NEAR(left.tipX, 4, 1e-9);
    EXPECT_NEAR(left.tipY, 160, 1);
    EXPECT_NEAR(left.directionX, -1, 0.01);
    const SelectionMark::Arrow below = arrowTo(280 + 110, 140 + 110);
    EXPECT_NEAR(below.tipX, 320 + 156, 1e-9);
    EXPECT_NEAR(below.tipY, 316, 1e-9);
    EXPECT_NEAR(below.directionX, diagonal, 1e-9);
    EXPECT_NEAR(below.directionY, diagonal, 1e-9);
}

TEST(SelectionMark, TheArrowsTipIsInViewForEveryItemOutOfIt) {
    for (const int zoom : {2, 3, 50, 100})
        for (int y = 0; y < mapHeight; y += 3)
            for (int x = 0; x < mapWidth; x += 3) {
                const auto arrow = MarkOf(ViewAt(zoom, 300, 150), x, y).arrow;
                if (!arrow)
                    continue;
                ASSERT_TRUE(arrow->tipX > 3.99 && arrow->tipX < 636.01) << x << "," << y;
                ASSERT_TRUE(arrow->tipY > 3.99 && arrow->tipY < 316.01) << x << "," << y;
                ASSERT_NEAR(std::hypot(arrow->directionX, arrow->directionY), 1, 1e-9);
            }
}

TEST(SelectionMark, NothingBesideTheMapIsMarkedNorAnythingBeforeTheFirstLoad) {
    for (const auto &[x, y] : {std::pair(-1, 5), {640, 5}, {5, -1}, {5, 320}, {160, 1760}}) {
        EXPECT_EQ(MarkOf(ViewAt(1, 0, 0), x, y), SelectionMark{}) << x << "," << y;
        EXPECT_EQ(MarkOf(ViewAt(8, 0, 0), x, y), SelectionMark{}) << x << "," << y;
    }
    EXPECT_EQ(MarkOf(ViewAt(0, 0, 0), 5, 5), SelectionMark{});
}

}  // namespace
}  // namespace vtr
