#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "AppState.h"
#include "Counters.h"
#include "EntryFormProcedures.h"
#include "EntryFormTools.h"
#include "EntryForms.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "HostCommands.h"
#include "HostConversation.h"
#include "LinkTextBox.h"
#include "MethodSelection.h"
#include "Profile.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"
#include "platform/LegacyText.h"
#include "platform/ListControls.h"

namespace sidekin {

namespace {

const QString Front = QStringLiteral("Front");

struct VialType {
    int type, caption, tip, offset;
};
constexpr VialType Autosampler{17046, 17060, 17160, 0};
constexpr VialType FrontTower{17044, 17061, 17161, 100};
constexpr VialType BackTower{17045, 17062, 17162, 200};

QString ask(const QString& command, const QString& variable) {
    LinkTextBox& link = *frmORQ().ddeDummy;
    DDEexecute(link, command);
    DDERequest(link, variable);
    return link.text();
}

void askRange(const QString& injector, QString& lower, QString& upper) {
    const QString reply =
        ask(commands::InjectorVialRange(injector == Front ? 1 : 2), commands::TextVariable);
    lower = GetParameter(reply, 1, QStringLiteral(","));
    upper = GetParameter(reply, 2, QStringLiteral(","));
}

EntryForm* formNamed(const QString& name) {
    if (name == QLatin1String("frmRnTblAdd")) return &frmRnTblAdd();
    if (name == QLatin1String("frmRnTblEdit")) return &frmRnTblEdit();
    return nullptr;
}

void setVialCaption(EntryForm& frm, int captionId, int tipId) {
    frm.lblVial->setText(GetResourceString(captionId));
    frm.cboVialNum->setToolTip(GetResourceString(tipId));
}

// Appends the vial-zero entry and first..last, then chooses the pair's default.
void fillVials(EntryForm& frm, const QString& section, std::int16_t first, std::int16_t last) {
    const QString none = GetResourceString(17042);
    AddItem(*frm.cboVialNum, none);
    for (std::int32_t v = first; v <= last; ++v) AddItem(*frm.cboVialNum, CStr(v));
    const QString chosen = GetPvtProfileStr(section, profile::VialNumDefault, App.GlblIniFile);
    const double number = CDbl(chosen);
    if (number == -1) {
        setListText(*frm.cboVialNum, QStringLiteral("1"));
    } else if (chosen == QLatin1String("0")) {
        setListText(*frm.cboVialNum, none);
    } else if (number < first || number > last) {
        exclaim(17215, 17266, {{"<NUMBER1>", chosen}, {"<NUMBER2>", CStr(first)}});
        setListText(*frm.cboVialNum, CStr(first));
    } else {
        setListText(*frm.cboVialNum, chosen);
    }
}

}  // namespace

void MethodClick(EntryForm& frm) {
    handled("MethodClick", [&] {
        const QString section = pairSection(frm);
        const QString& ini = App.GlblIniFile;
        const QString method = frm.cboMethod->currentText();

        // Phase 1: the pair's defaults.
        QString naming = GetPvtProfileStr(section, profile::DataFileNaming, ini);
        QString dataFile = GetPvtProfileStr(section, profile::DataFile, ini);
        QString istd = GetPvtProfileStr(section, profile::SampleISTDEnable, ini);
        if (dataFile == profile::Missing) dataFile.clear();
        if (naming == profile::Missing) naming = profile::Manual;
        if (istd == profile::Missing) istd = QStringLiteral("1");
        if (naming == profile::Manual) {
            frm.txtDataFile->setText(dataFile);
            frm.txtDataFile->setReadOnly(false);
            setBackColour(*frm.txtDataFile, false);
        } else if (naming == profile::PrefixCounter) {
            frm.txtDataFile->setText(PeekNextFileName(frm.cboSample->currentText(), method));
            frm.txtDataFile->setReadOnly(true);
            setBackColour(*frm.txtDataFile, true);
        }
        if (istd == QLatin1String("0") || istd == QLatin1String("1")) {
            const bool enable = istd == QLatin1String("1");
            for (QLineEdit* amount : {frm.txtSampleAmt, frm.txtISTDAmt}) {
                amount->setEnabled(enable);
                setBackColour(*amount, !enable);
            }
        }
        frm.txtInfoLine->setPlainText(GetPvtProfileStr(section, profile::InfoLine, ini));
        if (frm.txtInfoLine->toPlainText() == profile::Missing) frm.txtInfoLine->clear();
        frm.txtInjType->clear();

        // Phase 2: the injector.
        const QString injectorFile =
            App.GlblMethodDir + method + profile::MethodFolderSuffix + profile::InjectorFileName;
        const QString source =
            GetPvtProfileStr(profile::Injector, profile::InjectionSource, injectorFile);
        const QString injectors =
            GetPvtProfileStr(profile::Injector, profile::MethodInjectors, injectorFile);
        QString injector = Front;
        if (injectors == QLatin1String("2")) {
            injector = QStringLiteral("Back");
        } else if (injectors == QLatin1String("3")) {
            exclaim(17218, 17266, {{"<NAME>", method}});
            if (frm.Name() == QLatin1String("frmRnTblAdd"))
                ClearFrmRnTblAddEntries(frmRnTblAdd());
            else if (frm.Name() == QLatin1String("frmRnTblEdit"))
                frmRnTblEdit().hide();
            return;
        }

        // Phase 3: the source.
        const auto contains = [&](const QString& text) { return source.contains(text); };
        enum { Injector, ManualSource, Valve } kind = ManualSource;
        if (contains(GetResourceString(17321)) || contains(QStringLiteral("ZE GC Injector"))) {
            kind = Injector;
        } else if (contains(GetResourceString(17322))) {
            kind = ManualSource;
        } else if (contains(GetResourceString(17323)) ||
                   contains(QStringLiteral("4430 GC Valve"))) {
            kind = Valve;
        } else {
            exclaim(17221, 17266);
        }

        if (kind == Injector) {
            // Phase 4: the range the injector reaches.
            QString lower;
            QString upper;
            std::int16_t is4420 = 0;
            std::int16_t is4430 = 0;
            const std::int16_t is4410 = CInt(ask(commands::TestFor4410, commands::NumberVariable));
            if (is4410 != 0) {
                Get4410VialRange(injector, lower, upper);
            } else {
                is4420 = CInt(ask(commands::TestFor4420, commands::NumberVariable));
                if (is4420 == 0)
                    is4430 = CInt(ask(commands::TestFor4430, commands::NumberVariable));
                if (is4420 == 1 || is4430 == 1)
                    GetDriverVialRange(injector, lower, upper, is4420);
                else
                    askRange(injector, lower, upper);
            }
            if (Val(lower) == 0) {
                EntryForm* form = formNamed(frm.Name());
                if (form) form->setEnabled(false);
                DDEExecut_LoadMethod(*frmORQ().ddeDummy, commands::LoadMethod(method));
                if (form) form->setEnabled(true);
                if (is4410 == 0)
                    askRange(injector, lower, upper);
                else
                    Get4410VialRange(injector, lower, upper);
            }

            // Phase 5: the list.
            const double lowest = Val(lower);
            std::int16_t offset = 0;
            const VialType* type = nullptr;
            if (lowest == 0) {
                if (Val(upper) == 999) {
                    exclaim(17219, 17266);
                    return;
                }
            } else if (lowest == 1) {
                type = &Autosampler;
            } else if (lowest == 101) {
                type = &FrontTower;
            } else if (lowest == 201) {
                type = &BackTower;
            } else {
                exclaim(17220, 17266);
                return;
            }
            if (type) {
                offset = toInt16(type->offset);
                setVialCaption(frm, type->caption, type->tip);
                frm.txtInjType->setText(GetResourceString(type->type));
                ClearList(*frm.cboVialNum);
            }
            fillVials(frm, section, CInt(Val(lower) - offset), CInt(Val(upper) - offset));
        } else if (kind == Valve) {
            // Phase 6: the valve's 32 fixed positions.
            setVialCaption(frm, 17063, 17163);
            ClearList(*frm.cboVialNum);
            frm.txtInjType->setText(GetResourceString(17047));
            fillVials(frm, section, 1, 32);
        } else {
            // Phase 7: by hand, one entry for the side.
            setVialCaption(frm, 17059, 17159);
            ClearList(*frm.cboVialNum);
            frm.txtInjType->setText(GetResourceString(17048));
            const QString only = GetResourceString(injector == Front ? 17040 : 17041);
            AddItem(*frm.cboVialNum, only);
            setListText(*frm.cboVialNum, only);
        }

        // Phase 8: injections.
        setListText(*frm.cboInjVial,
                    GetPvtProfileStr(section, profile::InjVialDefault, App.GlblIniFile));
    });
}

}  // namespace sidekin
