#include "frm_precise.h"

#include <QCoreApplication>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QMouseEvent>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>
#include <charconv>
#include <utility>
#include <variant>

#include "Arithmetic.h"
#include "Buttons.h"
#include "GamePosition.h"
#include "PictureRotate.h"
#include "ShowMessage.h"
#include "Text.h"
#include "TileTypes.h"
#include "modPcxReader.h"

namespace vtr {

namespace {

constexpr int emptyTileSize = 256;
constexpr int largestShownSize = 512;
/// Pixels around the tile that count as its edge. Only there can the user click at 4100 metres.
constexpr int edgeWidth = 8;

Picture EmptyTile() {
    return {emptyTileSize, emptyTileSize,
            std::vector<std::uint32_t>(std::size_t{emptyTileSize} * emptyTileSize, 0xFFC0C0C0)};
}

/// A tile's picture, or the reason why there is none and what to do.
struct LoadedTile {
    Picture picture{};
    QString reason{};
    QString advice{};
    std::optional<PcxRefusal> refusal{};  ///< only one that has a message
};

/// Why a file cannot be shown: the words that follow its name.
QString DamageText(const Error &error) {
    switch (error.Kind()) {
        case ErrorKind::FileAccess:
            return QStringLiteral("cannot be read: it may be a folder, or a file that you may not open.");
        case ErrorKind::Overflow:
            return QStringLiteral("has a size that no tile can have: %1.")
                .arg(QString::fromStdString(error.Found()));
        default:
            return QStringLiteral("is damaged: it does not hold a whole picture.");
    }
}

LoadedTile LoadTile(const std::string &folder, int type) {
    if (type >= tileTypeCount)
        return {.reason = QStringLiteral("The game has no tile of type %1, so there is no picture of it: its "
                                         "types are 0 to %2.")
                              .arg(type)
                              .arg(tileTypeCount - 1)};
    const std::string path = TilePicturePath(folder, type);
    const QString file = QString::fromStdString(TilePictureFile(type)) + QLatin1Char(' ');
    const std::string shownFolder = Shortened(folder);
    const QString replaceIt = QStringLiteral("Copy the game's own file over it: %1")
                                  .arg(QString::fromStdString(TilePicturePath(shownFolder, type)));
    try {
        PcxResult result = LoadPcx(path);
        if (auto *const loaded = std::get_if<PcxPicture>(&result))
            return {.picture = std::move(loaded->picture)};
        const PcxRefusal refusal = std::get<PcxRefusal>(result);
        if (refusal.message.empty())
            return {.reason = file + QStringLiteral("is no picture of one or three colour planes."),
                    .advice = replaceIt};
        return {.reason =
                    QString::fromUtf8(refusal.message.data(), static_cast<qsizetype>(refusal.message.size())),
                .advice = replaceIt,
                .refusal = refusal};
    } catch (const Error &error) {
        if (error.Kind() != ErrorKind::FileMissing)
            return {.reason = file + DamageText(error), .advice = replaceIt};
        return {.reason = file + QStringLiteral("is not in the folder of the tiles, %1")
                                     .arg(QString::fromStdString(shownFolder)),
                .advice = QStringLiteral("\"Tiles Folder...\" in the menu \"Project\" sets that folder.")};
    }
}

QString MetresText(double metres) {
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), static_cast<float>(metres)).ptr;
    return QString::fromLatin1(text.data(), end - text.data()) + QStringLiteral(" m");
}

/// Makes the pixels of rectangle red that lie in picture.
void FillRed(Picture &picture, const QRect &rectangle) {
    const QRect inside = rectangle & QRect(0, 0, picture.width, picture.height);
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x)
            picture.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                           static_cast<std::size_t>(x)] = 0xFFFF0000;
}

QLabel *MakeText(const QString &text) {
    auto *const label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    // A long name that cannot be wrapped would make the dialog wider than the screen.
    QSizePolicy policy = label->sizePolicy();
    policy.setHorizontalPolicy(QSizePolicy::Ignored);
    label->setSizePolicy(policy);
    return label;
}

