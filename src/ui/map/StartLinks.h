#pragma once

#include <QVBoxLayout>
#include <vector>

class QAction;
class QLabel;

namespace vtr {

struct MainMenu;

/// What one can do while no project is loaded, as links that stand over the empty map. Each label is a widget
/// of its own: the mouse reaches the map wherever there is no link.
class StartLinks : public QVBoxLayout {
    Q_OBJECT

  public:
    /// The labels become children of mapFrame.
    StartLinks(const MainMenu &menu, QWidget *mapFrame);

    void SetVisible(bool visible);

  Q_SIGNALS:
    void SampleRequested();

  private:
    QLabel *AddLabel(const QString &name, QWidget *mapFrame);
    QLabel *AddLink(const QString &name, const QString &caption, QWidget *mapFrame);
    void Show();

    std::vector<std::pair<QLabel *, const QAction *>> recent_;
    bool isVisible_ = true;
};

}  // namespace vtr
