#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>

int main(int argc, char** argv) {
    // Wine passes no QT_ variable on to the program: a test asks for its platform by another name.
    const QByteArray platform = qgetenv("SIDEKIN_TEST_PLATFORM");
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", platform.isEmpty() ? "offscreen" : platform);
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
