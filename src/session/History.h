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
    std::string field;        ///< what it was done in; empty: it never merges with the edit before
    Differences differences;  ///< at least one
    Selection before;         ///< what was selected before it
    Selection after;
};

/// The edits that can be undone and redone. At most 10 MB of them are kept, the latest ones.
class History {
  public:
    using Time = std::chrono::steady_clock::time_point;

    /// Adds edit and forgets what was undone. It joins the edit before it when both have the same name and
    /// field, nothing else was touched and less than two seconds have passed, or when both belong together;
    /// what then changes nothing any more goes.
    void Add(Edit edit, Time now);
    /// The next edit stands for itself.
    void EndMerging() { merges_ = false; }
    /// The next edit joins the last one if it is of the same field, however long ago that was: the field
    /// takes back what was typed in it.
    void MergeNext() { mergesNext_ = true; }
    /// All edits until EndTogether are one, with the name of the first.
    void BeginTogether();
    void EndTogether();

    const Edit *ToUndo() const { return done_.empty() ? nullptr : &done_.back(); }
    const Edit *ToRedo() const { return undone_.empty() ? nullptr : &undone_.back(); }
    /// Moves the edit over; the campaign is changed by whoever calls.
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
    bool merges_ = false;  ///< the next edit may join the last
    bool mergesNext_ = false;
    bool together_ = false;  ///< the next edits belong together
};

}  // namespace vtr
