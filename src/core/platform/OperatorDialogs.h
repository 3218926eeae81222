#pragma once

#include <QString>

class QWidget;
class QPrinter;

namespace sidekin {

enum class BoxStyle {
    Plain,             // OK only, no icon: the handler box
    ExclamationOk,     // operator faults
    ExclamationYesNo,  // operator questions
    Critical,          // fatal conditions
};

enum class BoxAnswer { Ok, Yes, No };

// Everything that puts a modal question before the operator or leaves the
// program for another viewer goes through here, so tests can script it.
class OperatorDialogs {
public:
    virtual ~OperatorDialogs() = default;

    virtual BoxAnswer messageBox(BoxStyle style, const QString& text, const QString& title) = 0;
    // Empty text when the operator cancels, as the legacy input box does.
    virtual QString inputBox(const QString& prompt, const QString& title,
                             const QString& defaultText) = 0;
    // Returns when the form is hidden; an owner keeps the form above it.
    virtual void showModal(QWidget& form, QWidget* owner = nullptr) = 0;
    // Opens a document in its default viewer; false when nothing could open it.
    virtual bool openDocument(const QString& file, const QString& workingFolder) = 0;
    // Shows a help topic; false when the help file could not be opened.
    virtual bool showHelp(const QString& file, const QString& topic) = 0;
    // The default printer, or nullptr when there is none.
    virtual QPrinter* printer() = 0;
    // A file to open or to save to, chosen by the operator; empty when cancelled.
    // The filter is "Name (*.ext);;Other (*)". New: no legacy
    // procedure asks for a file, so the defaults answer as a cancel.
    virtual QString openFileName(const QString& title, const QString& filter) {
        (void)title, (void)filter;
        return {};
    }
    virtual QString saveFileName(const QString& title, const QString& filter,
                                 const QString& suggested) {
        (void)title, (void)filter, (void)suggested;
        return {};
    }
};

// Answers as an operator who presses the default button would, and shows nothing.
class DefaultAnswers : public OperatorDialogs {
public:
    BoxAnswer messageBox(BoxStyle style, const QString& text, const QString& title) override;
    QString inputBox(const QString& prompt, const QString& title,
                     const QString& defaultText) override;
    void showModal(QWidget&, QWidget*) override {}
    bool openDocument(const QString&, const QString&) override { return false; }
    bool showHelp(const QString&, const QString&) override { return false; }
    QPrinter* printer() override { return nullptr; }
};

OperatorDialogs& dialogs();
// Installs the implementation in use; the caller keeps ownership.
void setDialogs(OperatorDialogs* implementation);

}  // namespace sidekin
