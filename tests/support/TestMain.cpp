#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", "/tmp/sidekin-test-runtime");
    // The run table's journal of the tests stays in the build.
    if (qEnvironmentVariableIsEmpty("XDG_STATE_HOME"))
        qputenv("XDG_STATE_HOME", SIDEKIN_TEST_STATE_HOME);
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    QDir().mkpath(runtime);
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