void ShowUnlessEmpty(QLabel &label, const QString &text) {
    label.setText(text);
    label.setVisible(!text.isEmpty());
}

}  // namespace

frm_precise::frm_precise(std::string tilesFolder, QWidget *parent)
    : QDialog(parent),
      tilesFolder_(std::move(tilesFolder)),
      tiles_(new QListWidget),
      orientations_(new QButtonGroup(this)),
      picture_(new PictureWidget(QStringLiteral("pic_tile"))),
      hidden_(new PictureWidget(QStringLiteral("pic_hidden"), this)),
      scroll_(new QScrollArea),
      reason_(MakeText({})),
      advice_(MakeText({})),
      readOut_{new QLabel(QStringLiteral("0.00 m")), new QLabel(QStringLiteral("0.00 m"))},
      position_(new QLabel) {
    setObjectName(QStringLiteral("frm_precise"));
    setWindowTitle(QStringLiteral("Precise Position"));
    hidden_->hide();
    reason_->setObjectName(QStringLiteral("lbl_reason"));
    reason_->hide();
    advice_->setObjectName(QStringLiteral("lbl_advice"));
    advice_->hide();

    auto *const layout = new QGridLayout(this);
    layout->addLayout(BuildSide(), 0, 0);
    layout->addWidget(BuildTileArea(), 0, 1, Qt::AlignTop | Qt::AlignHCenter);
    int row = 1;
    for (QLabel *const text :
         {reason_, advice_,
          MakeText(QStringLiteral("Precise Positions are given in metres from the top left corner "
                                  "of the tile. Tiles are 4100x4100 metres.")),
          MakeText(QStringLiteral("The measurements are based on a tile of 4.1 km \u00D7 4.1 km."))})
        layout->addWidget(text, row++, 0, 1, 2);
    layout->addLayout(OkCancelRow(*this), row, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(0, 1);
    ShowPicture(EmptyTile());
}

QLayout *frm_precise::BuildSide() {
    auto *const tilesLabel = new QLabel(QStringLiteral("Tile Types:"));
    tilesLabel->setObjectName(QStringLiteral("lbl_tiles"));
    tilesLabel->setBuddy(tiles_);
    tiles_->setObjectName(QStringLiteral("lst_tiles"));
    tiles_->setAccessibleName(QStringLiteral("Tile Types"));
    for (int type = 0; type < tileTypeCount; ++type)
        tiles_->addItem(QString::fromStdString(TileListText(type)));
    tiles_->setMinimumWidth(tiles_->sizeHintForColumn(0) + tiles_->verticalScrollBar()->sizeHint().width() +
                            2 * tiles_->frameWidth());
    connect(tiles_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (!busy_ && row >= 0)
            ShowTile(ToByte(row), tile_.orientation);
    });

    auto *const group = new QGroupBox(QStringLiteral("Orientation:"));
    auto *const options = new QGridLayout(group);
    const auto addOption = [&](const QString &name, const QString &caption, Orientation orientation) {
        auto *const option = new QRadioButton(caption);
        option->setObjectName(name);
        const int id = static_cast<int>(orientation);
        orientations_->addButton(option, id);
        options->addWidget(option, id / 2, id % 2);
        connect(option, &QRadioButton::clicked, this, [this, orientation] {
            if (!busy_)
                ShowTile(tile_.type, orientation);
        });
    };
    addOption(QStringLiteral("opt_N"), QStringLiteral("&North"), Orientation::North);
    addOption(QStringLiteral("Opt_E"), QStringLiteral("&East"), Orientation::East);
    addOption(QStringLiteral("Opt_S"), QStringLiteral("&South"), Orientation::South);
    addOption(QStringLiteral("Opt_W"), QStringLiteral("&West"), Orientation::West);

    auto *const metres = new QFormLayout;
    metres->addRow(new QLabel(QStringLiteral("Click X/Y for SUPER Accurate:")));
    const std::array<QString, 2> names{QStringLiteral("X"), QStringLiteral("Y")};
    for (std::size_t axis = 0; axis < readOut_.size(); ++axis) {
        readOut_[axis]->setObjectName(QStringLiteral("lbl_") + names[axis].toLower());
        metres->addRow(names[axis] + QStringLiteral(":"), readOut_[axis]);
    }
    position_->setObjectName(QStringLiteral("lbl_position"));
    position_->setToolTip(QStringLiteral("The position that OK replaces, in whole metres"));
    position_->hide();
    metres->addRow(position_);

    auto *const side = new QVBoxLayout;
    side->addWidget(tilesLabel);
    side->addWidget(tiles_, 1);
    side->addWidget(group);
    side->addLayout(metres);
    return side;
}

