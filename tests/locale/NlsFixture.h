#pragma once

#include <gtest/gtest.h>

#include <optional>

#include "AppState.h"
#include "G11n.h"
#include "Nls.h"
#include "ScriptedDialogs.h"
#include "TempFolder.h"

namespace sidekin::test {

// Starts each case as a fresh process: no table open, no language chosen,
// no lab folder, whatever the environment of the test run says.
class NlsFixture : public ::testing::Test {
protected:
    void SetUp() override {
        savedLang = saved("SIDEKIN_LANG");
        savedDir = saved("SIDEKIN_TEXTS_DIR");
        qunsetenv("SIDEKIN_LANG");
        qunsetenv("SIDEKIN_TEXTS_DIR");
        resetAppState();
        resetNls();
    }
    void TearDown() override {
        restore("SIDEKIN_LANG", savedLang);
        restore("SIDEKIN_TEXTS_DIR", savedDir);
        resetNls();
    }

    // Puts a table into the lab folder and makes the library look there.
    void labTable(const QString& language, const QByteArray& content) {
        lab.write(language + ".txt", content);
        qputenv("SIDEKIN_TEXTS_DIR", lab.path().toUtf8());
    }

    // The whole text of id, as the library holds it, without the 150 cut.
    static QString fullText(int id) {
        char16_t buffer[1000];
        const int n = NLSLoadStringW(0, id, buffer, 1000);
        return QString::fromUtf16(buffer, n);
    }

    ScriptedDialogs dialogs;
    TempFolder lab;

private:
    static std::optional<QByteArray> saved(const char* name) {
        if (!qEnvironmentVariableIsSet(name)) return std::nullopt;
        return qgetenv(name);
    }
    static void restore(const char* name, const std::optional<QByteArray>& value) {
        if (value)
            qputenv(name, *value);
        else
            qunsetenv(name);
    }
    std::optional<QByteArray> savedLang;
    std::optional<QByteArray> savedDir;
};

}  // namespace sidekin::test
