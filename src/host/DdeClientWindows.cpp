#include "DdeClientWindows.h"

#include <atomic>
#include <vector>

#include "DdeThreadWindows.h"

namespace sidekin::link::dde {

namespace {

// DdeConnect asks every top-level window of the desktop, one by one.
constexpr DWORD ConnectLimitMs = 5000;
constexpr DWORD QuickLimitMs = 2000;

// Threads whose conversation ended well, with their instance: making one costs
// as much as connecting.
std::mutex idleMutex;
auto* idle = new std::vector<Conversation::Worker>;  // outlives the program's end

Conversation::Worker takeWorker() {
    {
        std::lock_guard lock(idleMutex);
        if (!idle->empty()) {
            Conversation::Worker worker = std::move(idle->back());
            idle->pop_back();
            return worker;
        }
    }
    Conversation::Worker worker{WorkThread::start(), nullptr};
    auto session = std::make_shared<std::shared_ptr<Session>>();
    const auto start = [thread = worker.thread.get(), session] {
        *session = std::make_shared<Session>();
        thread->passOver([made = session->get()](const MSG& msg) { return made->passesOver(msg); });
    };
    if (worker.thread->call(start, QuickLimitMs)) worker.session = *session;
    return worker;
}

}  // namespace

Conversation::Conversation(Listener* listener) : worker_(takeWorker()) {
    if (worker_.session) worker_.session->setListener(listener);
}

Conversation::~Conversation() {
    if (!worker_.session) {
        worker_.thread->post([thread = worker_.thread.get()] { thread->finish(); });
        return;
    }
    worker_.session->setListener(nullptr);
    auto end = [worker = worker_, once = std::make_shared<std::atomic<bool>>(false)] {
        if (once->exchange(true)) return;
        if (worker.session->end()) {
            std::lock_guard lock(idleMutex);
            idle->push_back(worker);
        } else {
            worker.thread->finish();
        }
    };
    // Ended before the next conversation begins, as the host expects; after a
    // time-out the thread may still be held, and ends it when let go.
    if (stuck_ || !worker_.thread->call(end, QuickLimitMs)) worker_.thread->post(end);
}

template <typename Work>
bool Conversation::call(Work work, DWORD limitMs) const {
    if (stuck_ || !worker_.session) return false;
    if (!worker_.thread->call([session = worker_.session, work] { work(*session); }, limitMs))
        stuck_ = true;
    return !stuck_;
}

UINT Conversation::connect(const std::string& service, const std::string& topic) {
    if (!worker_.session) return DMLERR_DLL_NOT_INITIALIZED;
    auto error = std::make_shared<UINT>(DMLERR_NO_ERROR);
    if (!call([=](Session& session) { *error = session.connect(service, topic); }, ConnectLimitMs))
        return ConnectTimedOut;
    return *error;
}

// The thread's own wait ends at the limit, twice it after an answer given up.
template <typename Work>
UINT Conversation::transact(Work work, DWORD timeoutMs, UINT timedOut) {
    auto error = std::make_shared<UINT>(DMLERR_NO_ERROR);
    if (!call([=](Session& session) { *error = work(session); }, 2 * timeoutMs + QuickLimitMs))
        return timedOut;
    return *error;
}

UINT Conversation::request(const std::string& item, DWORD timeoutMs, std::string* value) {
    auto text = std::make_shared<std::string>();
    const UINT error =
        transact([=](Session& session) { return session.request(item, timeoutMs, text.get()); },
                 timeoutMs, DMLERR_DATAACKTIMEOUT);
    if (value && error == DMLERR_NO_ERROR) *value = std::move(*text);
    return error;
}

UINT Conversation::execute(const std::string& command, DWORD timeoutMs) {
    return transact([=](Session& session) { return session.execute(command, timeoutMs); },
                    timeoutMs, DMLERR_EXECACKTIMEOUT);
}

UINT Conversation::advise(const std::string& item, DWORD timeoutMs) {
    return transact([=](Session& session) { return session.advise(item, timeoutMs); }, timeoutMs,
                    DMLERR_ADVACKTIMEOUT);
}

bool Conversation::isConnected() const {
    auto connected = std::make_shared<bool>(false);
    return call([=](Session& session) { *connected = session.isConnected(); }, QuickLimitMs) &&
           *connected;
}

}  // namespace sidekin::link::dde
