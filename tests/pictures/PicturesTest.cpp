// Each form in its main states and languages, compared pixel for pixel with
// the pictures under tests/pictures/expected. A difference writes NAME.new.png
// and NAME.diff.png beside the expected one; scripts/renew-pictures.sh writes
// new expected pictures on purpose.
#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QPushButton>

#include "AppState.h"
#include "EntryForms.h"
#include "FrmOrq.h"
#include "Nls.h"
#include "WalkFixture.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

class PicturesTest : public WalkFixture, public testing::WithParamInterface<const char*> {
protected:
    void SetUp() override {
        WalkFixture::SetUp();
        setNlsLanguage(GetParam());
        ASSERT_EQ(NLSInit(0), 1);
        startHost();
    }

    // Compares the form with its picture; states are named as the pictures are.
    void expectPicture(QWidget& form, const QString& state) {
        const QString name = state + u'-' + QLatin1String(GetParam());
        const QDir folder(QStringLiteral(PICTURES));
        const QImage shot = form.grab().toImage().convertToFormat(QImage::Format_RGB32);
        if (qEnvironmentVariableIsSet("SIDEKIN_RENEW_PICTURES")) {
            ASSERT_TRUE(shot.save(folder.filePath(name + ".png")));
            return;
        }
        const QImage expected =
            QImage(folder.filePath(name + ".png")).convertToFormat(QImage::Format_RGB32);
        if (expected == shot) return;
        shot.save(folder.filePath(name + ".new.png"));
        if (expected.size() == shot.size()) {
            QImage diff(shot.size(), QImage::Format_RGB32);
            for (int y = 0; y < shot.height(); ++y)
                for (int x = 0; x < shot.width(); ++x)
                    diff.setPixel(x, y,
                                  shot.pixel(x, y) == expected.pixel(x, y) ? qRgb(255, 255, 255)
                                                                           : qRgb(255, 0, 0));
            diff.save(folder.filePath(name + ".diff.png"));
        }
        ADD_FAILURE() << "picture " << name.toStdString() << " differs; see "
                      << folder.filePath(name + ".new.png").toStdString();
    }
};

TEST_P(PicturesTest, MainWindowEmptyWithRowsRunningAndPaused) {
    expectPicture(frmORQ(), "main-empty");
    threeRows();
    expectPicture(frmORQ(), "main-rows");
    clickStartPauseResume();
    expectPicture(frmORQ(), "main-running");
    clickStartPauseResume();
    finishRun();
    ASSERT_TRUE(waitForState(RunStatePaused));
    expectPicture(frmORQ(), "main-paused");
    // Taller than the design: the buttons move down, the grid grows.
    frmORQ().resize(frmORQ().width(), frmORQ().height() + 120);
    expectPicture(frmORQ(), "main-tall");
}

TEST_P(PicturesTest, EntryFormsWithACounterAndAManualPair) {
    FrmRnTblAdd& add = frmRnTblAdd();
    add.cboSample->setCurrentText("Solvent Blank");
    add.cboMethod->setCurrentText("FRONTSTD");
    expectPicture(add, "add-counter");
    add.cboSample->setCurrentText("Calibration Mix");
    add.cboMethod->setCurrentText("FRONTSTD");
    expectPicture(add, "add-manual");
    add.cmdAdd->click();
    frmORQ().cmdRnTblEdit->click();  // the scripted dialogs do not show it; the picture does
    frmRnTblEdit().show();
    expectPicture(frmRnTblEdit(), "edit-manual");
    frmRnTblEdit().hide();
}

INSTANTIATE_TEST_SUITE_P(Languages, PicturesTest, testing::Values("en", "ja", "zh_CN"));

}  // namespace
