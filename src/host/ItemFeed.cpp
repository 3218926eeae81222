#include "ItemFeed.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <deque>
#include <map>
#include <memory>

#include "HostLink.h"
#include "platform/RuntimeError.h"

namespace sidekin::itemfeed {

namespace {

constexpr int FeedTimeoutMs = 60000;

struct Feed {
    QString caption;
    QString topic;
    std::unique_ptr<link::Channel> conversation;
    QStringList announced;
    // Values not yet read, oldest first, and the value read last.
    std::map<QString, std::deque<QString>> queued;
    std::map<QString, QString> current;
    std::deque<int> pending;
    int noticeOut = -1;  // index of the notice posted and not yet read
    quint64 serial = 0;  // of the notice out; a resent one gets a new serial
    bool received = false;
    std::unique_ptr<QTimer> resend;
    QElapsedTimer subscribing;
    bool lost = false;
};

void (*linkWatcher)(bool alive) = nullptr;

Feed& feed() {
    static Feed instance;
    return instance;
}

QWidget* notifiedForm() {
    for (QWidget* w : QApplication::allWidgets())
        if (w->isWindow() && w->windowTitle() == feed().caption) return w;
    return nullptr;
}

void postNotice(QWidget* form) {
    Feed& f = feed();
    f.received = false;
    QCoreApplication::postEvent(form, new NoticeEvent(f.noticeOut, ++f.serial));
    if (!f.resend) {
        f.resend = std::make_unique<QTimer>();
        f.resend->setSingleShot(true);
        f.resend->setInterval(NoticeResend);
        QObject::connect(f.resend.get(), &QTimer::timeout, [] {
            Feed& feed_ = feed();
            if (feed_.noticeOut < 0 || feed_.received) return;
            if (QWidget* again = notifiedForm()) postNotice(again);
        });
    }
    f.resend->start();
}

void sendNextNotice() {
    Feed& f = feed();
    if (f.noticeOut >= 0 || f.pending.empty()) return;
    QWidget* form = notifiedForm();
    if (!form) return;
    f.noticeOut = f.pending.front();
    f.pending.pop_front();
    postNotice(form);
}

// Every change gets its notice and is read in turn, so a quick "RUNNING" is not
// lost behind the "Completed" that follows it.
void deliver(const QString& item, const QString& value) {
    if (feed().lost) {
        feed().lost = false;
        if (linkWatcher) linkWatcher(true);
    }
    const int index = static_cast<int>(feed().announced.indexOf(item));
    if (index < 0) {
        feed().current[item] = value;
        return;
    }
    feed().queued[item].push_back(value);
    feed().pending.push_back(index);
    sendNextNotice();
}

}  // namespace

std::int16_t SetHandleInDLL(const QString& caption) {
    feed().caption = caption;
    return 1;
}

std::int16_t DDE_Initiate(const QString& service, const QString& topic) {
    try {
        feed().conversation = link::hostLink().open(service, topic);
    } catch (const RuntimeError&) {
        return 0;
    }
    feed().topic = topic;
    QObject::connect(feed().conversation.get(), &link::Channel::itemUpdated, &deliver);
    QObject::connect(feed().conversation.get(), &link::Channel::closed, [] {
        feed().lost = true;
        if (linkWatcher) linkWatcher(false);
    });
    feed().subscribing.invalidate();
    return 1;
}

std::int16_t DDE_RequestFromVB(const QString& item) {
    feed().announced << item;
    return 1;
}

std::int16_t DDE_Request(const QString& item) {
    if (!feed().conversation) return 0;
    if (!feed().subscribing.isValid()) feed().subscribing.start();
    const auto left = StartupBudget.count() - feed().subscribing.elapsed();
    if (left <= 0) return 0;
    try {
        feed().conversation->advise(feed().topic, item,
                                    static_cast<int>(std::min<qint64>(FeedTimeoutMs, left)));
    } catch (const RuntimeError&) {
        return 0;
    }
    return 1;
}

std::int16_t GetDDEDataBuffer(const QString& item, QString& buffer) {
    noticeServed(static_cast<int>(feed().announced.indexOf(item)));
    std::deque<QString>& waiting = feed().queued[item];
    if (!waiting.empty()) {
        feed().current[item] = waiting.front();
        waiting.pop_front();
    }
    buffer = feed().current[item].left(MaxValueChars);
    return static_cast<std::int16_t>(buffer.size());
}

NoticeEvent::NoticeEvent(int index_, quint64 serial_)
    : QEvent(type()), index(index_), serial(serial_) {}

QEvent::Type NoticeEvent::type() {
    static const auto registered = static_cast<QEvent::Type>(QEvent::registerEventType());
    return registered;
}

bool noticeReceived(const NoticeEvent& notice) {
    Feed& f = feed();
    if (f.noticeOut < 0 || f.received || notice.serial != f.serial) return false;
    f.received = true;
    return true;
}

void noticeServed(int index) {
    if (feed().noticeOut != index) return;
    feed().noticeOut = -1;
    // At the next turn of the event loop: a wait that the served notice ended
    // returns first, so back-to-back reports do not nest one wait in another.
    QTimer::singleShot(0, &sendNextNotice);
}

void setLinkWatcher(void (*watcher)(bool alive)) { linkWatcher = watcher; }

void reset() { feed() = Feed{}; }

}  // namespace sidekin::itemfeed
