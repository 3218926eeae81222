#pragma once

#include <chrono>
#include <memory>

#include "OperatorDialogs.h"

namespace sidekin {

// The operator dialogs on Qt Widgets; every box is application modal.
class QtOperatorDialogs : public OperatorDialogs {
public:
    QtOperatorDialogs();
    ~QtOperatorDialogs() override;

    BoxAnswer messageBox(BoxStyle style, const QString& text, const QString& title) override;
    QString inputBox(const QString& prompt, const QString& title,
                     const QString& defaultText) override;
    // Returns when the form hides, as a legacy modal show does.
    void showModal(QWidget& form, QWidget* owner) override;
    // A relative file is taken from workingFolder.
    bool openDocument(const QString& file, const QString& workingFolder) override;
    // The topic becomes the fragment of an HTML help file; other files open as they are.
    bool showHelp(const QString& file, const QString& topic) override;
    // The same printer object for the life of this object, set to the current default.
    QPrinter* printer() override;
    QString openFileName(const QString& title, const QString& filter) override;
    QString saveFileName(const QString& title, const QString& filter,
                         const QString& suggested) override;

    // When the first message box of this run was shown; zero before.
    std::chrono::system_clock::time_point firstBoxShown() const { return firstBoxShown_; }

private:
    std::unique_ptr<QPrinter> printer_;
    std::chrono::system_clock::time_point firstBoxShown_{};
};

}  // namespace sidekin