QWidget *frm_precise::BuildTileArea() {
    auto *const around = new QWidget;
    around->setMouseTracking(true);
    auto *const margin = new QVBoxLayout(around);
    margin->setContentsMargins(edgeWidth, edgeWidth, edgeWidth, edgeWidth);
    margin->setSizeConstraint(QLayout::SetFixedSize);
    margin->addWidget(picture_);
    picture_->setAccessibleName(QStringLiteral("Tile"));
    picture_->setToolTip(
        QStringLiteral("Click the exact position, 0 to 4100 metres from the top left corner, or move the "
                       "cross with the arrow keys"));
    picture_->setFocusPolicy(Qt::StrongFocus);
    connect(picture_, &PictureWidget::NudgeRequested, this, &frm_precise::MoveCross);
    picture_->setCursor(Qt::CrossCursor);
    around->installEventFilter(this);
    picture_->installEventFilter(this);
    scroll_->setWidget(around);
    scroll_->setFocusPolicy(Qt::NoFocus);
    return scroll_;
}

void frm_precise::SetPosition(std::int16_t xm, std::int16_t ym) {
    metres_ = {static_cast<double>(xm), static_cast<double>(ym)};
    fraction_ = {metres_[0] / tileMetres, metres_[1] / tileMetres};
    position_->setText(QStringLiteral("Stored: %1 m, %2 m").arg(xm).arg(ym));
    position_->show();
}

void frm_precise::ShowTile(std::uint8_t type, Orientation orientation) {
    waiting_ = {type, orientation};
    if (busy_)
        return;
    const QScopedValueRollback busy(busy_, true);
    while (const auto next = std::exchange(waiting_, std::nullopt)) {
        tile_ = *next;
        Draw();
    }
}

void frm_precise::Draw() {
    SelectControls();
    const LoadedTile loaded = LoadTile(tilesFolder_, tile_.type);
    ShowUnlessEmpty(*reason_, loaded.reason);
    ShowUnlessEmpty(*advice_, loaded.advice);
    hidden_->SetPicture(loaded.picture);
    if (loaded.picture.Empty()) {
        ShowPicture(EmptyTile());
    } else {
        ShowPicture(loaded.picture);
        if (tile_.orientation != Orientation::North)
            Turn();
    }
    turned_ = picture_->Shown();
    DrawCross();
    ScrollToCross();
    // Clicks while the tile was turning were ignored but have moved the marks.
    SelectControls();
    if (loaded.refusal)
        ShowMessage(isVisible() ? this : parentWidget(),
                    loaded.refusal->icon == PcxIcon::Exclamation ? QMessageBox::Warning : QMessageBox::NoIcon,
                    loaded.reason);
}

void frm_precise::SelectControls() {
    if (tile_.type < tileTypeCount)
        tiles_->setCurrentRow(tile_.type);
    else
        tiles_->setCurrentIndex({});  // after setCurrentRow(-1) the focus would choose a row
    orientations_->button(static_cast<int>(tile_.orientation))->setChecked(true);
}

void frm_precise::ShowPicture(const Picture &picture) {
    const bool resized =
        picture.width != picture_->Shown().width || picture.height != picture_->Shown().height;
    picture_->SetPicture(picture);
    if (!resized)
        return;
    const int frame = 2 * (edgeWidth + scroll_->frameWidth());
    const int besides =
        picture.height > largestShownSize ? scroll_->verticalScrollBar()->sizeHint().width() : 0;
    const int below =
        picture.width > largestShownSize ? scroll_->horizontalScrollBar()->sizeHint().height() : 0;
    scroll_->setFixedSize(std::min(picture.width, largestShownSize) + frame + besides,
                          std::min(picture.height, largestShownSize) + frame + below);
    adjustSize();
}

