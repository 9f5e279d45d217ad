#pragma once

#include <QButtonGroup>
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QScrollArea>
#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "PictureWidget.h"
#include "TileTypes.h"

namespace vtr {

/// Shows the terrain tile under a position, turned as in the game, and lets the user click the exact spot. To
/// view a tile only, leave out SetPosition, MetresX and MetresY.
class frm_precise : public QDialog {
    Q_OBJECT

  public:
    /// tilesFolder holds the tiles' pictures and has no separator at its end.
    explicit frm_precise(std::string tilesFolder, QWidget *parent = nullptr);

    /// The position to show, in metres from the tile's top left corner.
    void SetPosition(std::int16_t xm, std::int16_t ym);
    /// Shows the picture of a tile type. The user can act while it turns. A call during a turn takes effect
    /// after it.
    void ShowTile(std::uint8_t type, Orientation orientation);

    /// The position in metres from the tile's top left corner: after OK the one that the user has chosen,
    /// before it that of SetPosition.
    double MetresX() const { return metres_[0]; }
    double MetresY() const { return metres_[1]; }

    void accept() override;

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;

  private:
    struct Tile {
        std::uint8_t type;
        Orientation orientation;
    };

    QLayout *BuildSide();
    QWidget *BuildTileArea();
    void Draw();
    void SelectControls();
    void ShowPicture(const Picture &picture);
    void Turn();
    void DrawCross();
    QPoint Cross() const;
    std::array<double, 2> FractionAt(QPoint pixel) const;
    void ShowReadOut(const std::array<double, 2> &fraction);
    void MoveCross(int dx, int dy);
    void ScrollToCross();

    std::string tilesFolder_;
    std::array<double, 2> metres_{};
    std::array<double, 2> fraction_{};
    Tile tile_{};
    bool busy_ = false;
    std::optional<Tile> waiting_;
    Picture turned_;  ///< what the tile shows, without the cross

    QListWidget *tiles_;
    QButtonGroup *orientations_;
    PictureWidget *picture_;
    PictureWidget *hidden_;
    QScrollArea *scroll_;
    QLabel *reason_;
    QLabel *advice_;
    std::array<QLabel *, 2> readOut_;
    QLabel *position_;
};

}  // namespace vtr
