#include "frm_progress.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <cmath>

namespace vtr {

frm_progress::frm_progress(QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), bar_(new QProgressBar) {
    setObjectName(QStringLiteral("frm_progress"));
    setWindowTitle(QStringLiteral("Loading Project..."));
    bar_->setObjectName(QStringLiteral("prg_load"));
    bar_->setAccessibleName(QStringLiteral("Progress"));
    bar_->setRange(0, 100);
    bar_->setValue(0);
    bar_->setMinimumWidth(fontMetrics().averageCharWidth() * 50);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(bar_);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void frm_progress::SetProgress(double value) {
    const double held = std::isnan(value) ? 0.0 : std::clamp(value, 0.0, 100.0);
    const int percent = static_cast<int>(held);
    if (percent == bar_->value())
        return;
    // Lets the window system show the window. Input and timers stay in the queue: they would meet
    // a campaign that is half loaded.
    if (isVisible() && !windowHandle()->isExposed())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::X11ExcludeTimers);
    // Painting each step would take longer than the work. The eye needs no more than 40 pictures a second.
    const bool due = !sincePainted_.isValid() || sincePainted_.hasExpired(25);
    bar_->setUpdatesEnabled(due);
    bar_->setValue(percent);  // paints at once by itself
    bar_->setUpdatesEnabled(true);
    if (due)
        sincePainted_.start();
}

void frm_progress::reject() {}

void frm_progress::closeEvent(QCloseEvent *event) {
    event->ignore();
}

}  // namespace vtr
