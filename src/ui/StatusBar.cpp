#include "StatusBar.h"

#include <QApplication>
#include <QEvent>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <algorithm>

#include "EditedFilesLabel.h"
#include "ProgramVersion.h"

namespace vtr {

namespace {

/// The project's panel is at most as wide as so many average letters: the messages beside it need room too.
constexpr int projectWidth = 32;

/// A panel that shows as much of its text as it has room for.
class ElidingPanel : public QToolButton {
  public:
    explicit ElidingPanel(QWidget *parent) : QToolButton(parent) {
        setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    }

    /// A few letters. Where the window is narrow for its font, the panels share what room there is.
    QSize minimumSizeHint() const override {
        return {std::min(sizeHint().width(), 8 * fontMetrics().averageCharWidth()), sizeHint().height()};
    }

  protected:
    void paintEvent(QPaintEvent *) override {
        QStyleOptionToolButton option;
        initStyleOption(&option);
        const int room = rect().width() - 2 * style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option);
        option.text = fontMetrics().elidedText(option.text, Qt::ElideRight, room, Qt::TextShowMnemonic);
        QStylePainter(this).drawComplexControl(QStyle::CC_ToolButton, option);
    }
};

/// Keeps panel as wide as it is with widest as its text, so that what stands beside it never moves.
void FixWidth(QToolButton &panel, const QString &widest) {
    const QString text = panel.text();
    panel.setText(widest);
    panel.setFixedWidth(panel.sizeHint().width());
    panel.setText(text);
}

}  // namespace

StatusBar::StatusBar(QWidget *parent)
    : QStatusBar(parent),
      lbl_edited(new EditedFilesLabel(this)),
      project(AddPanel("project", QStringLiteral("  NO PROJECT LOADED"), "Project Name")),
      curredit(
          AddPanel("curredit", QStringLiteral("  TARGETS  "), "Currently Editing.  Click to toggle modes.")),
      zoom(AddPanel("zoom", QStringLiteral("100%"), "Map Zoom")),
      xypos(AddPanel("xypos", QStringLiteral("(0, 0)"), "Current X,Y Position")),
      version(AddPanel("version", programTitle + QStringLiteral(" v") + ShortVersionText(), "")) {
    setObjectName(QStringLiteral("sb_status"));
    setSizeGripEnabled(false);
    addWidget(lbl_edited, 1);
    // A message that has no room can be read there.
    connect(this, &QStatusBar::messageChanged, this, &QWidget::setToolTip);
    project->setMaximumWidth(projectWidth * fontMetrics().averageCharWidth());
    FixWidth(*xypos, QStringLiteral("(-999, -999)"));
    curredit->setFocusPolicy(Qt::TabFocus);
    version->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget * /*left*/, const QWidget *entered) {
        if (entered != nullptr && currentMessage() == objection_)
            clearMessage();
    });
}

void StatusBar::ShowObjection(const QString &objection) {
    objection_ = objection;
    showMessage(objection, 5000);
}

QToolButton *StatusBar::AddPanel(const char *key, const QString &text, const char *toolTip) {
    auto *panel = new ElidingPanel(this);
    panel->setObjectName(QLatin1String(key));
    panel->setAutoRaise(true);
    panel->setFocusPolicy(Qt::NoFocus);
    panel->setText(text);
    panel->setToolTip(QLatin1String(toolTip));
    panel->setAccessibleDescription(QLatin1String(toolTip));
    addPermanentWidget(panel);
    return panel;
}

bool StatusBar::eventFilter(QObject *watched, QEvent *event) {
    if (watched == version && event->type() == QEvent::MouseButtonDblClick)
        Q_EMIT VersionDoubleClicked();
    return QStatusBar::eventFilter(watched, event);
}

}  // namespace vtr
