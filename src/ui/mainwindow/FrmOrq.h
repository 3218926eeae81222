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

// The main window's design: controls by their design names at their positions
// in twips, with their design captions. What they do is wired in from outside.
class FrmOrq : public QWidget {
public:
    FrmOrq();

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

// The one main window, made at its first access and then handed to the loader,
// which connects its events and runs its Form_Load.
FrmOrq& frmORQ();
// Set once at start-up, before the first access.
void setFrmOrqLoader(void (*load)(FrmOrq&));
bool frmORQLoaded();
// Ends the form's life; tests start each case without one.
void unloadFrmORQ();

}  // namespace sidekin
