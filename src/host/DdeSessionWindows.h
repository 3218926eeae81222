#pragma once

// clang-format off
#include <windows.h>
#include <ddeml.h>
// clang-format on

#include <mutex>
#include <string>

namespace sidekin::link::dde {

class Listener {
public:
    virtual ~Listener() = default;
    // A hot link's new value, as it arrives.
    virtual void data(const std::string& item, const std::string& value) = 0;
    virtual void disconnected() = 0;
};

// A DDEML instance with at most one client conversation, used only on the
// thread that made it: Wine's DDEML refuses a second conversation on the same
// service and topic within one instance. Texts are CF_TEXT in the ANSI code
// page. The calls answer a DMLERR_ number, 0 when all went well.
class Session {
public:
    Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    UINT connect(const std::string& service, const std::string& topic);
    UINT request(const std::string& item, DWORD timeoutMs, std::string* value);
    UINT execute(const std::string& command, DWORD timeoutMs);
    UINT advise(const std::string& item, DWORD timeoutMs);
    bool isConnected() const;
    // Between transactions, for each message: an answer no transaction waits for
    // is taken before DDEML sees it, so that the next transaction does not wait for it.
    bool passesOver(const MSG& msg);
    // Ends the conversation as DDEML does, waiting for the host's answer. False
    // when the instance is ended too and cannot serve another conversation.
    bool end();
    // From any thread.
    void setListener(Listener* listener);

    // For the callback, on the session's thread.
    static Session* current();
    HCONV handle() const { return handle_; }
    DWORD id() const { return id_; }
    void lost();
    void completed(DWORD transaction, HDDEDATA data);
    void data(const std::string& item, const std::string& value);

private:
    struct Waiting {
        UINT type = 0;
        DWORD id = 0;
        bool done = false;
        bool answered = false;
        std::string text;
    };
    UINT transact(const void* bytes, DWORD size, const std::string& item, UINT type,
                  DWORD timeoutMs, std::string* text);
    bool takeStrayAnswers(DWORD waitMs);
    bool query(CONVINFO& info) const;

    std::mutex listenerMutex_;
    Listener* listener_ = nullptr;
    DWORD id_ = 0;
    UINT initError_ = 0;
    HCONV handle_ = nullptr;
    bool afterRequest_ = false;
    bool lateAnswer_ = false;
    Waiting* waiting_ = nullptr;
    bool hungUp_ = false;
};

}  // namespace sidekin::link::dde
