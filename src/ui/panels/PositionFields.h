#pragma once

#include "NumberField.h"

namespace vtr {

/// The fields of one position: its map pixel and, in some panels, the metres within that tile.
struct PositionFields {
    NumberField *x;
    NumberField *y;
    NumberField *xMetres = nullptr;
    NumberField *yMetres = nullptr;

    /// Sets the column and then the row, as typing does. A field refuses a number outside the map.
    void MoveTo(int column, int row) const {
        x->SetNumber(column);
        y->SetNumber(row);
    }
    /// Moves by dx columns or, when dx is 0, by dy rows.
    void MoveBy(int dx, int dy) const {
        NumberField *field = dx != 0 ? x : y;
        field->SetNumber(field->value() + (dx != 0 ? dx : dy));
    }
};

}  // namespace vtr
