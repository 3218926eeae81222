#pragma once

#include <QColor>
#include <QLabel>
#include <QLineEdit>

#include "AppState.h"
#include "CPLinks.h"
#include "FrmOrq.h"
#include "Nls.h"
#include "StartupFixture.h"
#include "StatusEvents.h"

namespace sidekin::test {

// Fresh main form and mailbox per case, the status events wired as at start-up.
class StatusFixture : public StartupFixture {
protected:
    void SetUp() override {
        StartupFixture::SetUp();
        unloadFrmORQ();
        unloadCPLinks();
        wireStatusEvents();
    }
    void TearDown() override {
        unloadCPLinks();
        unloadFrmORQ();
        qunsetenv("SIDEKIN_TEXTS_DIR");
        StartupFixture::TearDown();
    }

    // As the item feed delivers a value: blank-padded to 80 characters.
    static void hostSends(QLineEdit* box, const QString& value) {
        box->setText(value.leftJustified(80, u' ', true));
    }
    static void systemStatus(const QString& value) { hostSends(cpLinks().ddeSystemStatus, value); }
    static void statusTime(const QString& value) { hostSends(cpLinks().ddeStatusTime, value); }

    // A made-up language whose table holds only these texts.
    void useTexts(const QByteArray& table) {
        texts.write("xx.txt", table);
        qputenv("SIDEKIN_TEXTS_DIR", texts.path().toUtf8());
        setNlsLanguage("xx");
        ASSERT_EQ(NLSInit(0), 1);
    }

    static QLabel* ready() { return frmORQ().lblSysStatusReady; }
    static QLabel* method() { return frmORQ().lblSysStatusMethod; }
    static QLabel* timeLabel() { return frmORQ().lblStatusTime; }
    static QColor background(const QLabel* label) {
        return label->palette().color(QPalette::Window);
    }
    static QColor ink(const QLabel* label) { return label->palette().color(QPalette::WindowText); }

    TempFolder texts;
};

}  // namespace sidekin::test
