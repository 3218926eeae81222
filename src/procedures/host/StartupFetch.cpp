#include "StartupFetch.h"

#include <QLineEdit>
#include <algorithm>

#include "AppState.h"
#include "CPLinks.h"
#include "ItemFeed.h"
#include "LinkProtocol.h"
#include "ProfileKeys.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"
#include "platform/Events.h"
#include "platform/LegacyText.h"

namespace sidekin {

namespace {

// The folder part of a path item, up to and including its last separator.
// The host may write folders either way round.
QString folderOf(const QString& value) {
    const qsizetype last = std::max(value.lastIndexOf(u'\\'), value.lastIndexOf(u'/'));
    return value.left(last + 1);
}

}  // namespace

void FillArray() {
    handled("FillArray", [] {
        // The paths come first: GlblIniFile must stand before a status item loads frmORQ.
        const char* items[] = {"_DATAPATH$",       "_INSTPATH$",     "_METHPATH$",
                               "GUISystemStatus$", "GUIStatusTime$", "ORQ_RunEngineStatus$"};
        std::int16_t index = -1;
        for (const char* item : items) {
            index = add16(index, 1);
            App.DDEItems[index] = QLatin1String(item);
            App.DDEItemsLast = index;
        }
    });
}

std::int16_t Fetch() {
    std::int16_t result = 0;
    handled("Fetch", [&] {
        if (itemfeed::DDE_Initiate(App.GlblDDEApp, link::TopicNoWait) != 0) {
            for (int i = 0; i <= App.DDEItemsLast; ++i)
                itemfeed::DDE_RequestFromVB(App.DDEItems[i]);
            bool requested = false;
            for (int i = 0; i <= App.DDEItemsLast; ++i)
                requested = itemfeed::DDE_Request(App.DDEItems[i]) != 0;  // only the last counts
            if (requested) {
                result = -1;
                DoEvents();
            }
        }
        // Answers 0 on every path, so the start-up box appears each time.
        result = 0;
    });
    return result;
}

void OpenDDELinks() {
    handled("OpenDDELinks", [] {
        FillArray();
        cpLinks();
        if (Fetch() == 0)
            dialogs().messageBox(BoxStyle::Plain,
                                 QStringLiteral("DDE Initialization NOT Successful !"),
                                 QStringLiteral("VB DDE Error"));
    });
}

void Form_KeyPress(int keyAscii) {
    handled("Form_KeyPress", [&] {
        App.DDEItemIndex = static_cast<std::int16_t>(keyAscii);
        DoEvents();
        // Read after the yield: a notice served meanwhile may have changed it.
        if (App.DDEItemIndex < 0 || App.DDEItemIndex >= static_cast<int>(App.DDEItems.size()))
            raiseError(ErrSubscript);
        GetData(App.DDEItems[App.DDEItemIndex]);
    });
}

void GetData(const QString& item) {
    handled("GetData", [&] {
        const QString value = GetstringVal(item);
        CPLinks& links = cpLinks();
        if (item == QLatin1String("_DATAPATH$")) {
            links.txtDataPath->setText(value);
            App.GlblDataDir = Trim(folderOf(value));
        } else if (item == QLatin1String("_INSTPATH$")) {
            links.txtInstPath->setText(value);
            const QString folder = folderOf(value);
            App.GlblInstDir = folder;
            App.GlblIniFile = Trim(folder + profile::OrqIniName);
        } else if (item == QLatin1String("_METHPATH$")) {
            links.txtMethPath->setText(value);
            App.GlblMethodDir = Trim(folderOf(value));
        } else if (item == QLatin1String("GUISystemStatus$")) {
            links.ddeSystemStatus->setText(value);
        } else if (item == QLatin1String("GUIStatusTime$")) {
            links.ddeStatusTime->setText(value);
        } else if (item == QLatin1String("ORQ_RunEngineStatus$")) {
            links.ddeRunEngineStatus->setText(value);
        }
    });
}

QString GetstringVal(const QString& item) {
    QString result;
    handled("GetstringVal", [&] {
        QString buffer(itemfeed::MaxValueChars, u' ');
        const QString value = GetStringValFromVC(item, buffer, itemfeed::MaxValueChars);
        result = value.leftJustified(itemfeed::MaxValueChars, u' ', true);
    });
    return result;
}

QString GetStringValFromVC(const QString& item, QString& buffer, int /*length*/) {
    QString result;
    handled("GetStringValFromVC", [&] {
        QString data;
        const std::int16_t n = itemfeed::GetDDEDataBuffer(item, data);
        buffer = Left(data, n);
        result = buffer;
    });
    return result;
}

}  // namespace sidekin
