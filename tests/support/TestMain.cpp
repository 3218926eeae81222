#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen"
                                                                      : qgetenv("QT_QPA_PLATFORM"));
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        QDir().mkpath("/tmp/sidekin-test-runtime");
        qputenv("XDG_RUNTIME_DIR", "/tmp/sidekin-test-runtime");
    }
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
