#include "OperatorDialogs.h"

#include <QDebug>

namespace sidekin {

namespace {

// Used until the application installs its own: writes each box to the log.
class LoggingDialogs : public DefaultAnswers {
public:
    BoxAnswer messageBox(BoxStyle style, const QString& text, const QString& title) override {
        qWarning().noquote() << title << ":" << text;
        return DefaultAnswers::messageBox(style, text, title);
    }
};

LoggingDialogs fallback;
OperatorDialogs* current = &fallback;

}  // namespace

BoxAnswer DefaultAnswers::messageBox(BoxStyle style, const QString&, const QString&) {
    return style == BoxStyle::ExclamationYesNo ? BoxAnswer::Yes : BoxAnswer::Ok;
}

QString DefaultAnswers::inputBox(const QString&, const QString&, const QString& defaultText) {
    return defaultText;
}

OperatorDialogs& dialogs() { return *current; }

void setDialogs(OperatorDialogs* implementation) {
    current = implementation ? implementation : &fallback;
}

}  // namespace sidekin
