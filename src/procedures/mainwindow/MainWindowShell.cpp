#include "MainWindowShell.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

#include "AppState.h"
#include "FlexGridView.h"
#include "FontCharset.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "Help.h"
#include "Labels.h"
#include "Profile.h"
#include "RunTable.h"
#include "Sleep.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"
#include "platform/Events.h"
#include "platform/Screen.h"

namespace sidekin {

void Form_Load(FrmOrq& form) {
    handled("Form_Load", [&] {
        applyFontCharset(*form.lblCurrentRun, readFontCharset());
        App.GlblOperator.clear();
        App.GlblCurrentRun = 0;
        App.GlblEditOpen = 0;
        InitializeLabelsAndButtons();
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

namespace {

// Positions in twips, in single precision, as the design speaks of them.
float topTwips(const QWidget& w) { return w.y() * TwipsPerPixelY(); }
void setTopTwips(QWidget& w, float top) { w.move(w.x(), twipsToPixelsY(top)); }

}  // namespace

void Form_Resize(FrmOrq& form) {
    handled("Form_Resize", [&] {
        const QRect outer = form.frameGeometry();
        const float width = outer.width() * TwipsPerPixelX();
        const float height = outer.height() * TwipsPerPixelY();
        FlexGridView& grid = *form.fgrdRunTable;
        if (width > 1000) grid.resize(twipsToPixelsX(width - 1000), grid.height());
        if (height > 4850) {
            for (QPushButton* b : {form.cmdRnTblAdd, form.cmdRnTblEdit, form.cmdInstructions,
                                   form.cmdRnTblDel, form.cmdRnTblClear, form.cmdRnTblPrint})
                setTopTwips(*b, height - 1000);
            const float gridHeight = topTwips(*form.cmdRnTblAdd) - topTwips(grid) - 165;
            grid.resize(grid.width(), twipsToPixelsY(gridHeight));
        }
    });
}

void Form_KeyDown(FrmOrq&, int keyCode) {
    if (keyCode != 112) return;
    const QString topic = QStringLiteral("662742667--v1.htm");
    showHelpTopic(topic, topic);
}

}  // namespace sidekin
