#include "OperatorDialogs.h"

#include <QDebug>

namespace sidekin {

namespace {

// Used until the application installs its own: writes to the log and answers
// as an operator who presses the default button would.
class LoggingDialogs : public OperatorDialogs {
public:
    BoxAnswer messageBox(BoxStyle style, const QString& text, const QString& title) override {
        qWarning().noquote() << title << ":" << text;
        return style == BoxStyle::ExclamationYesNo ? BoxAnswer::Yes : BoxAnswer::Ok;
    }
    QString inputBox(const QString&, const QString&, const QString& defaultText) override {
        return defaultText;
    }
    void showModal(QWidget&) override {}
    bool openDocument(const QString&, const QString&) override { return false; }
    bool showHelp(const QString&, const QString&) override { return false; }
    QPrinter* printer() override { return nullptr; }
};

LoggingDialogs fallback;
OperatorDialogs* current = &fallback;

}  // namespace

OperatorDialogs& dialogs() { return *current; }

void setDialogs(OperatorDialogs* implementation) {
    current = implementation ? implementation : &fallback;
}

}  // namespace sidekin
