#include <gtest/gtest.h>

#include "Errors.h"
#include "Operation.h"

namespace vtr {
namespace {

TEST(Operation, NamesWhatTheProgramIsAtAndGivesTheNameBeforeBackAtItsEnd) {
    std::string current = "before";
    {
        const Operation outer(current, QStringLiteral("outer"));
        EXPECT_EQ(current, "outer");
        {
            const Operation inner(current, QStringLiteral("inner"));
            EXPECT_EQ(current, "inner");
        }
        EXPECT_EQ(current, "outer");
    }
    EXPECT_EQ(current, "before");
}

TEST(Operation, KeepsItsNameForTheReportWhenAnErrorFliesPast) {
    std::string current = "before";
    const auto fail = [&current] {
        const Operation outer(current, QStringLiteral("outer"));
        const Operation inner(current, QStringLiteral("inner"));
        throw Error(ErrorKind::Overflow, {}, "a", "b");
    };
    EXPECT_THROW(fail(), Error);
    EXPECT_EQ(current, "inner");
}

TEST(Operation, GivesTheNameBackWhenItsErrorIsCaughtWithinIt) {
    std::string current = "before";
    {
        const Operation operation(current, QStringLiteral("operation"));
        EXPECT_THROW(throw Error(ErrorKind::Overflow, {}, "a", "b"), Error);
    }
    EXPECT_EQ(current, "before");
}

TEST(Operation, EndsAsAlwaysWhileAnotherErrorIsOnItsWay) {
    std::string current = "before";
    struct CleansUp {
        std::string &current;
        ~CleansUp() { const Operation cleaning(current, QStringLiteral("cleaning up")); }
    };
    const auto fail = [&current] {
        const CleansUp cleanUp{current};
        throw Error(ErrorKind::Overflow, {}, "a", "b");
    };
    EXPECT_THROW(fail(), Error);
    EXPECT_EQ(current, "before");
}

}  // namespace
}  // namespace vtr
