#include "CommandLine.h"

#include <optional>

#include "AppState.h"
#include "G11n.h"
#include "Profile.h"
#include "ProfileKeys.h"
#include "platform/Clock.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"
#include "platform/Events.h"
#include "platform/LegacyText.h"
#include "platform/ProfileFile.h"
#include "platform/WindowSystem.h"

namespace sidekin {

namespace {

constexpr double HostSearchSeconds = 3.0;
constexpr int TitleChars = 14;  // a count of 15 leaves room for the end mark

// Takes the next field off the front of cmd; nullopt when it is absent
// (an empty field between bars, a leading bar, or nothing left).
std::optional<QString> takeField(QString& cmd) {
    const int pos = InStr(cmd, QStringLiteral("|"));
    if (cmd.isEmpty() || pos == 1) {
        if (pos == 1) cmd = Trim(Mid(cmd, 2));
        return std::nullopt;
    }
    if (pos == 0) {
        QString field = Trim(cmd);
        cmd.clear();
        return field;
    }
    QString field = Trim(Left(cmd, pos - 1));
    cmd = Trim(Mid(cmd, pos + 1));
    return field;
}

void searchViewMgr() {
    WindowSystem& windows = windowSystem();
    const float start = Timer();
    for (;;) {
        App.GlblViewMgrWnd = windows.firstChild(App.GlblHostWnd);
        while (App.GlblViewMgrWnd != 0) {
            DoEvents();
            if (InStr(windows.title(App.GlblViewMgrWnd, TitleChars), QStringLiteral("ViewMGR")) > 0)
                break;
            App.GlblViewMgrWnd = windows.nextSibling(App.GlblViewMgrWnd);
        }
        // Past midnight the difference turns negative and the limit no longer holds.
        const float elapsed = Timer() - start;
        if (elapsed > HostSearchSeconds || App.GlblViewMgrWnd != 0) return;
        clock().pause(0.05);  // lets the host build its windows without a busy spin
    }
}

void parseHandle(QString& cmd) {
    const int pos = InStr(cmd, QStringLiteral("|"));
    if (cmd.isEmpty() || pos == 1) {
        App.GlblHostWnd = 0;
        App.GlblViewMgrWnd = 0;
        if (pos == 1) cmd = Trim(Mid(cmd, 2));
        return;
    }
    if (pos == 0) {
        double handle = Val(cmd);
        // One less than 2^32, kept: 4294967295 gives 0 and 2147483648 gives -2147483647.
        if (handle > 2147483647.0) handle -= 4294967295.0;
        App.GlblHostWnd = CLng(handle);
        cmd.clear();
    } else {
        App.GlblHostWnd = CLng(Val(Left(cmd, pos - 1)));
        cmd = Trim(Mid(cmd, pos + 1));
    }
    searchViewMgr();
}

// The odd test of the legacy lookup: the buffer's number is the start position
// of a search for "1" in "ZECORE", which never finds it.
int testServiceBuffer(const QString& buffer) {
    return InStr(CLng(UpToNul(buffer)), QStringLiteral("ZECORE"), QStringLiteral("1"));
}

void readServiceKey(const QString& section, const QString& key, QString& buffer) {
    QString value;
    const int count =
        GetPrivateProfileStringA(section, key, QString(5, u' '), value, 19, profile::HostIniFile);
    buffer.replace(0, count + 1, value.left(count) + QChar(u'\0'));
}

void lookUpService() {
    QString buffer(20, u' ');
    for (int counter = 1; counter <= 4; ++counter) {
        const QString section = profile::PcsPrefix + QString::number(counter);
        readServiceKey(section, profile::DdeOnline, buffer);
        if (testServiceBuffer(buffer) == 0) readServiceKey(section, profile::DdeOffline, buffer);
        if (testServiceBuffer(buffer) > 0) {
            App.GlblDDEApp = UpToNul(buffer);
            break;
        }
    }
    if (testServiceBuffer(buffer) == 0) {
        App.GlblDDEApp.clear();
        dialogs().messageBox(BoxStyle::Critical, GetResourceString(17217),
                             GetResourceString(17266));
        endProgram();
    }
}

}  // namespace

void ParseCommandLine(const QString& commandLine) {
    handled("ParseCommandLine", [&] {
        QString cmd = Trim(commandLine);
        parseHandle(cmd);

        if (auto service = takeField(cmd))
            App.GlblDDEApp = *service;
        else
            lookUpService();

        if (auto folder = takeField(cmd))
            App.GlblOrqDir = Mid(*folder, 2, folder->size() - 2);
        else
            App.GlblOrqDir = DefaultOrqDir;

        if (auto instrument = takeField(cmd))
            App.GlblInstrument = CInt(Trim(*instrument));
        else
            App.GlblInstrument = 1;

        App.GlblOffline = cmd.isEmpty() ? QStringLiteral("0") : Trim(cmd);
    });
}

}  // namespace sidekin
