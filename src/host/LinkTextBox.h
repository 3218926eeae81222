#pragma once

#include <QLineEdit>
#include <memory>

namespace sidekin {

namespace link {
class Channel;
}

// A text box that can hold a link to a host item, as the legacy platform's
// text boxes could: LinkTopic is "service|topic", LinkTimeout in tenths of a second.
class LinkTextBox : public QLineEdit {
public:
    enum Mode { None = 0, Automatic = 1, Manual = 2 };

    explicit LinkTextBox(QWidget* parent = nullptr);
    ~LinkTextBox() override;

    int LinkMode() const { return mode_; }
    // 0 closes the conversation; 2 opens it (error 282 without a host);
    // 1 opens it and has every new value of LinkItem written into the box.
    void setLinkMode(int mode);

    int LinkTimeout = 50;
    QString LinkTopic;
    QString LinkItem;

    void LinkRequest();
    void LinkExecute(const QString& command);

private:
    QString service() const;
    QString topic() const;
    int timeoutMs() const;

    int mode_ = None;
    std::unique_ptr<link::Channel> conversation_;
};

}  // namespace sidekin
