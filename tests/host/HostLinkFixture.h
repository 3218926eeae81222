#pragma once

#include <QCoreApplication>
#include <memory>

#include "AppState.h"
#include "CPLinks.h"
#include "ErrorOf.h"
#include "FormsFixture.h"
#include "FrmOrq.h"
#include "InProcessHost.h"
#include "ItemFeed.h"
#include "WaitUntil.h"
#include "platform/RuntimeError.h"

namespace sidekin::test {

// A fresh program, forms unwired, with an in-process host serving instrument 1
// online and offline; online is selected.
class HostLinkFixture : public StartupFixture {
protected:
    void SetUp() override {
        StartupFixture::SetUp();
        FormsFixture::unloadForms();
        host = std::make_unique<InProcessHost>(InProcessHost::defaultConfig(),
                                               QStringList{online, offline});
        qputenv("ZENTROVAR_CONFIG_DIR", host->configFolder().toUtf8());
        App.GlblInstrument = 1;
        App.GlblOffline = QStringLiteral("0");
        App.GlblDDEApp = online;
    }
    void TearDown() override {
        FormsFixture::unloadForms();
        host.reset();
        StartupFixture::TearDown();
    }

    static std::vector<Shown> plainBox(const QString& text, const QString& title) {
        return {{Shown::Box, BoxStyle::Plain, text, title}};
    }

    const QString online = QStringLiteral("TestHost");
    const QString offline = QStringLiteral("TestHostOff");
    std::unique_ptr<InProcessHost> host;
};

}  // namespace sidekin::test
