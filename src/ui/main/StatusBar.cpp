#include "StatusBar.h"

#include <QEvent>

#include "ProgramVersion.h"

namespace vtr {

StatusBar::StatusBar(QWidget *parent)
    : QStatusBar(parent),
      project(AddPanel("project", QStringLiteral("  NO PROJECT LOADED"), "Project Name")),
      curredit(
          AddPanel("curredit", QStringLiteral("  TARGETS  "), "Currently Editing.  Click to toggle modes.")),
      zoom(AddPanel("zoom", QStringLiteral("100%"), "Map Zoom")),
      xypos(AddPanel("xypos", QStringLiteral("(0, 0)"), "Current X,Y Position")),
      version(AddPanel("version", programTitle + QStringLiteral(" v") + ShortVersionText(), "")) {
    setObjectName(QStringLiteral("sb_status"));
    setSizeGripEnabled(false);
    curredit->setFocusPolicy(Qt::TabFocus);
    version->installEventFilter(this);
}

QToolButton *StatusBar::AddPanel(const char *key, const QString &text, const char *toolTip) {
    auto *panel = new QToolButton(this);
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
