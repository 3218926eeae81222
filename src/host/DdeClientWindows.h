#pragma once

#include <memory>
#include <string>

#include "DdeSessionWindows.h"

namespace sidekin::link::dde {

class WorkThread;

// A host that did not answer the connect in time.
constexpr UINT ConnectTimedOut = DMLERR_EXECACKTIMEOUT;

// One DDEML client conversation, carried out on a thread of its own (a DDEML
// instance is tied to the thread that made it). The calls block the caller up
// to their limits and answer a DMLERR_ number, 0 when all went well; the
// listener is called on the conversation's thread.
class Conversation {
public:
    explicit Conversation(Listener* listener);
    ~Conversation();
    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;

    UINT connect(const std::string& service, const std::string& topic);
    UINT request(const std::string& item, DWORD timeoutMs, std::string* value);
    UINT execute(const std::string& command, DWORD timeoutMs);
    UINT advise(const std::string& item, DWORD timeoutMs);
    bool isConnected() const;

    struct Worker {
        std::shared_ptr<WorkThread> thread;
        std::shared_ptr<Session> session;
    };

private:
    template <typename Work>
    bool call(Work work, DWORD limitMs) const;
    template <typename Work>
    UINT transact(Work work, DWORD timeoutMs, UINT timedOut);

    Worker worker_;
    mutable bool stuck_ = false;  // a call outran its limit: the thread may still be in it
};

}  // namespace sidekin::link::dde
