#pragma once

#include <array>
#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "Campaign.h"
#include "EarlierVersions.h"
#include "EditMode.h"
#include "FileStamps.h"
#include "History.h"
#include "MapDisplay.h"
#include "MapView.h"
#include "Picture.h"
#include "Preferences.h"
#include "SavedTables.h"
#include "Selection.h"

namespace vtr {

/// All that the editor holds while it runs. Made once at the program's start and passed on by reference.
struct Session {
    Campaign campaign;
    KeptVersions keptVersions;  ///< of its files, since it was loaded
    FileStamps fileStamps;      ///< what its files were when they were last read or written
    Preferences preferences;
    MapView view;
    ShownLayers layers;
    EditMode mode = EditMode::Target;
    Selection selection;
    /// A load sets this in every mode.
    bool targetFrameEnabled = false;
    /// Stays false when the target mode comes back, until a target is selected.
    bool airfieldFrameEnabled = false;
    Picture map;                   ///< the project's map picture
    std::string tablesProject;     ///< the project file that the tables were loaded from
    bool loadFailed = false;       ///< the last load; what was open before is whole
    bool mapIsUpsideDown = false;  ///< it was generated here and not mirrored since
    std::string programFolder;     ///< ends in a separator
    std::string dataFolder;        ///< the user's, ends in a separator; empty: keep nothing there
    std::string operation = "Your last action";  ///< what the program is at (UTF-8), see Operation

    History history;
    SavedTables savedTables;
    std::function<History::Time()> now = std::chrono::steady_clock::now;
    std::function<void()> tablesChanged = [] {};  ///< called after each edit, undo, redo, load and save

    /// The one way in which anything but a load changes the tables: edit changes some of rows, and that can
    /// be undone under the name. Edits of one field that follow each other become one; see History. What edit
    /// throws goes on to the caller, and the tables are as they were.
    void Do(std::string name, const std::vector<TableRows> &rows, const std::function<void(Campaign &)> &edit,
            std::string field = {});
    /// Makes these differences as one edit.
    void TakeOver(std::string name, const Differences &differences);
    /// Takes the last edit back, or makes it again; the item that it was done to is selected in its mode.
    /// Call them only when the history has one, which they return.
    const Edit &Undo();
    const Edit &Redo();
    /// The campaign has just been loaded.
    void CampaignLoaded();
    /// The files of those usual names have been written.
    void FilesSaved(const std::vector<std::string_view> &usualNames);
    /// The usual names of the files of the project that differ from what was loaded or last saved.
    std::vector<std::string_view> EditedFiles() const;
    bool HasUnsavedEdits() const { return !EditedFiles().empty(); }
};

/// All edits that are made while this lives are one.
class OneEdit {
  public:
    explicit OneEdit(History &history) : history_(history) { history_.BeginTogether(); }
    OneEdit(const OneEdit &) = delete;
    OneEdit &operator=(const OneEdit &) = delete;
    ~OneEdit() { history_.EndTogether(); }

  private:
    History &history_;
};

/// The layer that each mode edits, in the order of EditMode.
constexpr std::array<bool ShownLayers::*, editModeTotal> layersOfModes{
    &ShownLayers::mnu_v_targets, &ShownLayers::mnu_v_frontlines, &ShownLayers::mnu_v_railways,
    &ShownLayers::mnu_v_roadint, &ShownLayers::mnu_v_railint};

/// The mode in which that table is edited.
EditMode ModeOf(Table table);
/// Switches to mode; whether its layer is shown stays as it was.
void SwitchMode(Session &session, EditMode mode);
/// Selects the item of that mode which selected names, in its mode and with its layer shown. The items of the
/// other modes stay selected.
void SelectItem(Session &session, EditMode mode, const Selection &selected);
/// A pixel of the whole map.
struct MapPixel {
    int x = 0;
    int y = 0;
};
/// Where the item lies that is selected in the current mode; of a railway line its start. It may lie beside
/// the map.
MapPixel SelectedPixel(const Session &session);
/// The pixel of the selected item, if it is one that is in use.
std::optional<MapPixel> PixelToMark(const Session &session);
/// What the next redraw shows.
MapDisplay DisplayOf(const Session &session);

}  // namespace vtr
