#include <QComboBox>
#include <QLineEdit>

#include "AppState.h"
#include "FileNameRules.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "HostCommands.h"
#include "HostConversation.h"
#include "Profile.h"
#include "ProfileKeys.h"
#include "RunControl.h"
#include "RunTable.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"
#include "platform/LegacyText.h"

namespace sidekin {

void SetRunTableVars() {
    handled("SetRunTableVars", [] {
        FrmOrq& form = frmORQ();
        DDEexecute(*form.ddeDummy, commands::SetRunTableVars(form.cboOperator->currentText(),
                                                             form.txtSubDir->text()));
    });
}

void ExecuteRun(std::int16_t row) {
    handled("ExecuteRun", [&] {
        FlexGrid& grid = frmORQ().fgrdRunTable->grid();
        if (grid.Rows() < 2) return;
        auto cell = [&](int col) { return grid.TextArray(grid.Cols() * row + col); };
        commands::SingleRun run;
        run.method = cell(ColMethod);
        run.sampleId = cell(ColSampleId);
        const QString injectionType = cell(ColInjectionType);
        QString vial = cell(ColVial);
        run.dataFile = cell(ColDataFile);
        run.sampleAmount = cell(ColSampleAmount);
        run.istdAmount = cell(ColIstdAmount);
        run.sampleInfo = cell(ColSampleInfo);

        const QString injectorFile =
            App.GlblMethodDir + run.method + QStringLiteral(".M\\") + profile::InjectorFileName;
        const QString injector =
            GetPvtProfileStr(profile::Injector, profile::MethodInjectors, injectorFile);
        const QString noVial = GetResourceString(17042);
        if (injector == QLatin1String("3")) {
            dialogs().messageBox(
                BoxStyle::ExclamationOk,
                ReplaceString(GetResourceString(17218), QStringLiteral("<NAME>"), run.method),
                GetResourceString(17266));
            return;
        }
        if (injector == QLatin1String("2")) {
            run.injector = 2;
            if (injectionType == GetResourceString(17045) && vial != noVial)
                vial = CStr(CDbl(vial) + 200);
        } else {
            if (injector != QLatin1String("1"))
                dialogs().messageBox(BoxStyle::ExclamationOk, GetResourceString(17216),
                                     GetResourceString(17266));
            run.injector = 1;
            if (injectionType == GetResourceString(17044) && vial != noVial)
                vial = CStr(CDbl(vial) + 100);
        }
        if (injectionType == GetResourceString(17048)) vial = QStringLiteral("0");
        if (vial != noVial) run.vial = Val(vial);

        LinkTextBox& link = *frmORQ().ddeDummy;
        DDEExecut_LoadMethod(link, commands::PrepareSingleRun(run));
        DDEExecute_RunMethod(link, commands::HostStart(row));
    });
}

}  // namespace sidekin
