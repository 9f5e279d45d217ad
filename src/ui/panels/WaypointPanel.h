#pragma once

#include <span>

#include "Panel.h"

namespace vtr {

/// fra_roadint and fra_railint: one waypoint of one interdiction path. Its fields accept numbers but do not
/// store them, because the editor never writes these paths.
class WaypointPanel : public Panel {
    Q_OBJECT

  public:
    enum class Kind { Road, Rail };

    WaypointPanel(Kind kind, Session &session, QWidget *parent);

    void Refresh() override;

  protected:
    std::string Note() const override;

  private:
    void Build(const char *path, const char *waypoint, const char *x, const char *xMetres, const char *y,
               const char *yMetres, const char *note);

    Selection::PathWaypoint &selected_;
    std::span<const WaypointPath> paths_;
    NumberField *x_ = nullptr;
    NumberField *xMetres_ = nullptr;
    NumberField *y_ = nullptr;
    NumberField *yMetres_ = nullptr;
};

}  // namespace vtr
