#pragma once

namespace sidekin {

// Ends every form (main, entry forms, the feed's mailbox) and the item feed.
// Forms hold widgets, which must go before the QApplication does.
void unloadAllForms();

// Unloads every form when it goes out of scope: declare it after the QApplication.
struct FormsLifetime {
    FormsLifetime() = default;
    FormsLifetime(const FormsLifetime&) = delete;
    FormsLifetime& operator=(const FormsLifetime&) = delete;
    ~FormsLifetime() { unloadAllForms(); }
};

}  // namespace sidekin
