#include <gtest/gtest.h>

#include "BoundarySession.h"
#include "EventBoundary.h"

namespace vtr {

Session &BoundarySession() {
    static Session session;
    return session;
}

}  // namespace vtr

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const vtr::EventBoundary application(argc, argv, vtr::BoundarySession());
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
