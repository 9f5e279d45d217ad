#include "StartLinks.h"

#include <QLabel>

#include "MainMenu.h"

namespace vtr {

namespace {

constexpr int longestLink = 560;  ///< of the map's 640 pixels

void SetLink(QLabel &label, const QString &caption) {
    const QString shown = label.fontMetrics().elidedText(caption, Qt::ElideMiddle, longestLink);
    // The map is black whatever colours the desktop has.
    label.setText(QStringLiteral("<a href=\"#\" style=\"color:#9cd0ff\">%1</a>").arg(shown.toHtmlEscaped()));
    label.setAccessibleName(caption);
}

}  // namespace

StartLinks::StartLinks(const MainMenu &menu, QWidget *mapFrame) {
    setSpacing(6);
    QLabel *const text = AddLabel(QStringLiteral("lbl_start"), mapFrame);
    text->setText(tr("No project is loaded."));
    text->setStyleSheet(QStringLiteral("color: white"));
    text->setAttribute(Qt::WA_TransparentForMouseEvents);
    const auto addCommand = [&](const char *name, const QString &caption, QAction *entry) {
        connect(AddLink(QLatin1String(name), caption, mapFrame), &QLabel::linkActivated, entry,
                &QAction::trigger);
    };
    addCommand("lbl_start_load", tr("Load a project..."), menu.mnu_p_load);
    addCommand("lbl_start_new", tr("Make a new project from the game's files..."), menu.mnu_p_new);
    connect(AddLink(QStringLiteral("lbl_start_sample"), tr("Open the sample campaign"), mapFrame),
            &QLabel::linkActivated, this, &StartLinks::SampleRequested);
    for (QAction *entry : menu.mnu_p_last) {
        QLabel *const link =
            AddLink(QStringLiteral("lbl_start_last(%1)").arg(recent_.size()), tr("Recent project"), mapFrame);
        connect(link, &QLabel::linkActivated, entry, &QAction::trigger);
        connect(entry, &QAction::changed, this, &StartLinks::Show);
        recent_.emplace_back(link, entry);
    }
    Show();
}

QLabel *StartLinks::AddLabel(const QString &name, QWidget *mapFrame) {
    auto *label = new QLabel(mapFrame);
    label->setObjectName(name);
    addWidget(label, 0, Qt::AlignHCenter);
    return label;
}

QLabel *StartLinks::AddLink(const QString &name, const QString &caption, QWidget *mapFrame) {
    QLabel *const link = AddLabel(name, mapFrame);
    link->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    SetLink(*link, caption);
    return link;
}

void StartLinks::SetVisible(bool visible) {
    isVisible_ = visible;
    Show();
}

void StartLinks::Show() {
    for (int i = 0; i < count(); ++i)
        itemAt(i)->widget()->setVisible(isVisible_);
    for (const auto &[link, entry] : recent_) {
        link->setVisible(isVisible_ && entry->isVisible());
        // "&1 Name", with each ampersand of the name doubled.
        if (entry->isVisible())
            SetLink(*link, entry->text().mid(3).replace(QStringLiteral("&&"), QStringLiteral("&")));
    }
}

}  // namespace vtr
