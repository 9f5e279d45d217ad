#include "ProjectFileCommands.h"

#include <QLabel>
#include <QStringList>
#include <algorithm>
#include <new>
#include <optional>
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

namespace {

/// Why step could not be done; without memory that is told of file.
std::optional<Error> FailureOf(const std::string &file, const std::function<void()> &step) {
    try {
        step();
    } catch (const Error &error) {
        return error;
    } catch (const std::bad_alloc &) {
        return Error(ErrorKind::Overflow, {.file = file}, "files that fit into memory", "no memory left");
    }
    return std::nullopt;
}

void TurnOver(Picture &picture) {
    const std::ptrdiff_t width = picture.width;
    for (auto top = picture.pixels.begin(), bottom = picture.pixels.end(); bottom - top >= 2 * width;
         top += width) {
        bottom -= width;
        std::swap_ranges(top, top + width, bottom);
    }
}

QString ShownPath(const std::string &path) {
    return QString::fromStdString(Shortened(path, longestShownPath));
}

QString AfterMirroring(const Error &error) {
    if (error.FileReplaced())
        return ProjectFileCommands::tr(
            "The map picture is mirrored, on the disk and in the window. Do not mirror it again.");
    if (error.Kind() == ErrorKind::TypeMismatch)
        return ProjectFileCommands::tr(
            "Nothing was changed. Mirror the picture in a drawing program and load the project again, or "
            "save it there as a bitmap without compression.");
    return ProjectFileCommands::tr(
        "The map that is shown is the old one. Put right what is said above and choose "
        "\"Mirror Map Picture\" again.");
}

}  // namespace

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
    // Read before it is written: once the file is mirrored, nothing may keep the window from showing it so.
    Picture mirrored;
    const std::optional<Error> failure = FailureOf(paths.PathOf(paths.Map), [&] {
        mirrored = ReadMapPicture(MapPicturePath(paths));
        MirrorMapPicture(paths);
    });
    if (!failure || failure->FileReplaced())
        ShowMirrored(std::move(mirrored));
    if (failure)
        Warn(*failure, AfterMirroring(*failure));
    else
        TellDone(tr("%1 was mirrored.").arg(QString::fromStdString(Utf8OfProjectText(paths.Map))));
}

void ProjectFileCommands::ShowMirrored(Picture picture) {
    TurnOver(picture);
    session_.map = std::move(picture);
    widgets_.Img_SmallMap->ShowPicture(session_.map);
    session_.mapIsUpsideDown = false;
    widgets_.ShowState();
    redraw_();
}

void ProjectFileCommands::ChooseTilesFolder() {
    const Operation setting(session_.operation, tr("Writing the tiles folder into the project file"));
    ProjectPaths &paths = session_.campaign.paths;
    const std::string folder = ChooseFolder(window_, tr("Tiles Folder"), paths.TilesDir);
    if (folder.empty())
        return;
    const QString shown = ShownPath(folder);
    if (const auto failure =
            FailureOf(paths.ProjectDir + paths.ProjectFile, [&] { SetTilesFolder(paths, folder); }))
        return Warn(*failure,
                    failure->FileReplaced()
                        ? tr("The tiles are taken from %1, and the project file says so. You need not "
                             "choose the folder again.")
                              .arg(shown)
                        : tr("The tiles are taken from %1 until a project is loaded. Put right what is "
                             "said above and choose the folder again, or choose another one.")
                              .arg(shown));
    TellDone(tr("The tiles are taken from %1").arg(shown));
}

void ProjectFileCommands::SaveCopy() {
    const Operation copying(session_.operation, tr("Saving a copy of the project"));
    const ProjectPaths &paths = session_.campaign.paths;
    if (paths.Map == "NONE")
        return ShowMessage(
            window_, QMessageBox::Warning,
            tr("No copy was made.\n\nThe project file %1 says Map=NONE, so the project's files "
               "were not loaded. Name its map picture there, load the project, and copy it then.")
                .arg(ShownPath(paths.ProjectDir + paths.ProjectFile)));
    const std::string folder = ChooseFolder(window_, tr("Save Copy of Project"), paths.ProjectDir);
    if (folder.empty())
        return;
    ProjectCopy copy;
    const auto failure = FailureOf(folder, [&] {
        copy = CopyProject(session_.campaign, folder + SeparatorOf(folder), session_.programFolder);
    });
    if (failure)
        return Warn(*failure,
                    tr("No copy was made. The open project is as it was. Put right what is said above, "
                       "or choose another empty folder."));
    const QString done = tr("The project was copied to %1").arg(ShownPath(folder));
    QStringList lacks;
    if (!copy.missing.empty()) {
        QStringList names;
        for (const std::string &name : copy.missing)
            names << QString::fromStdString(name);
        lacks << tr("The project names these files, but they do not exist, so the copy lacks them: %1.")
                     .arg(names.join(QStringLiteral(", ")));
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

void ProjectFileCommands::Warn(const Error &error, const QString &consequence) {
    ShowMessage(window_, QMessageBox::Warning,
                ErrorReport(QString::fromStdString(session_.operation), error, consequence));
}

void ProjectFileCommands::TellDone(const QString &text) {
    widgets_.sb_status->showMessage(text, 5000);
}

}  // namespace vtr
