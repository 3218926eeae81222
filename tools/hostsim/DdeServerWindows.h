#pragma once

// clang-format off
#include <windows.h>
#include <ddeml.h>
// clang-format on

#include <deque>
#include <map>
#include <string>
#include <utility>

namespace sidekin::hostsim::dde {

// How the server answers one transaction.
struct Answer {
    enum Kind { Done, Refused, Busy, Hold } kind = Done;
    std::string data;  // a request's value
};

// The process's one DDEML server instance, on the thread that made it. Texts are
// CF_TEXT in the ANSI code page.
class Server {
public:
    class Handler {
    public:
        virtual ~Handler() = default;
        virtual bool acceptsTopic(const std::string& topic) = 0;
        virtual void connected(HCONV conversation, const std::string& topic) = 0;
        virtual void disconnected(HCONV conversation) = 0;
        virtual Answer execute(HCONV conversation, const std::string& topic,
                               const std::string& command) = 0;
        virtual Answer request(HCONV conversation, const std::string& topic,
                               const std::string& item) = 0;
        virtual Answer advise(HCONV conversation, const std::string& topic,
                              const std::string& item) = 0;
    };

    static Server& instance();
    // Answers a DMLERR_ number, 0 when the instance stands.
    UINT start(Handler* handler);
    bool serve(const std::string& service);
    void stop();

    // Each value queued for a hot link goes out once, in order, at the next post.
    void queue(HCONV conversation, const std::string& item, const std::string& value);
    void post(const std::string& item);
    void drop(HCONV conversation);

    // For the callback.
    Handler* handler() const { return handler_; }
    DWORD id() const { return id_; }
    HDDEDATA nextValue(HCONV conversation, HSZ item);
    void forget(HCONV conversation);

private:
    using Link = std::pair<HCONV, std::string>;

    DWORD id_ = 0;
    Handler* handler_ = nullptr;
    std::map<Link, std::deque<std::string>> waiting_;
};

}  // namespace sidekin::hostsim::dde
