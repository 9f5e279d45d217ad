#include "ProjectFileCommands.h"

#include <QLabel>
#include <QStringList>
#include <utility>

#include "CopyProject.h"
#include "ErrorReport.h"
#include "FileChooser.h"
#include "GridData.h"
#include "MapPictureFile.h"
#include "MirrorMapPicture.h"
#include "Operation.h"
#include "Overview.h"
#include "Paths.h"
#include "ShowMessage.h"
#include "StatusBar.h"
#include "Text.h"
#include "TilesFolder.h"

namespace vtr {

ProjectFileCommands::ProjectFileCommands(Session &session, MainWidgets &widgets, QMainWindow *window,
                                         std::function<void()> redraw)
    : QObject(window), session_(session), widgets_(widgets), window_(window), redraw_(std::move(redraw)) {
    connect(widgets.menu.mnu_p_mirror, &QAction::triggered, this, &ProjectFileCommands::MirrorMap);
    connect(widgets.lbl_upside_down, &QLabel::linkActivated, this, &ProjectFileCommands::MirrorMap);
    connect(widgets.menu.mnu_p_tiles, &QAction::triggered, this, &ProjectFileCommands::ChooseTilesFolder);
    connect(widgets.menu.mnu_p_copy, &QAction::triggered, this, &ProjectFileCommands::SaveCopy);
}

void ProjectFileCommands::MirrorMap() {
    const Operation mirroring(session_.operation, tr("Mirroring the map picture"));
    const ProjectPaths &paths = session_.campaign.paths;
    try {
        MirrorMapPicture(paths);
        session_.map = ReadMapPicture(paths.PathOf(paths.Map));
    } catch (const Error &error) {
        const QString consequence =
            error.Kind() == ErrorKind::TypeMismatch
                ? tr("Nothing was changed. Mirror the picture in a drawing program and load the project "
                     "again, "
                     "or save it there as a bitmap without compression.")
                : tr("The map that is shown is the old one. Your edits are not touched.");
        ShowMessage(window_, QMessageBox::Warning,
                    ErrorReport(QString::fromStdString(session_.operation), error, consequence));
        return;
    }
    widgets_.Img_SmallMap->ShowPicture(session_.map);
    session_.mapIsUpsideDown = false;
    widgets_.ShowState();
    redraw_();
    TellDone(tr("%1 was turned upside down.").arg(QString::fromStdString(Utf8OfProjectText(paths.Map))));
}

void ProjectFileCommands::ChooseTilesFolder() {
    const Operation setting(session_.operation, tr("Writing the tiles folder into the project file"));
    ProjectPaths &paths = session_.campaign.paths;
    const std::string folder = ChooseFolder(window_, tr("Tiles Folder"), paths.TilesDir);
    if (folder.empty())
        return;
    try {
        SetTilesFolder(paths, folder);
    } catch (const Error &error) {
        ShowMessage(
            window_, QMessageBox::Warning,
            ErrorReport(QString::fromStdString(session_.operation), error,
                        tr("The tiles are taken from %1 until a project is loaded. Your edits are not "
                           "touched.")
                            .arg(QString::fromStdString(folder))));
        return;
    }
    TellDone(tr("The tiles are taken from %1").arg(QString::fromStdString(folder)));
}

void ProjectFileCommands::SaveCopy() {
    const Operation copying(session_.operation, tr("Saving a copy of the project"));
    const std::string folder =
        ChooseFolder(window_, tr("Save Copy of Project"), session_.campaign.paths.ProjectDir);
    if (folder.empty())
        return;
    ProjectCopy copy;
    try {
        copy = CopyProject(session_.campaign, folder + SeparatorOf(folder), session_.programFolder);
    } catch (const Error &error) {
        ShowMessage(window_, QMessageBox::Warning,
                    ErrorReport(QString::fromStdString(session_.operation), error,
                                tr("No copy was made. The open project and your edits are not touched. Put "
                                   "right what is said above, or choose another empty folder.")));
        return;
    }
    const QString done = tr("The project was copied to %1").arg(QString::fromStdString(folder));
    QStringList lacks;
    if (!copy.missing.empty()) {
        QStringList names;
        for (const std::string &name : copy.missing)
            names << QString::fromStdString(name);
        lacks << tr("These files of it are not there: %1.").arg(names.join(QStringLiteral(", ")));
    }
    if (copy.misfit)
        lacks << QString::fromStdString(MessageOfMisfit(*copy.misfit)) +
                     tr("\nThe grid data in the copy is that of the last save, if there was any.");
    if (lacks.isEmpty())
        TellDone(done);
    else
        ShowMessage(window_, QMessageBox::Warning,
                    done + QStringLiteral(".\n\n") + lacks.join(QStringLiteral("\n\n")));
}

void ProjectFileCommands::TellDone(const QString &text) {
    widgets_.sb_status->showMessage(text, 5000);
}

}  // namespace vtr
