#pragma once

#include <QWidget>

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace sidekin {

class FlexGridView;
class LinkTextBox;

// The main window. Controls keep their design names; positions are in twips.
class FrmOrq : public QWidget {
public:
    FrmOrq();

    void Form_Load();
    void ddeShowORQ_Change();

    // Position of the window in twips, as the design and Main speak of it.
    void setTopTwips(float top);
    void setLeftTwips(float left);
    float topTwips() const { return top_; }
    float leftTwips() const { return left_; }

    QGroupBox* fraRunStatus;
    QGroupBox* fraSystemStatus;
    QGroupBox* fraRunTableControl;
    QLabel* lblCurrentRun;
    QLabel* lblStatusTime;
    QLabel* lblSysStatusReady;
    QLabel* lblSysStatusMethod;
    QPushButton* cmdStartPauseResume;
    QPushButton* cmdStop;
    QLabel* lblRunTable;
    QLabel* lblOperator;
    QComboBox* cboOperator;
    QLabel* lblSubDir;
    QLineEdit* txtSubDir;
    QLabel* lblAdjRunOrder;
    QPushButton* cmdUp;
    QPushButton* cmdDown;
    QPushButton* cmdRnTblAdd;
    QPushButton* cmdRnTblEdit;
    QPushButton* cmdInstructions;
    QPushButton* cmdRnTblDel;
    QPushButton* cmdRnTblClear;
    QPushButton* cmdRnTblPrint;
    FlexGridView* fgrdRunTable;
    // Hidden boxes: the host link object, the hot link, and a scratch box.
    LinkTextBox* ddeDummy;
    LinkTextBox* ddeShowORQ;
    QLineEdit* txtSampleLoc;

private:
    void applyPosition();
    float top_ = 0;
    float left_ = 0;
};

// The one main window, created and loaded (Form_Load) at its first access.
FrmOrq& frmORQ();
// Called with the new form before its Form_Load, so its events are wired
// whenever its first access happens. Each function is kept once.
void addFrmOrqWiring(void (*wire)(FrmOrq&));
bool frmORQLoaded();
// Ends the form's life; tests start each case without one.
void unloadFrmORQ();

}  // namespace sidekin
