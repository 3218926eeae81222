#pragma once

#include <QString>
#include <chrono>
#include <cstdint>

namespace sidekin::itemfeed {

// The host's item feed: its own conversation with the host, which wakes the
// program by a key event on the form whose caption it was given, with the
// item's index as key code. Values are read back with GetDDEDataBuffer.

std::int16_t SetHandleInDLL(const QString& caption);
std::int16_t DDE_Initiate(const QString& service, const QString& topic);
// Announces an item; the nth call gives it index n - 1.
std::int16_t DDE_RequestFromVB(const QString& item);
// Starts delivering the item, now and at each change; non-zero on success.
std::int16_t DDE_Request(const QString& item);
// The item's newest value (at most 80 characters) into buffer; answers its length.
std::int16_t GetDDEDataBuffer(const QString& item, QString& buffer);

// Notices go out one at a time: the next follows once the value of the last
// one has been read (or its handler has ended), so a notice never arrives
// inside the yield that comes before that read.
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

}  // namespace sidekin::itemfeed
