#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

#include "AppState.h"
#include "FlexGridView.h"
#include "FontCharset.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "MainWindowEvents.h"
#include "Profile.h"
#include "RunTable.h"
#include "Sleep.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"
#include "platform/Events.h"

namespace sidekin {

void Form_Load(FrmOrq& form) {
    handled("Form_Load", [&] {
        applyFontCharset(*form.lblCurrentRun, readFontCharset());
        App.GlblOperator.clear();
        App.GlblCurrentRun = 0;
        App.GlblEditOpen = 0;
        DoEvents();
        sleep(0.5f);
        const std::int16_t operators =
            CInt(Val(GetPvtProfileStr(profile::Operators, profile::NumOperators, App.GlblIniFile)));
        DoEvents();
        {
            // Filling the list is no operator's click; Qt would report the first item as one.
            const QSignalBlocker filling(form.cboOperator);
            for (std::int16_t n = 1; n <= operators; n = add16(n, 1))
                form.cboOperator->addItem(GetPvtProfileStr(
                    profile::Operators, profile::OperatorPrefix + QString::number(n),
                    App.GlblIniFile));
            form.cboOperator->setCurrentIndex(-1);
        }
        SetColumnHeaders(form.fgrdRunTable->grid());
        form.lblSubDir->hide();
        form.txtSubDir->hide();
        form.lblCurrentRun->setText(GetResourceString(17100));
        form.lblStatusTime->clear();
    });
}

}  // namespace sidekin
