#pragma once

// clang-format off
#include <windows.h>
#include <ddeml.h>
// clang-format on

#include <string>

namespace sidekin::link::dde {

// One DDEML client conversation, in a DDEML instance of its own: Wine's DDEML
// refuses a second conversation on the same service and topic within one
// instance. Its messages are dispatched by the event loop of the thread that
// made it. Texts are CF_TEXT in the ANSI code page. The calls answer a DMLERR_
// number, 0 when all went well.
class Conversation {
public:
    class Listener {
    public:
        virtual ~Listener() = default;
        // A hot link's new value, as it arrives; may come inside a transaction.
        virtual void data(const std::string& item, const std::string& value) = 0;
        virtual void disconnected() = 0;
    };

    explicit Conversation(Listener* listener);
    ~Conversation();
    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;

    UINT connect(const std::string& service, const std::string& topic);
    UINT request(const std::string& item, DWORD timeoutMs, std::string* value);
    UINT execute(const std::string& command, DWORD timeoutMs);
    UINT advise(const std::string& item, DWORD timeoutMs);
    bool isConnected() const;

    // For the callback.
    static Conversation* of(HCONV handle);
    void lost();
    void completed(DWORD transaction, HDDEDATA data);
    Listener* listener() const { return listener_; }
    DWORD id() const { return id_; }

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

    Listener* listener_;
    DWORD id_ = 0;
    UINT initError_ = 0;
    HCONV handle_ = nullptr;
    bool afterRequest_ = false;
    bool lateAnswer_ = false;
    Waiting* waiting_ = nullptr;
    bool hungUp_ = false;
};

}  // namespace sidekin::link::dde