void frm_precise::Turn() {
    // Before the dialog is open the user's input would go to the window behind it.
    const auto events = isVisible() ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents;
    const double angle = AngleOfHalfTurns(HalfTurnsOf(tile_.orientation));
    RotatePicture(hidden_->Shown(), picture_->Surface(), angle, [this, events] {
        picture_->update();
        QCoreApplication::processEvents(events);
    });
}

void frm_precise::DrawCross() {
    Picture &surface = picture_->Surface();
    surface = turned_;
    const QPoint at = Cross();
    FillRed(surface, QRect(at - QPoint(0, 5), at + QPoint(0, 6)));
    FillRed(surface, QRect(at - QPoint(5, 0), at + QPoint(6, 0)));
    picture_->update();
    picture_->setAccessibleDescription(QStringLiteral("The cross is at %1 m, %2 m")
                                           .arg(RoundToInt32(fraction_[0] * tileMetres))
                                           .arg(RoundToInt32(fraction_[1] * tileMetres)));
}

QPoint frm_precise::Cross() const {
    const Picture &shown = picture_->Shown();
    return {RoundToInt32(shown.width * fraction_[0]), RoundToInt32(shown.height * fraction_[1])};
}

/// The position in the tile of a pixel of its picture. A pixel outside counts as one at the edge.
std::array<double, 2> frm_precise::FractionAt(QPoint pixel) const {
    const QSize size = picture_->size();
    return {std::clamp(pixel.x(), 0, size.width()) / double(size.width()),
            std::clamp(pixel.y(), 0, size.height()) / double(size.height())};
}

void frm_precise::ShowReadOut(const std::array<double, 2> &fraction) {
    for (std::size_t axis = 0; axis < fraction.size(); ++axis)
        readOut_[axis]->setText(MetresText(fraction[axis] * tileMetres));
}

void frm_precise::MoveCross(int dx, int dy) {
    const std::array<double, 2> to = FractionAt(Cross() + QPoint(dx, dy));
    fraction_[dx != 0 ? 0 : 1] = to[dx != 0 ? 0 : 1];
    ShowReadOut(fraction_);
    if (busy_)
        return;  // the cross is drawn when the tile has turned
    DrawCross();
    ScrollToCross();
}

void frm_precise::ScrollToCross() {
    if (!isVisible() || picture_->visibleRegion().contains(Cross()))
        return;
    QWidget *const around = picture_->parentWidget();
    around->layout()->activate();  // the picture may have a new size
    const QPoint at = picture_->mapTo(around, Cross());
    scroll_->ensureVisible(at.x(), at.y());
}

void frm_precise::showEvent(QShowEvent *event) {
    QDialog::showEvent(event);
    ScrollToCross();
}

bool frm_precise::eventFilter(QObject *watched, QEvent *event) {
    if (watched == picture_ && (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut))
        picture_->parentWidget()->setBackgroundRole(event->type() == QEvent::FocusIn ? QPalette::Highlight
                                                                                     : QPalette::NoRole);
    const bool released = event->type() == QEvent::MouseButtonRelease;
    if (!released && event->type() != QEvent::MouseMove)
        return QDialog::eventFilter(watched, event);
    const std::array<double, 2> fraction = FractionAt(
        picture_->mapFrom(this, qobject_cast<QWidget *>(watched)->mapTo(
                                    this, static_cast<const QMouseEvent *>(event)->position().toPoint())));
    ShowReadOut(fraction);
    if (released) {
        fraction_ = fraction;
        ShowTile(tile_.type, tile_.orientation);
    }
    return true;
}

void frm_precise::accept() {
    metres_ = {fraction_[0] * tileMetres, fraction_[1] * tileMetres};
    QDialog::accept();
}

}  // namespace vtr
