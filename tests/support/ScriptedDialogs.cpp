#include "ScriptedDialogs.h"

#include <QWidget>

namespace sidekin::test {

void PrintTo(const Shown& shown, std::ostream* os) {
    static const char* kinds[] = {"Box", "Input", "Modal", "Document", "Help", "Printer", "File"};
    *os << kinds[shown.kind] << "(style " << static_cast<int>(shown.style) << ", \""
        << shown.text.toStdString() << "\", \"" << shown.title.toStdString() << "\")";
}

ScriptedDialogs::ScriptedDialogs() { setDialogs(this); }
ScriptedDialogs::~ScriptedDialogs() { setDialogs(nullptr); }

BoxAnswer ScriptedDialogs::messageBox(BoxStyle style, const QString& text, const QString& title) {
    shown.push_back({Shown::Box, style, text, title});
    if (!boxAnswers.empty()) {
        BoxAnswer answer = boxAnswers.front();
        boxAnswers.pop_front();
        return answer;
    }
    return style == BoxStyle::ExclamationYesNo ? BoxAnswer::Yes : BoxAnswer::Ok;
}

QString ScriptedDialogs::inputBox(const QString& prompt, const QString& title,
                                  const QString& defaultText) {
    shown.push_back({Shown::Input, BoxStyle::Plain, prompt, title});
    if (!inputAnswers.empty()) {
        QString answer = inputAnswers.front();
        inputAnswers.pop_front();
        return answer;
    }
    return defaultText;
}

void ScriptedDialogs::showModal(QWidget& form, QWidget* owner) {
    shown.push_back({Shown::Modal, {}, form.objectName(), owner ? owner->objectName() : QString()});
}

bool ScriptedDialogs::openDocument(const QString& file, const QString& workingFolder) {
    shown.push_back({Shown::Document, {}, file, workingFolder});
    return true;
}

bool ScriptedDialogs::showHelp(const QString& file, const QString& topic) {
    shown.push_back({Shown::Help, {}, file, topic});
    return helpOpens;
}

QPrinter* ScriptedDialogs::printer() {
    shown.push_back({Shown::Printer, {}, {}, {}});
    return printerToGive;
}

QString ScriptedDialogs::openFileName(const QString& title, const QString& filter) {
    shown.push_back({Shown::File, {}, title, filter});
    if (fileAnswers.empty()) return {};
    QString answer = fileAnswers.front();
    fileAnswers.pop_front();
    return answer;
}

QString ScriptedDialogs::saveFileName(const QString& title, const QString& filter, const QString&) {
    return openFileName(title, filter);
}

QStringList ScriptedDialogs::boxTitles() const {
    QStringList titles;
    for (const Shown& s : shown)
        if (s.kind == Shown::Box) titles << s.title;
    return titles;
}

}  // namespace sidekin::test
