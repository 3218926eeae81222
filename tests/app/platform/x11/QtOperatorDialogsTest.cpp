#include <gtest/gtest.h>

#include <QApplication>
#include <QDesktopServices>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <functional>

#include "TempFolder.h"
#include "platform/QtOperatorDialogs.h"

using namespace sidekin;

namespace {

// Acts on the next modal widget of type W as soon as it is up.
template <typename W>
void whenModal(std::function<void(W&)> act) {
    QTimer::singleShot(10, [act] {
        if (auto* widget = qobject_cast<W*>(QApplication::activeModalWidget()))
            act(*widget);
        else
            whenModal<W>(act);
    });
}

// Takes file URLs in place of the desktop's viewer.
class UrlCatcher : public QObject {
    Q_OBJECT
public:
    UrlCatcher() { QDesktopServices::setUrlHandler("file", this, "open"); }
    ~UrlCatcher() override { QDesktopServices::unsetUrlHandler("file"); }
    QList<QUrl> opened;
public slots:
    void open(const QUrl& url) { opened.append(url); }
};

TEST(QtOperatorDialogsTest, MessageBoxShowsTheStyleAndMapsTheAnswer) {
    struct Row {
        const char* name;
        BoxStyle style;
        QMessageBox::Icon icon;
        QMessageBox::StandardButtons buttons;
        QMessageBox::StandardButton press;  // NoButton: the operator presses Escape
        BoxAnswer answer;
    };
    const Row rows[] = {
        {"plain", BoxStyle::Plain, QMessageBox::NoIcon, QMessageBox::Ok, QMessageBox::Ok,
         BoxAnswer::Ok},
        {"fault", BoxStyle::ExclamationOk, QMessageBox::Warning, QMessageBox::Ok, QMessageBox::Ok,
         BoxAnswer::Ok},
        {"yes", BoxStyle::ExclamationYesNo, QMessageBox::Warning,
         QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes, BoxAnswer::Yes},
        {"no", BoxStyle::ExclamationYesNo, QMessageBox::Warning, QMessageBox::Yes | QMessageBox::No,
         QMessageBox::No, BoxAnswer::No},
        {"escape", BoxStyle::ExclamationYesNo, QMessageBox::Warning,
         QMessageBox::Yes | QMessageBox::No, QMessageBox::NoButton, BoxAnswer::No},
        {"fatal", BoxStyle::Critical, QMessageBox::Critical, QMessageBox::Ok, QMessageBox::Ok,
         BoxAnswer::Ok},
    };
    QtOperatorDialogs dialogs;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        whenModal<QMessageBox>([&row](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), "Run <1>");
            EXPECT_EQ(box.text(), "Delete <b>all</b> rows?");
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.icon(), row.icon);
            EXPECT_EQ(box.standardButtons(), row.buttons);
            if (row.press == QMessageBox::NoButton)
                QTest::keyClick(&box, Qt::Key_Escape);
            else
                box.button(row.press)->click();
        });
        EXPECT_EQ(dialogs.messageBox(row.style, "Delete <b>all</b> rows?", "Run <1>"), row.answer);
    }
}

TEST(QtOperatorDialogsTest, InputBoxAnswersTheTextOrEmptyOnCancel) {
    QtOperatorDialogs dialogs;
    whenModal<QInputDialog>([](QInputDialog& input) {
        EXPECT_EQ(input.windowTitle(), "Operator");
        EXPECT_EQ(input.labelText(), "Name:");
        EXPECT_EQ(input.textValue(), "Smith");
        auto* edit = input.findChild<QLineEdit*>();
        ASSERT_NE(edit, nullptr);
        edit->selectAll();
        QTest::keyClicks(edit, "Jones");
        input.accept();
    });
    EXPECT_EQ(dialogs.inputBox("Name:", "Operator", "Smith"), "Jones");

    whenModal<QInputDialog>([](QInputDialog& input) { input.reject(); });
    EXPECT_EQ(dialogs.inputBox("Name:", "Operator", "Smith"), QString());
}

TEST(QtOperatorDialogsTest, ShowModalReturnsWhenTheFormHidesOrIsDestroyed) {
    QtOperatorDialogs dialogs;
    QWidget form;
    bool wasModal = false;
    whenModal<QWidget>([&](QWidget& shown) {
        wasModal = &shown == &form && form.isVisible();
        form.hide();
    });
    dialogs.showModal(form);
    EXPECT_TRUE(wasModal);
    form.show();  // a later plain show is not modal
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    form.hide();

    whenModal<QWidget>([](QWidget& shown) { shown.deleteLater(); });
    dialogs.showModal(*new QWidget);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(QtOperatorDialogsTest, DocumentsAndHelpOpenOnlyWhenTheFileExists) {
    QtOperatorDialogs dialogs;
    UrlCatcher viewer;
    test::TempFolder folder;
    const QString document = folder.write("notes.txt", "run notes");
    const QString help = folder.write("orq.html", "<html></html>");
    const QString plainHelp = folder.write("orq.txt", "help");

    EXPECT_TRUE(dialogs.openDocument("notes.txt", folder.path()));
    EXPECT_TRUE(dialogs.openDocument(document, "/nonexistent"));
    EXPECT_FALSE(dialogs.openDocument("missing.txt", folder.path()));
    EXPECT_FALSE(dialogs.openDocument("notes.txt", "/nonexistent"));
    EXPECT_TRUE(dialogs.showHelp(help, "Instructions"));
    EXPECT_TRUE(dialogs.showHelp(plainHelp, "Instructions"));
    EXPECT_FALSE(dialogs.showHelp(folder.file("missing.html"), "Instructions"));

    QUrl helpTopic = QUrl::fromLocalFile(help);
    helpTopic.setFragment("Instructions");
    EXPECT_EQ(viewer.opened,
              (QList<QUrl>{QUrl::fromLocalFile(document), QUrl::fromLocalFile(document), helpTopic,
                           QUrl::fromLocalFile(plainHelp)}));
}

}  // namespace

#include "QtOperatorDialogsTest.moc"
