#include "StartupFixture.h"

#include "AppState.h"
#include "Nls.h"
#include "platform/Events.h"

namespace sidekin::test {

void StartupFixture::SetUp() {
    resetAppState();
    resetNls();
    setNlsLanguage(QStringLiteral("en"));
    NLSTaskInit();
    NLSInit(0);
    qputenv("ZENTROVAR_CONFIG_DIR", config.path().toUtf8());
    qunsetenv("SIDEKIN_TEXTS_DIR");
    setEndProgramHook([] { throw ProgramEnded{}; });
    clock.setTime(12 * 3600);
}

void StartupFixture::TearDown() {
    setEndProgramHook({});
    qunsetenv("ZENTROVAR_CONFIG_DIR");
    qunsetenv("SIDEKIN_TEXTS_DIR");
    setNlsLanguage(QString());
}

void StartupFixture::useTexts(const QByteArray& table) {
    texts.write("xx.txt", table);
    qputenv("SIDEKIN_TEXTS_DIR", texts.path().toUtf8());
    setNlsLanguage(QStringLiteral("xx"));
    ASSERT_EQ(NLSInit(0), 1);
}

void StartupFixture::writeHostIni(const QByteArray& text) { config.write("zentrovar.ini", text); }

}  // namespace sidekin::test
