#pragma once

#include <QColor>
#include <QLabel>
#include <QLineEdit>

#include "AppState.h"
#include "CPLinks.h"
#include "FormsFixture.h"
#include "FrmOrq.h"

namespace sidekin::test {

class StatusFixture : public FormsFixture {
protected:
    // As the item feed delivers a value: blank-padded to 80 characters.
    static void hostSends(QLineEdit* box, const QString& value) {
        box->setText(value.leftJustified(80, u' ', true));
    }
    static void systemStatus(const QString& value) { hostSends(cpLinks().ddeSystemStatus, value); }
    static void statusTime(const QString& value) { hostSends(cpLinks().ddeStatusTime, value); }

    static QLabel* ready() { return frmORQ().lblSysStatusReady; }
    static QLabel* method() { return frmORQ().lblSysStatusMethod; }
    static QLabel* timeLabel() { return frmORQ().lblStatusTime; }
    static QColor background(const QLabel* label) {
        return label->palette().color(QPalette::Window);
    }
};

}  // namespace sidekin::test
