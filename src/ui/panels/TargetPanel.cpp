#include "TargetPanel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QValidator>
#include <functional>

#include "Arithmetic.h"
#include "EditCampaign.h"
#include "GamePosition.h"
#include "GameText.h"
#include "GridData.h"
#include "ItemNotes.h"
#include "MapView.h"
#include "NumberField.h"
#include "QuietLine.h"
#include "UndoKeys.h"

namespace vtr {

namespace {

/// Accepts a text without an objection. Otherwise refuses it and tells the objection.
class ObjectionValidator : public QValidator {
  public:
    using Objection = std::function<QString(const QString &)>;

    ObjectionValidator(QObject *parent, Objection objection, std::function<void(const QString &)> tell)
        : QValidator(parent), objection_(std::move(objection)), tell_(std::move(tell)) {}

    State validate(QString &text, int & /*position*/) const override {
        const QString objection = objection_(text);
        if (objection.isEmpty())
            return Acceptable;
        tell_(objection);
        return Invalid;
    }

  private:
    Objection objection_;
    std::function<void(const QString &)> tell_;
};

/// Undoes and redoes its own typing. When there is none, it leaves the keys to the program.
class NameEdit : public QLineEdit {
  public:
    using QLineEdit::QLineEdit;

    bool event(QEvent *event) override {
        if (event->type() == QEvent::ShortcutOverride) {
            const auto &key = *static_cast<QKeyEvent *>(event);
            if ((IsUndoKey(key) && !isUndoAvailable()) || (IsRedoKey(key) && !isRedoAvailable())) {
                event->ignore();
                return true;
            }
        }
        return QLineEdit::event(event);
    }

    bool IsTakingBack() const { return isTakingBack_; }

  protected:
    void keyPressEvent(QKeyEvent *event) override {
        const QScopedValueRollback taking(isTakingBack_, IsUndoKey(*event));
        QLineEdit::keyPressEvent(event);
    }

