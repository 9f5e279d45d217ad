#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <map>
#include <vector>

#include "SystemInformation.h"

namespace vtr {
namespace {

const QString toolKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
const QString locationKey = "SOFTWARE\\Microsoft\\Shared Tools Location";

/// A registry of a few values that remembers what was looked up.
class FakeRegistry {
  public:
    std::map<QString, QString> values;
    std::vector<QString> asked;

    bool Start() {
        return StartSystemInformation(
            [this](const QString &key, const QString &value) -> std::optional<QString> {
                const QString name = key + "|" + value;
                asked.push_back(name);
                const auto found = values.find(name);
                return found == values.end() ? std::nullopt : std::optional(found->second);
            });
    }
};

/// A program that leaves a file behind when it runs.
class SystemInformation : public ::testing::Test {
  protected:
    QString MakeTool(const QString &name) {
        const QString path = folder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n: > \"$(dirname \"$0\")/ran\"\n");
        file.close();
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return path;
    }
    bool Ran() const {
        return QTest::qWaitFor([this] { return QFile::exists(folder.filePath("ran")); }, 5000);
    }

    QTemporaryDir folder;
    FakeRegistry registry;
};

TEST_F(SystemInformation, StartsTheToolThatTheFirstValueNamesAndLooksNoFurther) {
    registry.values[toolKey + "|PATH"] = MakeTool("tool with blanks");
    EXPECT_TRUE(registry.Start());
    EXPECT_TRUE(Ran());
    EXPECT_EQ(registry.asked, std::vector<QString>{toolKey + "|PATH"});
}

TEST_F(SystemInformation, FallsBackToTheToolInTheSharedFolder) {
    MakeTool("shared\\MSINFO32.EXE");
    registry.values[locationKey + "|MSINFO"] = folder.filePath("shared");
    EXPECT_TRUE(registry.Start());
    EXPECT_TRUE(Ran());
    EXPECT_EQ(registry.asked, (std::vector<QString>{toolKey + "|PATH", locationKey + "|MSINFO"}));
}

TEST_F(SystemInformation, IsUnavailableWhenNothingIsRegistered) {
    EXPECT_FALSE(registry.Start());
}

TEST_F(SystemInformation, IsUnavailableWhenTheNamedToolDoesNotStart) {
    registry.values[toolKey + "|PATH"] = folder.filePath("missing");
    registry.values[locationKey + "|MSINFO"] = folder.path();
    EXPECT_FALSE(registry.Start());
}

TEST_F(SystemInformation, IsUnavailableWhenTheSharedFolderHasNoTool) {
    registry.values[locationKey + "|MSINFO"] = folder.path();
    EXPECT_FALSE(registry.Start());
}

}  // namespace
}  // namespace vtr
