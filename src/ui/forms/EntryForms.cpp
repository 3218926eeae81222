#include "EntryForms.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <memory>

#include "Captions.h"
#include "platform/Screen.h"

namespace sidekin {

namespace {

std::unique_ptr<FrmRnTblAdd> addForm;
std::unique_ptr<FrmRnTblEdit> editForm;
void (*addLoader)(FrmRnTblAdd&) = nullptr;
void (*editLoader)(FrmRnTblEdit&) = nullptr;

template <typename Control>
Control* make(QWidget* parent, const char* name) {
    auto* control = new Control(parent);
    control->setObjectName(QLatin1String(name));
    return control;
}

QLabel* label(QWidget* parent, const char* name, QWidget* buddy) {
    auto* l = make<QLabel>(parent, name);
    l->setBuddy(buddy);  // the access key moves to the field
    l->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return l;
}

void chain(std::initializer_list<QWidget*> order) {
    QWidget* previous = nullptr;
    for (QWidget* w : order) {
        if (previous) QWidget::setTabOrder(previous, w);
        previous = w;
    }
}

}  // namespace

EntryForm::EntryForm(const char* name, int heightTwips) {
    setObjectName(QLatin1String(name));
    setFixedSize(twipsToPixelsX(7185), twipsToPixelsY(heightTwips));

    cboSample = make<QComboBox>(this, "cboSample");
    cboMethod = make<QComboBox>(this, "cboMethod");
    txtSampleID = make<QLineEdit>(this, "txtSampleID");
    txtDataFile = make<QLineEdit>(this, "txtDataFile");
    txtSampleInfo = make<QPlainTextEdit>(this, "txtSampleInfo");
    txtSampleInfo->setTabChangesFocus(true);
    txtSampleInfo->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    cboVialNum = make<QComboBox>(this, "cboVialNum");
    cboInjVial = make<QComboBox>(this, "cboInjVial");
    cboInjVial->setEditable(true);
    cboInjVial->setInsertPolicy(QComboBox::NoInsert);
    txtSampleAmt = make<QLineEdit>(this, "txtSampleAmt");
    txtISTDAmt = make<QLineEdit>(this, "txtISTDAmt");

    lblSample = label(this, "lblSample", cboSample);
    lblMethod = label(this, "lblMethod", cboMethod);
    lblSampleID = label(this, "lblSampleID", txtSampleID);
    lblDataFile = label(this, "lblDataFile", txtDataFile);
    lblSampleInfo = label(this, "lblSampleInfo", txtSampleInfo);
    lblInjVial = label(this, "lblInjVial", cboInjVial);
    lblSampleAmt = label(this, "lblSampleAmt", txtSampleAmt);
    lblISTDAmt = label(this, "lblISTDAmt", txtISTDAmt);
    lblVial = label(this, "lblVial", cboVialNum);

    txtInjType = make<QLineEdit>(this, "txtInjType");
    txtInjType->setFocusPolicy(Qt::NoFocus);
    txtInjType->hide();

    Image1 = make<QLabel>(this, "Image1");
    Image1->setPixmap(
        style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(twipsToPixelsX(480)));

    txtInfoLine = make<QPlainTextEdit>(this, "txtInfoLine");
    txtInfoLine->setReadOnly(true);
    txtInfoLine->setFocusPolicy(Qt::NoFocus);
    QPalette dark = txtInfoLine->palette();
    dark.setColor(QPalette::Base, QColor(64, 64, 64));
    dark.setColor(QPalette::Text, Qt::white);
    txtInfoLine->setPalette(dark);
    QFont bold = txtInfoLine->font();
    bold.setBold(true);
    txtInfoLine->setFont(bold);

    btnClose = button("btnClose");
}

void EntryForm::place(QWidget* control, int left, int top, int width, int height) {
    control->setGeometry(twipsToPixelsX(left), twipsToPixelsY(top), twipsToPixelsX(width),
                         twipsToPixelsY(height));
}

QLabel* EntryForm::heading(const char* name) {
    auto* l = make<QLabel>(this, name);
    l->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    QFont font = l->font();
    font.setBold(true);
    font.setPointSize(12);
    l->setFont(font);
    return l;
}

QPushButton* EntryForm::button(const char* name) {
    auto* b = make<QPushButton>(this, name);
    b->setAutoDefault(false);
    return b;
}

FrmRnTblAdd::FrmRnTblAdd() : EntryForm("frmRnTblAdd", 4110) {
    lblAddEntry = heading("lblAddEntry");
    btnClear = button("btnClear");
    cmdAdd = button("cmdAdd");

    place(lblAddEntry, 1620, 0, 3930, 285);
    place(lblSample, 90, 360, 1335, 240);
    place(cboSample, 1440, 360, 5685, 315);
    place(lblMethod, 90, 930, 1335, 240);
    place(cboMethod, 1440, 900, 1935, 315);
    place(lblSampleID, 90, 1425, 1335, 240);
    place(txtSampleID, 1440, 1440, 1935, 285);
    place(lblDataFile, 90, 1935, 1335, 240);
    place(txtDataFile, 1440, 1920, 1935, 285);
    place(lblSampleInfo, 90, 2430, 1335, 240);
    place(txtSampleInfo, 1440, 2430, 5640, 510);
    place(lblVial, 3780, 810, 1830, 255);
    place(cboVialNum, 5625, 765, 1005, 315);
    place(lblInjVial, 3780, 1230, 1815, 285);
    place(cboInjVial, 5625, 1215, 1005, 315);
    place(lblSampleAmt, 3780, 1635, 1515, 285);
    place(txtSampleAmt, 5310, 1635, 1530, 285);
    place(lblISTDAmt, 3780, 2070, 1515, 240);
    place(txtISTDAmt, 5310, 2070, 1530, 285);
    place(txtInjType, 6660, 945, 330, 330);
    place(Image1, 270, 3060, 480, 480);
    place(txtInfoLine, 810, 3015, 6270, 570);
    place(btnClear, 540, 3690, 1410, 375);
    place(cmdAdd, 3960, 3690, 1410, 375);
    place(btnClose, 5625, 3690, 1410, 375);

    chain({cboSample, cboMethod, txtSampleID, txtDataFile, txtSampleInfo, cboVialNum, cboInjVial,
           txtSampleAmt, txtISTDAmt, btnClear, cmdAdd, btnClose});
    applyDesignCaptions(*this);
}

FrmRnTblEdit::FrmRnTblEdit() : EntryForm("frmRnTblEdit", 4080) {
    lblEditEntry = heading("lblEditEntry");
    btnPrevious = button("btnPrevious");
    btnNext = button("btnNext");
    btnReplace = button("btnReplace");
    lblInjVial->hide();
    cboInjVial->hide();
    cboInjVial->setFocusPolicy(Qt::NoFocus);

    place(lblEditEntry, 1620, 0, 3930, 285);
    place(lblSample, 90, 360, 1335, 240);
    place(cboSample, 1455, 360, 5625, 315);
    place(lblMethod, 90, 900, 1335, 240);
    place(cboMethod, 1455, 885, 1935, 315);
    place(lblSampleID, 90, 1395, 1335, 285);
    place(txtSampleID, 1455, 1395, 1935, 285);
    place(lblDataFile, 90, 1935, 1335, 240);
    place(txtDataFile, 1455, 1890, 1935, 285);
    place(lblSampleInfo, 90, 2430, 1335, 240);
    place(txtSampleInfo, 1485, 2385, 5625, 525);
    place(lblVial, 3735, 810, 1830, 255);
    place(cboVialNum, 5535, 780, 1005, 315);
    place(lblInjVial, 3735, 1215, 1815, 285);
    place(cboInjVial, 5535, 1200, 1005, 315);
    place(lblSampleAmt, 3735, 1605, 1560, 285);
    place(txtSampleAmt, 5310, 1605, 1530, 285);
    place(lblISTDAmt, 3735, 2025, 1515, 240);
    place(txtISTDAmt, 5310, 1995, 1530, 285);
    place(txtInjType, 6615, 945, 330, 330);
    place(Image1, 270, 3015, 480, 480);
    place(txtInfoLine, 810, 2970, 6270, 570);
    place(btnPrevious, 135, 3645, 1410, 375);
    place(btnNext, 1755, 3645, 1410, 375);
    place(btnReplace, 4005, 3645, 1410, 375);
    place(btnClose, 5625, 3645, 1410, 375);

    chain({cboSample, cboMethod, txtSampleID, txtDataFile, txtSampleInfo, cboVialNum, txtSampleAmt,
           txtISTDAmt, btnPrevious, btnNext, btnReplace, btnClose});
    applyDesignCaptions(*this);
}

FrmRnTblAdd& frmRnTblAdd() {
    if (!addForm) {
        addForm = std::make_unique<FrmRnTblAdd>();
        if (addLoader) addLoader(*addForm);
    }
    return *addForm;
}

FrmRnTblEdit& frmRnTblEdit() {
    if (!editForm) {
        editForm = std::make_unique<FrmRnTblEdit>();
        if (editLoader) editLoader(*editForm);
    }
    return *editForm;
}

void setEntryFormLoaders(void (*add)(FrmRnTblAdd&), void (*edit)(FrmRnTblEdit&)) {
    addLoader = add;
    editLoader = edit;
}

void unloadEntryForms() {
    addForm.reset();
    editForm.reset();
}

}  // namespace sidekin
