#include "LinkTextBox.h"

#include "HostLink.h"
#include "platform/RuntimeError.h"

namespace sidekin {

LinkTextBox::LinkTextBox(QWidget* parent) : QLineEdit(parent) {}

LinkTextBox::~LinkTextBox() = default;

QString LinkTextBox::service() const { return LinkTopic.section(QLatin1Char('|'), 0, 0); }

QString LinkTextBox::topic() const { return LinkTopic.section(QLatin1Char('|'), 1); }

int LinkTextBox::timeoutMs() const { return LinkTimeout * 100; }

void LinkTextBox::setLinkMode(int mode) {
    if (mode == None) {
        conversation_.reset();
        mode_ = None;
        return;
    }
    if (mode_ == None || !conversation_ || !conversation_->isOpen())
        conversation_ = link::hostLink().open(service(), topic());
    mode_ = mode;
    if (mode == Automatic) {
        connect(conversation_.get(), &link::Channel::itemUpdated, this,
                [this](const QString& item, const QString& value) {
                    if (item == LinkItem) setText(value);
                });
        conversation_->advise(topic(), LinkItem, timeoutMs());
    }
}

void LinkTextBox::LinkRequest() {
    if (mode_ == None || !conversation_) raiseError(link::ErrNoChannel);
    setText(conversation_->request(topic(), LinkItem, timeoutMs()));
}

void LinkTextBox::LinkExecute(const QString& command) {
    if (mode_ == None || !conversation_) raiseError(link::ErrNoChannel);
    conversation_->execute(topic(), command, timeoutMs());
}

}  // namespace sidekin
