#include "frm_tutorial.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

#include "Buttons.h"
#include "ProgramVersion.h"

namespace vtr {

namespace {

QString TutorialText() {
    return QStringLiteral(
               "TARGET EDITOR FOR VELTRAINE\n"
               "Version %1\n"
               "November 2026\n"
               "\n"
               "USAGE\n"
               "=====\n"
               "  Targets:\n"
               "    - To select a target, click on the cross on the map with the left mouse button\n"
               "      Alternatively, select it using the target box below the map\n"
               "    - To place a target, select it, then SHIFT-Click on the map with the left mouse button\n"
               "      Alternatively, use the X & Y coordinate boxes to move the target\n"
               "\n"
               "  Frontlines:\n"
               "    - Select the frontline using the frontline box\n"
               "    - Move a frontline either with the X & Y coordinate boxes, or simply click on the map\n"
               "\n"
               "  Railways:\n"
               "    - Select your railway segment to move using the railway line number box\n"
               "    - Move the start and end points either with the X & Y coordinate boxes\n"
               "      OR:\n"
               "        SHIFT+LEFT Click to place the start point,\n"
               "        SHIFT+RIGHT Click to place the end point\n"
               "\n"
               "PROJECTS\n"
               "========\n"
               "  To make a new project, assemble all the required files into a directory.  If they are not "
               "all\n"
               "  in the same directory they will be copied to the project directory.\n"
               "  If you have a map, you can use it, however if you do not, the target editor will generate\n"
               "  one from the VTR.TM file.\n"
               "  NOTE: this map will be upside down when it is created, and you will need to mirror it to "
               "get\n"
               "  the correct image.\n"
               "  When choosing the directory that contains the tiles, simply select any file in that "
               "directory.\n"
               "\n"
               "The use of this program is at your own risk.")
        .arg(ShortVersionText());
}

}  // namespace

frm_tutorial::frm_tutorial(QWidget *parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frm_tutorial"));
    setWindowTitle(QStringLiteral("Tutorial"));
    auto *const text = new QPlainTextEdit(TutorialText());
    text->setObjectName(QStringLiteral("txt_tutorial"));
    text->setAccessibleName(QStringLiteral("Tutorial"));
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setTabChangesFocus(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));

    QPushButton *const close = MakeButton(QStringLiteral("cmd_close"), QStringLiteral("&Close"));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addLayout(ButtonRow({close}));

    // Large enough for the whole text where the screen is.
    const QFontMetrics metrics(text->font());
    const int around = 2 * text->frameWidth() + qRound(2 * text->document()->documentMargin()) +
                       text->verticalScrollBar()->sizeHint().width();
    const QSize page = metrics.size(0, text->toPlainText()) + QSize(around, around);
    const QSize others = sizeHint() - text->sizeHint();
    resize((page + others).boundedTo(screen()->availableSize() - QSize(16, 48)));
}

}  // namespace vtr
