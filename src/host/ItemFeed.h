#pragma once

#include <QEvent>
#include <QString>
#include <chrono>
#include <cstdint>

namespace sidekin::itemfeed {

// The host's item feed: its own conversation with the host, which wakes the
// program by a notice (NoticeEvent) on the form whose caption it was given,
// carrying the item's index. Values are read back with GetDDEDataBuffer.

std::int16_t SetHandleInDLL(const QString& caption);
std::int16_t DDE_Initiate(const QString& service, const QString& topic);
// Announces an item; the nth call gives it index n - 1.
std::int16_t DDE_RequestFromVB(const QString& item);
// Starts delivering the item, now and at each change; non-zero on success.
std::int16_t DDE_Request(const QString& item);
// The item's newest value (at most 80 characters) into buffer; answers its length.
std::int16_t GetDDEDataBuffer(const QString& item, QString& buffer);

// A notice to the feed's form. Not a key event: key events go through
// shortcut handling first, and a focused view may take one as its own.
class NoticeEvent : public QEvent {
public:
    NoticeEvent(int index, quint64 serial);
    static QEvent::Type type();
    const int index;
    const quint64 serial;
};

// Notices go out one at a time: the next follows once the value of the last
// one has been read (or its handler has ended), so a notice never arrives
// inside the yield that comes before that read. A notice that has not reached
// the form after NoticeResend is posted again; noticeReceived answers whether
// an arriving notice is the one out (and not a late copy) and marks it arrived.
bool noticeReceived(const NoticeEvent& notice);
void noticeServed(int index);

// Told false when the host closes the feed's conversation, and true when an
// item arrives again after that.
void setLinkWatcher(void (*watcher)(bool alive));

// Closes the feed and forgets everything (a fresh process has none).
void reset();

constexpr int MaxValueChars = 80;
// All subscriptions of one feed together wait at most this long for a frozen
// host; those left when it has passed fail at once.
constexpr std::chrono::milliseconds StartupBudget{5000};
constexpr std::chrono::milliseconds NoticeResend{500};

}  // namespace sidekin::itemfeed
