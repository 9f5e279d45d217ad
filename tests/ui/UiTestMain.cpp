#include <gtest/gtest.h>

#include "BoundaryModule.h"
#include "EventBoundary.h"

namespace vtr {

TargetEditorModule &BoundaryModule() {
    static TargetEditorModule module;
    return module;
}

}  // namespace vtr

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const vtr::EventBoundary application(argc, argv, vtr::BoundaryModule());
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
