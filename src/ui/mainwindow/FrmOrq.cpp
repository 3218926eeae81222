#include "FrmOrq.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <memory>

#include "Captions.h"
#include "FlexGridView.h"
#include "LinkTextBox.h"
#include "platform/Screen.h"

namespace sidekin {

namespace {

std::unique_ptr<FrmOrq> instance;
void (*loader)(FrmOrq&) = nullptr;

QRect twipsRect(int left, int top, int width, int height) {
    return {twipsToPixelsX(left), twipsToPixelsY(top), twipsToPixelsX(width),
            twipsToPixelsY(height)};
}

template <typename Control>
Control* place(QWidget* parent, const char* name, int left, int top, int width, int height) {
    auto* control = new Control(parent);
    control->setObjectName(QLatin1String(name));
    control->setGeometry(twipsRect(left, top, width, height));
    return control;
}

}  // namespace

FrmOrq::FrmOrq() {
    setObjectName(QStringLiteral("frmORQ"));
    resize(twipsToPixelsX(11025), twipsToPixelsY(4335));

    fraRunStatus = place<QGroupBox>(this, "fraRunStatus", 270, 90, 3555, 975);
    fraSystemStatus = place<QGroupBox>(this, "fraSystemStatus", 3960, 90, 3150, 975);
    fraRunTableControl = place<QGroupBox>(this, "fraRunTableControl", 7245, 90, 3510, 975);

    lblCurrentRun = place<QLabel>(fraRunStatus, "lblCurrentRun", 120, 240, 3315, 300);
    lblStatusTime = place<QLabel>(fraRunStatus, "lblStatusTime", 120, 585, 3315, 300);
    lblSysStatusReady = place<QLabel>(fraSystemStatus, "lblSysStatusReady", 120, 240, 2910, 300);
    lblSysStatusMethod = place<QLabel>(fraSystemStatus, "lblSysStatusMethod", 120, 585, 2910, 300);
    cmdStartPauseResume =
        place<QPushButton>(fraRunTableControl, "cmdStartPauseResume", 240, 330, 1440, 420);
    cmdStop = place<QPushButton>(fraRunTableControl, "cmdStop", 1830, 330, 1440, 420);

    lblRunTable = place<QLabel>(this, "lblRunTable", 900, 1215, 1200, 255);
    lblOperator = place<QLabel>(this, "lblOperator", 2280, 1215, 1000, 255);
    cboOperator = place<QComboBox>(this, "cboOperator", 3330, 1170, 2600, 315);
    lblSubDir = place<QLabel>(this, "lblSubDir", 6120, 1215, 1650, 255);
    txtSubDir = place<QLineEdit>(this, "txtSubDir", 7800, 1170, 3225, 315);
    // The captions carry access keys that move to the field beside them.
    lblOperator->setBuddy(cboOperator);
    lblSubDir->setBuddy(txtSubDir);

    lblAdjRunOrder = place<QLabel>(this, "lblAdjRunOrder", 60, 1530, 780, 735);
    lblAdjRunOrder->setWordWrap(true);
    cmdUp = place<QPushButton>(this, "cmdUp", 240, 2340, 495, 495);
    cmdDown = place<QPushButton>(this, "cmdDown", 240, 2940, 495, 495);
    cmdUp->setText(QStringLiteral("\u25B2"));
    cmdDown->setText(QStringLiteral("\u25BC"));

    cmdRnTblAdd = place<QPushButton>(this, "cmdRnTblAdd", 720, 3870, 1440, 375);
    cmdRnTblEdit = place<QPushButton>(this, "cmdRnTblEdit", 2415, 3870, 1440, 375);
    cmdInstructions = place<QPushButton>(this, "cmdInstructions", 4110, 3870, 1440, 375);
    cmdRnTblDel = place<QPushButton>(this, "cmdRnTblDel", 5790, 3870, 1440, 375);
    cmdRnTblClear = place<QPushButton>(this, "cmdRnTblClear", 7485, 3870, 1440, 375);
    cmdRnTblPrint = place<QPushButton>(this, "cmdRnTblPrint", 9180, 3870, 1440, 375);
    fgrdRunTable = place<FlexGridView>(this, "fgrdRunTable", 900, 1530, 10125, 2175);
    for (QPushButton* b :
         {cmdRnTblAdd, cmdRnTblEdit, cmdRnTblDel, cmdRnTblPrint, cmdStartPauseResume, cmdStop})
        b->setEnabled(false);

    ddeDummy = place<LinkTextBox>(this, "ddeDummy", 0, 4500, 1000, 285);
    ddeShowORQ = place<LinkTextBox>(this, "ddeShowORQ", 1100, 4500, 1000, 285);
    txtSampleLoc = place<QLineEdit>(this, "txtSampleLoc", 2200, 4500, 1000, 285);
    for (QLineEdit* hidden :
         {static_cast<QLineEdit*>(ddeDummy), static_cast<QLineEdit*>(ddeShowORQ), txtSampleLoc})
        hidden->hide();
    // Captions start at the top left, so a host text with a line end keeps its first line in view.
    for (QLabel* label : findChildren<QLabel*>()) label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    applyDesignCaptions(*this);
}

void FrmOrq::setTopTwips(float top) {
    top_ = top;
    applyPosition();
}

void FrmOrq::setLeftTwips(float left) {
    left_ = left;
    applyPosition();
}

void FrmOrq::applyPosition() { move(twipsToPixelsX(left_), twipsToPixelsY(top_)); }

FrmOrq& frmORQ() {
    if (!instance) {
        // Kept before Form_Load runs: events served inside it may touch the form.
        instance = std::make_unique<FrmOrq>();
        if (loader) loader(*instance);
    }
    return *instance;
}

void setFrmOrqLoader(void (*load)(FrmOrq&)) { loader = load; }

bool frmORQLoaded() { return instance != nullptr; }

void unloadFrmORQ() { instance.reset(); }

}  // namespace sidekin
