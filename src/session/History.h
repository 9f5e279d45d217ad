#pragma once

#include <chrono>
#include <deque>
#include <string>
#include <vector>

#include "Differences.h"
#include "Selection.h"

namespace vtr {

/// One thing that the user did to the tables.
struct Edit {
    std::string name;         ///< for the menu (UTF-8): "Move Target 12"
    std::string field;        ///< the field it was made in; empty: it never joins the edit before
    Differences differences;  ///< at least one
    Selection before;         ///< what was selected before the edit
    Selection after;
};

/// The edits that can be undone and redone. At most 10 MB of them are kept, the latest ones.
class History {
  public:
    using Time = std::chrono::steady_clock::time_point;

    /// Adds edit and forgets what was undone. The edit joins the last one when both belong together, or when
    /// both have the same name and field, nothing else was touched and less than two seconds have passed. If
    /// the joined edit changes nothing, removes it.
    void Add(Edit edit, Time now);
    /// The next edit does not join the last one.
    void EndMerging() { merges_ = false; }
    /// The next edit joins the last one if it is of the same field, however long ago that was: the field
    /// takes back what was typed in it.
    void MergeNext() { mergesNext_ = true; }
    /// All edits until EndTogether become one edit with the name of the first.
    void BeginTogether();
    void EndTogether();

    const Edit *ToUndo() const { return done_.empty() ? nullptr : &done_.back(); }
    const Edit *ToRedo() const { return undone_.empty() ? nullptr : &undone_.back(); }
    /// Marks the last edit as undone, or the last undone one as done, and returns it. The caller changes the
    /// campaign.
    const Edit &Undo();
    const Edit &Redo();
    void Clear();

  private:
    void JoinToLast(Edit edit);
    void ForgetOldest();

    std::deque<Edit> done_;
    std::vector<Edit> undone_;
    std::size_t bytes_ = 0;  ///< of done_
    Time lastAdded_;
    bool merges_ = false;      ///< the next edit may join the last one
    bool mergesNext_ = false;  ///< the next edit of the same field joins the last one
    bool together_ = false;    ///< the next edits belong together
};

}  // namespace vtr
