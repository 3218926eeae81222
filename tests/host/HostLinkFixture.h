#pragma once

#include <QCoreApplication>
#include <QTest>
#include <functional>
#include <ostream>

#include "AppState.h"
#include "CPLinks.h"
#include "ErrorOf.h"
#include "FakeHost.h"
#include "FormsFixture.h"
#include "FrmOrq.h"
#include "ItemFeed.h"
#include "platform/RuntimeError.h"

namespace sidekin::test {

// A fresh program, forms unwired, whose "zentrovar.ini" names the services online and offline
// for instrument 1, which is selected, online.
class HostLinkFixture : public StartupFixture {
protected:
    void SetUp() override {
        StartupFixture::SetUp();
        FormsFixture::unloadForms();
        writeHostIni("[PCS,1]\n_DDEOnLine=" + online.toUtf8() +
                     "\n_DDEOffLine=" + offline.toUtf8() + "\n");
        App.GlblInstrument = 1;
        App.GlblOffline = QStringLiteral("0");
    }

    void TearDown() override {
        FormsFixture::unloadForms();
        StartupFixture::TearDown();
    }

    // Bounded wait for the program to have served what the host sent.
    static bool serveUntil(const std::function<bool()>& done, int ms = 5000) {
        return QTest::qWaitFor(done, ms);
    }

    // What the dialogs show for one plain box.
    static std::vector<Shown> plainBox(const QString& text, const QString& title) {
        return {{Shown::Box, BoxStyle::Plain, text, title}};
    }

    // Unique per process: tests may run in parallel and a name serves one host only.
    static QString uniqueService(const char* base) {
        return QLatin1String(base) + QString::number(QCoreApplication::applicationPid());
    }
    const QString online = uniqueService("TestHost");
    const QString offline = uniqueService("TestHostOff");
};

}  // namespace sidekin::test
