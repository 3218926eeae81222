#include "HostConversation.h"

#include "AppState.h"
#include "LinkProtocol.h"
#include "LinkTextBox.h"
#include "Profile.h"
#include "ProfileKeys.h"
#include "platform/Clock.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"
#include "platform/LegacyText.h"

namespace sidekin {

namespace {

constexpr int WaitTimeout = 600;  // tenths of a second
constexpr int RunTimeout = 6000;
constexpr float RunStartSeconds = 45.0f;

void openLink(LinkTextBox& link, int timeout, const QString& topic) {
    const QString service = chooseService();
    link.setLinkMode(LinkTextBox::None);
    link.LinkTimeout = timeout;
    link.LinkTopic = service + QLatin1Char('|') + topic;
}

}  // namespace

QString chooseService() {
    const QString key =
        CDbl(App.GlblOffline) == 1.0 ? QStringLiteral("_DDEOFFLINE") : QStringLiteral("_DDEONLINE");
    return GetProfileStr(profile::PcsPrefix + CStr(App.GlblInstrument), key);
}

void DDERequest(LinkTextBox& link, const QString& item) {
    handled("DDERequest", [&] {
        const QString service = chooseService();
        link.setText(QString());
        link.setLinkMode(LinkTextBox::None);
        link.LinkTimeout = WaitTimeout;
        link.LinkTopic = service + QLatin1Char('|') + link::TopicWait;
        link.LinkItem = item;
        link.setLinkMode(LinkTextBox::Manual);
        link.LinkRequest();
        const QString reply = link.text();
        link.setText(Trim(Left(reply, static_cast<int>(reply.size()) - 2)));
    });
}

void DDEexecute(LinkTextBox& link, const QString& command) {
    handled("DDEexecute", [&] {
        openLink(link, WaitTimeout, link::TopicWait);
        link.setLinkMode(LinkTextBox::Manual);
        link.LinkExecute(command);
    });
}

void DDEExecut_LoadMethod(LinkTextBox& link, const QString& command) {
    handled("DDEExecut_LoadMethod", [&] {
        openLink(link, WaitTimeout, link::TopicNoWait);
        link.setLinkMode(LinkTextBox::Manual);
        App.GlblMethodLoaded = 0;
        link.LinkExecute(command);
        // No limit: a host that never reports keeps the program here, serving the operator.
        while (App.GlblMethodLoaded == 0) clock().waitForEvents(3600.0);
        App.GlblMethodLoaded = 0;
    });
}

void DDEExecute_RunMethod(LinkTextBox& link, const QString& command, int pendingError) {
    // Only an error number 1 left pending by the caller takes the "Custom::" path.
    const std::int16_t pending = toInt16(pendingError);
    if (pending < 0 || pending > 255) raiseError(ErrInvalidCall);
    if (pending == 1) {
        dialogs().messageBox(BoxStyle::Critical,
                             QStringLiteral("Custom::") + errorDescription(pending),
                             QStringLiteral("DDEExecute_RunMethod"));
        return;
    }

    openLink(link, RunTimeout, link::TopicNoWait);
    link.setLinkMode(LinkTextBox::Manual);
    App.GlblRunStarted = 0;

    try {
        link.LinkExecute(command);
    } catch (const RuntimeError&) {
        // Not reported: the wait below decides.
    }
    const float start = Timer();
    const float end = start + RunStartSeconds;
    float now = start;
    do {
        clock().waitForEvents(end - now);
        now = Timer();
        if (now < start) now += 86400.0f;  // the clock wrapped at midnight
        if (App.GlblRunStarted != 0) break;
    } while (now < end);
    App.GlblRunStarted = 0;
}

}  // namespace sidekin
