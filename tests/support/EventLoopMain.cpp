#include <QCoreApplication>
#include <gtest/gtest.h>

// The event loop wants the application object, which gtest's own main does not have.
int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
