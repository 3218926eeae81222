#include "QtOperatorDialogs.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QEvent>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPointer>
#include <QPrinter>
#include <QPrinterInfo>
#include <QUrl>
#include <QWidget>
#include <QWindow>

namespace sidekin {

namespace {

// Ends a local loop when the watched widget is hidden. A minimised window
// gets a spontaneous hide but stays visible, so that does not count.
class HideWatcher : public QObject {
public:
    HideWatcher(QWidget& widget, QEventLoop& loop) : widget_(widget), loop_(loop) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &widget_ && event->type() == QEvent::Hide && !widget_.isVisible())
            loop_.quit();
        return false;
    }

private:
    QWidget& widget_;
    QEventLoop& loop_;
};

}  // namespace

QtOperatorDialogs::QtOperatorDialogs() = default;
QtOperatorDialogs::~QtOperatorDialogs() = default;

BoxAnswer QtOperatorDialogs::messageBox(BoxStyle style, const QString& text, const QString& title) {
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    switch (style) {
        case BoxStyle::Plain:
            break;
        case BoxStyle::ExclamationOk:
            icon = QMessageBox::Warning;
            break;
        case BoxStyle::ExclamationYesNo:
            icon = QMessageBox::Warning;
            buttons = QMessageBox::Yes | QMessageBox::No;
            break;
        case BoxStyle::Critical:
            icon = QMessageBox::Critical;
            break;
    }
    QMessageBox box(icon, title, text, buttons);
    // Messages carry file names and host texts, never markup.
    box.setTextFormat(Qt::PlainText);
    box.setWindowModality(Qt::ApplicationModal);
    if (firstBoxShown_.time_since_epoch().count() == 0)
        firstBoxShown_ = std::chrono::system_clock::now();
    const int answer = box.exec();
    if (style != BoxStyle::ExclamationYesNo) return BoxAnswer::Ok;
    return answer == QMessageBox::Yes ? BoxAnswer::Yes : BoxAnswer::No;
}

QString QtOperatorDialogs::inputBox(const QString& prompt, const QString& title,
                                    const QString& defaultText) {
    bool ok = false;
    const QString text =
        QInputDialog::getText(nullptr, title, prompt, QLineEdit::Normal, defaultText, &ok);
    return ok ? text : QString();
}

void QtOperatorDialogs::showModal(QWidget& form, QWidget* owner) {
    const Qt::WindowModality previous = form.windowModality();
    form.setWindowModality(Qt::ApplicationModal);
    if (owner) {
        // The owner's top window: inside a host window that is the host's.
        QWindow* top = owner->window()->winId() ? owner->window()->windowHandle() : nullptr;
        while (top && top->parent()) top = top->parent();
        form.winId();
        form.windowHandle()->setTransientParent(top);
    }

    QPointer<QWidget> guard(&form);
    QEventLoop loop;
    HideWatcher watcher(form, loop);
    form.installEventFilter(&watcher);
    QObject::connect(&form, &QObject::destroyed, &loop, &QEventLoop::quit);

    form.show();
    if (form.isVisible()) loop.exec(QEventLoop::DialogExec);

    if (guard) {
        form.removeEventFilter(&watcher);
        // A later plain show must not be modal.
        form.setWindowModality(previous);
    }
}

bool QtOperatorDialogs::openDocument(const QString& file, const QString& workingFolder) {
    if (file.isEmpty()) return false;
    const QFileInfo info(QDir(workingFolder).filePath(file));
    if (!info.exists()) return false;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(info.absoluteFilePath()));
}

// A help book "folder/Name.chm" is the folder of HTML pages beside it, one per
// topic. A relative book is looked for in the current folder, then beside the program,
// then in share/sidekin/ of an installation.
bool QtOperatorDialogs::showHelp(const QString& file, const QString& topic) {
    if (file.isEmpty() || topic.isEmpty()) return false;
    const QString folder = QFileInfo(file).path();
    QStringList places{QDir(folder).filePath(topic)};
    if (QDir::isRelativePath(folder)) {
        const QDir programFolder(QCoreApplication::applicationDirPath());
        places << programFolder.filePath(folder + u'/' + topic)
               << programFolder.filePath(QStringLiteral("../share/sidekin/") + folder + u'/' +
                                         topic);
    }
    for (const QString& page : places) {
        const QFileInfo info(page);
        if (info.isFile())
            return QDesktopServices::openUrl(QUrl::fromLocalFile(info.absoluteFilePath()));
    }
    return false;
}

QPrinter* QtOperatorDialogs::printer() {
    const QPrinterInfo defaultPrinter = QPrinterInfo::defaultPrinter();
    if (defaultPrinter.isNull()) return nullptr;
    if (!printer_)
        printer_ = std::make_unique<QPrinter>(defaultPrinter, QPrinter::HighResolution);
    else if (printer_->printerName() != defaultPrinter.printerName())
        printer_->setPrinterName(defaultPrinter.printerName());
    return printer_.get();
}

QString QtOperatorDialogs::openFileName(const QString& title, const QString& filter) {
    return QFileDialog::getOpenFileName(QApplication::activeWindow(), title, QString(), filter);
}

QString QtOperatorDialogs::saveFileName(const QString& title, const QString& filter,
                                        const QString& suggested) {
    return QFileDialog::getSaveFileName(QApplication::activeWindow(), title, suggested, filter);
}

}  // namespace sidekin