  private:
    bool isTakingBack_ = false;
};

/// Why the target cannot get the name; empty when it can.
QString ObjectionToName(const Campaign &campaign, int target, const QString &name) {
    const std::optional<std::string> bytes = GameTextOf(name);
    if (!bytes || bytes->find('\0') != std::string::npos)
        return QStringLiteral("The game's names cannot hold this character.");
    if (!TargetNameFits(campaign, target, *bytes))
        return QStringLiteral("The names file is full: shorten another name.");
    return {};
}

}  // namespace

TargetPanel::TargetPanel(Session &session, QWidget *parent)
    : Panel(QStringLiteral("fra_target"), QStringLiteral("Target"), session, parent) {
    Build();
    Bind();
    Refresh();
}

void TargetPanel::Build() {
    gridFit_ = new QLabel(this);
    gridFit_->setObjectName(QStringLiteral("lbl_grid"));
    gridFit_->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    gridFit_->setFocusPolicy(Qt::NoFocus);
    gridFit_->setAutoFillBackground(true);  // as the note beside it
    gridFit_->setToolTip(
        QStringLiteral("Whether the grid data file can be built from the targets as they are"));
    TitleRow().addWidget(MakeNote("lbl_tar_note", 1), 1);
    TitleRow().addWidget(gridFit_);
    code_ = AddSelector({"tar_code", "&Number:", "Target number", "", targetTotal - 1},
                        session_.selection.target, 0, 0);
    code_->CutFraction();
    name_ = new NameEdit(this);
    name_->setObjectName(QStringLiteral("txt_tar_name"));
    name_->setAccessibleName(QStringLiteral("Target name"));
    name_->setToolTip(QStringLiteral("Target name; targets that share a name are renamed together"));
    Grid().addWidget(name_, 0, 2, 1, 4);
    find_ = MakeButton(QStringLiteral("cmd_target_search"), QStringLiteral("&Find..."),
                       QStringLiteral("Find a target by its name"));
    Grid().addWidget(find_, 0, 6);

    x_ = AddField({"tar_x", "&X:", "Target column", "map pixels", mapWidth - 1}, 1, 0);
    xMetres_ =
        AddField({"tar_xm", "+ m:", "Target metres from the left edge of its tile", "m", tileMetres}, 1, 2);
    count_ = AddField({"tar_numtargets", "&Objects:", "Number of target objects here", "", 64}, 1, 4);
    isAirfield_ = new QCheckBox(QStringLiteral("&Airfield"), this);
    isAirfield_->setObjectName(QStringLiteral("chk_tar_airfield"));
    isAirfield_->setToolTip(QStringLiteral("This target is an airfield"));
    Grid().addWidget(isAirfield_, 1, 6);

    y_ = AddField({"tar_y", "&Y:", "Target row", "map pixels", mapHeight - 1}, 2, 0);
    yMetres_ =
        AddField({"tar_ym", "+ m:", "Target metres from the top edge of its tile", "m", tileMetres}, 2, 2);
    precise_ = MakeButton(QStringLiteral("cmd_tar_precise"), QStringLiteral("Pre&cise..."),
                          QStringLiteral("Place the target exactly within its tile"));
    Grid().addWidget(precise_, 2, 4, 1, 2);
    tile_ = MakeButton(QStringLiteral("cmd_tar_tile"), QStringLiteral("View &Tile..."),
                       QStringLiteral("Look at the terrain tile under the target"));
    Grid().addWidget(tile_, 2, 6);

    reorder_ = MakeButton(
        QStringLiteral("cmd_reorder"), QStringLiteral("Reorder Targets for GRIDDATA.DAT"),
        QStringLiteral("Sort the targets by position, so that the grid data file can be built from them"));
    Grid().addWidget(reorder_, 3, 0, 1, 7);
    Grid().setColumnStretch(6, 1);
}

void TargetPanel::Bind() {
    gridTimer_.setObjectName(QStringLiteral("tmr_grid"));
    gridTimer_.setSingleShot(true);
    gridTimer_.setInterval(300);
    connect(&gridTimer_, &QTimer::timeout, this, &TargetPanel::ShowGrid);
    connect(gridFit_, &QLabel::linkActivated, this, [this] {
        if (misfit_)
            Select(*misfit_);
    });
    connect(code_, &NumberField::NumberChanged, this, &TargetPanel::Changed);
    const auto store = [this](NumberField *field, const char *what, auto set, auto... of) {
        connect(field, &NumberField::NumberChanged, this, [this, field, what, set, of...](int number) {
            session_.Do(
                what + std::to_string(Target()), {RowOf(Table::Targets, Target())},
                [&](Campaign &campaign) { set(campaign, Target(), of..., number); },
                field->objectName().toStdString());
            Q_EMIT Changed();
        });
    };
    store(x_, "Move Target ", SetTargetPixel, Axis::X);
    store(y_, "Move Target ", SetTargetPixel, Axis::Y);
    store(xMetres_, "Move Target ", SetTargetFineOffset, Axis::X);
    store(yMetres_, "Move Target ", SetTargetFineOffset, Axis::Y);
    store(count_, "Change Objects of Target ", SetTargetCount);
    name_->setValidator(new ObjectionValidator(
        name_, [this](const QString &name) { return ObjectionToName(campaign_, Target(), name); },
        [this](const QString &objection) { Q_EMIT StatusMessage(objection); }));
    connect(name_, &QLineEdit::textChanged, this, &TargetPanel::StoreName);
    connect(isAirfield_, &QCheckBox::toggled, this, &TargetPanel::StoreIsAirfield);
    connect(find_, &QPushButton::clicked, this, &TargetPanel::FindRequested);
    connect(precise_, &QPushButton::clicked, this, &TargetPanel::PreciseRequested);
    connect(tile_, &QPushButton::clicked, this, &TargetPanel::TileRequested);
    connect(reorder_, &QPushButton::clicked, this, &TargetPanel::ReorderRequested);
}

void TargetPanel::Refresh() {
    const QSignalBlocker nameBlocker(name_);
    const QSignalBlocker checkBlocker(isAirfield_);
    const auto index = static_cast<std::size_t>(Target());
    const TargetRecord &target = campaign_.TargetTable[index];
    x_->ShowRecordValue(target.x);
    y_->ShowRecordValue(target.y);
    xMetres_->ShowRecordValue(RoundToInt32(campaign_.TargetTable[index].fineOffsets[0]));
    yMetres_->ShowRecordValue(RoundToInt32(campaign_.TargetTable[index].fineOffsets[1]));
    if (const QString name = ShownText(target.name); name != name_->text()) {
        name_->setText(name);
        name_->setCursorPosition(0);
    }
    count_->ShowRecordValue(target.count);
    isAirfield_->setChecked(target.airfield_mark != 0);
    TellAirfield();
}

std::string TargetPanel::Note() const {
    return NoteOfTarget(campaign_, Target());
}

void TargetPanel::ShowGrid() {
    misfit_.reset();
    if (!campaign_.ProjectLoaded)
        return;
    QString note;
    try {
        misfit_ = BuildGrid(campaign_.TargetTable).misfit;
        note = QString::fromStdString(NoteOfGrid(misfit_));
    } catch (const Error &) {  // nobody has asked for a grid: there is nothing to report
        note = QString::fromUtf8(noteOfFullCell);
    }
    gridFit_->setText(misfit_ ? QStringLiteral("<a href=\"#\">%1</a>").arg(note) : note);
    gridFit_->setAccessibleName(note);
    gridFit_->setFocusPolicy(misfit_ ? Qt::StrongFocus : Qt::NoFocus);
}

void TargetPanel::Renumber(int target) {
    session_.selection.target = target;
    code_->ShowRecordValue(target);
}

void TargetPanel::StoreName() {
    if (!name_->hasAcceptableInput()) {
        Refresh();
        return;
    }
    if (static_cast<const NameEdit *>(name_)->IsTakingBack())
        session_.history.MergeNext();
    session_.Do(
        "Rename Target " + std::to_string(Target()), RowsOfTargetName(campaign_, Target()),
        [this](Campaign &campaign) { RenameTarget(campaign, Target(), GameTextOf(name_->text()).value()); },
        name_->objectName().toStdString());
    Q_EMIT Changed();
}

void TargetPanel::StoreIsAirfield() {
    const int target = Target();
    session_.Do("Change Airfield Box of Target " + std::to_string(target), {RowOf(Table::Targets, target)},
                [&](Campaign &campaign) { SetTargetIsAirfield(campaign, target, isAirfield_->isChecked()); });
    // The file stores only the reference. A reference of 0 is loaded as "no airfield".
    if (const auto row = static_cast<std::size_t>(target); isAirfield_->isChecked() &&
                                                           row != targetThatIsAlwaysAnAirfield &&
                                                           campaign_.TargetTable[row].airfield_ref == 0)
        Q_EMIT StatusMessage(QStringLiteral(
            "This tick will not be saved: the target has no airfield record of its own (its number is 0)."));
    TellAirfield();
    Q_EMIT Changed();
}

void TargetPanel::TellAirfield() {
    const TargetRecord &target = campaign_.TargetTable[static_cast<std::size_t>(Target())];
    Q_EMIT AirfieldShown(isAirfield_->isChecked() ? std::optional<int>(target.airfield_ref) : std::nullopt);
}

}  // namespace vtr
