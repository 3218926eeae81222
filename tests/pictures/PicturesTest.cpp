// Each form in its main states and languages, and the real message boxes, compared
// with their pictures; scripts/renew-pictures.sh writes them anew on purpose.
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include "AppState.h"
#include "EntryForms.h"
#include "FrmOrq.h"
#include "Nls.h"
#include "WalkFixture.h"
#include "platform/QtOperatorDialogs.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

// Compares what widget shows with its picture, pixel for pixel. A difference
// writes NAME.new.png and NAME.diff.png beside it; SIDEKIN_RENEW_PICTURES writes
// the expected picture instead.
void comparePicture(QWidget& widget, const QString& name) {
    const QDir folder(QStringLiteral(PICTURES));
    const QImage shot = widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
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

class PicturesTest : public WalkFixture, public testing::WithParamInterface<const char*> {
protected:
    void SetUp() override {
        WalkFixture::SetUp();
        setNlsLanguage(GetParam());
        ASSERT_EQ(NLSInit(0), 1);
        startHost();
    }

    // States are named as the pictures are.
    void expectPicture(QWidget& form, const QString& state) {
        comparePicture(form, state + u'-' + QLatin1String(GetParam()));
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
    add.txtSampleID->setText("S1");
    add.cmdAdd->click();
    add.cboSample->setCurrentText("Calibration Mix");
    add.cboMethod->setCurrentText("FRONTSTD");
    expectPicture(add, "add-manual");
    add.txtSampleID->setText("S2");
    add.cmdAdd->click();
    expectPicture(frmORQ(), "main-added");  // the rows as the form made them, the table's commands
    frmORQ().cmdRnTblEdit->click();         // the scripted dialogs do not show it; the picture does
    FrmRnTblEdit& edit = frmRnTblEdit();
    edit.show();
    expectPicture(edit, "edit-manual");
    edit.btnPrevious->click();
    expectPicture(edit, "edit-counter");
    edit.hide();
    add.btnClear->click();
    expectPicture(add, "add-cleared");
}

INSTANTIATE_TEST_SUITE_P(Languages, PicturesTest, testing::Values("en", "ja", "zh_CN"));

// Acts on the next message box as soon as it is up.
void whenBox(const std::function<void(QMessageBox&)>& act) {
    QTimer::singleShot(10, [act] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
            act(*box);
        else
            whenBox(act);
    });
}

TEST(BoxPicturesTest, EachStyleAndTheAnswerOfEachPress) {
    const struct {
        const char* picture;
        BoxStyle style;
        QMessageBox::StandardButton press;  // NoButton: the operator presses Escape
        BoxAnswer answer;
    } rows[] = {
        {"box-plain", BoxStyle::Plain, QMessageBox::Ok, BoxAnswer::Ok},
        {"box-exclamation", BoxStyle::ExclamationOk, QMessageBox::Ok, BoxAnswer::Ok},
        {"box-question", BoxStyle::ExclamationYesNo, QMessageBox::No, BoxAnswer::No},
        {"box-question", BoxStyle::ExclamationYesNo, QMessageBox::Yes, BoxAnswer::Yes},
        {"box-question", BoxStyle::ExclamationYesNo, QMessageBox::NoButton, BoxAnswer::No},
        {"box-fatal", BoxStyle::Critical, QMessageBox::Ok, BoxAnswer::Ok},
    };
    QtOperatorDialogs dialogs;
    for (const auto& row : rows) {
        whenBox([&row](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), "Run <1>");  // the picture holds no title bar
            comparePicture(box, row.picture);         // markup shown as typed
            if (row.press == QMessageBox::NoButton)
                QTest::keyClick(&box, Qt::Key_Escape);
            else
                box.button(row.press)->click();
        });
        EXPECT_EQ(dialogs.messageBox(row.style, "Delete <b>all</b> rows?", "Run <1>"), row.answer)
            << row.picture;
    }
}

// The real modal show holds the caller until the form is hidden, modal over its owner.
TEST(ShowModalTest, HoldsTheCallerUntilTheFormIsHidden) {
    QWidget owner, form;
    owner.show();
    std::pair<QWidget*, QWindow*> meanwhile;
    QTimer::singleShot(10, [&] {
        meanwhile = {QApplication::activeModalWidget(), form.windowHandle()->transientParent()};
        form.hide();
    });
    QtOperatorDialogs().showModal(form, &owner);
    EXPECT_EQ(meanwhile, std::pair(&form, owner.windowHandle()));
    EXPECT_EQ(form.windowModality(), Qt::NonModal) << "a later plain show is not modal";
}

}  // namespace
