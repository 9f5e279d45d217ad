#pragma once

#include <QObject>
#include <QTimer>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "BackgroundWriter.h"
#include "KeptWork.h"
#include "Session.h"

namespace vtr {

/// What became of the unsaved edits when they were to be kept.
enum class Kept { NothingUnsaved, Kept, Failed };

/// Keeps the unsaved edits in the user's data folder, so that no end of the program loses them.
class WorkKeeper : public QObject {
    Q_OBJECT

  public:
    explicit WorkKeeper(Session &session, QObject *parent = nullptr);

    /// Call it after each change of the tables and each save. Keeps the edits two seconds after the last of
    /// them, at the latest four after the first that is not kept; again four seconds after a failure; removes
    /// what is kept when all is saved.
    void TablesChanged();
    /// Keeps the edits now, without waiting for the disk.
    void Keep();
    /// The same; the file at path, which was taken back, goes as soon as the edits are kept or all is saved.
    void KeepInsteadOf(const std::string &path);
    /// Keeps them now and waits until the disk has them.
    Kept KeepAndWait();
    /// After KeepAndWait has failed: why, and the consequence.
    QString LossReport(const QString &consequence) const;
    /// Waits until what was asked for is done.
    void Wait() { writer_.Wait(); }
    /// What is kept stays for later: other tables are open now, or the same ones loaded anew.
    void LetGo();

  Q_SIGNALS:
    /// Once, until keeping works again.
    void CannotKeep(const QString &message);

  private:
    void Written(const std::optional<Error> &failure);

    Session &session_;
    QTimer afterLastEdit_;
    QTimer afterFirstEdit_;
    std::unique_ptr<KeptWork> own_;      ///< made when it is first needed
    bool isKept_ = false;                ///< something was given to the writer for own_
    std::vector<std::string> outdated_;  ///< removed by each write that succeeds, the first or a later one
    bool isTold_ = false;
    std::optional<Error> failure_;  ///< of the last write
    BackgroundWriter writer_;
};

}  // namespace vtr
