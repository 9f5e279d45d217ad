#include "History.h"

#include <utility>

namespace vtr {

namespace {

constexpr std::size_t mostBytes = 10'000'000;
constexpr std::chrono::seconds longestPause(2);

std::size_t BytesOf(const Edit &edit) {
    std::size_t bytes = sizeof edit + edit.name.capacity() + edit.differences.capacity() * sizeof(Difference);
    for (const Difference &difference : edit.differences)
        for (const TableRow *row : {&difference.before, &difference.after}) {
            if (const auto *target = std::get_if<TargetRecord>(row))
                bytes += target->name.capacity();
            else if (const auto *name = std::get_if<std::string>(row))
                bytes += name->capacity();
        }
    return bytes;
}

}  // namespace

void History::Add(Edit edit, Time now) {
    undone_.clear();
    const bool isTakenBack = std::exchange(mergesNext_, false);
    const bool goesOn = isTakenBack || (merges_ && now - lastAdded_ < longestPause);
    const bool isSameField = !done_.empty() && !edit.field.empty() && done_.back().name == edit.name &&
                             done_.back().field == edit.field;
    lastAdded_ = now;
    if ((isSameField && goesOn) || (together_ && merges_))
        return JoinToLast(std::move(edit));
    bytes_ += BytesOf(edit);
    done_.push_back(std::move(edit));
    merges_ = true;
    ForgetOldest();
}

void History::JoinToLast(Edit edit) {
    Edit &last = done_.back();
    bytes_ -= BytesOf(last);
    Join(last.differences, std::move(edit.differences));
    last.after = edit.after;
    if (!last.differences.empty()) {
        bytes_ += BytesOf(last);
        return;
    }
    done_.pop_back();
    merges_ = false;
}

void History::ForgetOldest() {
    while (bytes_ > mostBytes && done_.size() > 1) {
        bytes_ -= BytesOf(done_.front());
        done_.pop_front();
    }
}

void History::BeginTogether() {
    together_ = true;
    merges_ = false;
}

void History::EndTogether() {
    together_ = false;
    merges_ = false;
}

const Edit &History::Undo() {
    merges_ = false;
    bytes_ -= BytesOf(done_.back());
    undone_.push_back(std::move(done_.back()));
    done_.pop_back();
    return undone_.back();
}

const Edit &History::Redo() {
    merges_ = false;
    done_.push_back(std::move(undone_.back()));
    undone_.pop_back();
    bytes_ += BytesOf(done_.back());
    return done_.back();
}

void History::Clear() {
    *this = {};
}

}  // namespace vtr
