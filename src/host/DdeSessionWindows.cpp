#include "DdeSessionWindows.h"

#include <dde.h>

namespace sidekin::link::dde {

namespace {

constexpr DWORD StrayAckWaitMs = 30;
constexpr UINT HostAnswerMs = 500;

thread_local Session* sessionOfThread = nullptr;

std::string textOf(HDDEDATA data) {
    const DWORD size = DdeGetData(data, nullptr, 0, 0);
    std::string text(size, '\0');
    if (size > 0) DdeGetData(data, reinterpret_cast<LPBYTE>(text.data()), size, 0);
    const auto end = text.find('\0');
    if (end != std::string::npos) text.resize(end);
    return text;
}

std::string stringOf(DWORD instance, HSZ handle) {
    char buffer[256] = {};
    DdeQueryStringA(instance, handle, buffer, sizeof buffer, CP_WINANSI);
    return buffer;
}

HDDEDATA CALLBACK callback(UINT type, UINT format, HCONV handle, HSZ, HSZ item, HDDEDATA data,
                           ULONG_PTR id, ULONG_PTR) {
    Session* session = Session::current();
    if (!session || !handle || handle != session->handle()) return nullptr;
    switch (type) {
        case XTYP_ADVDATA:
            if (format == CF_TEXT) session->data(stringOf(session->id(), item), textOf(data));
            return reinterpret_cast<HDDEDATA>(DDE_FACK);
        case XTYP_XACT_COMPLETE:
            session->completed(static_cast<DWORD>(id), data);
            return nullptr;
        case XTYP_DISCONNECT:
            session->lost();
            return nullptr;
        default:
            return nullptr;
    }
}

bool isAnswer(const MSG& msg) {
    if (msg.message == WM_DDE_ACK) return true;
    UINT_PTR data = 0;
    UINT_PTR item = 0;
    if (!UnpackDDElParam(WM_DDE_DATA, msg.lParam, &data, &item) || !data) return false;
    const auto* header = static_cast<const DDEDATA*>(GlobalLock(reinterpret_cast<HGLOBAL>(data)));
    const bool response = header && header->fResponse;
    GlobalUnlock(reinterpret_cast<HGLOBAL>(data));
    return response;
}

void freeAnswer(const MSG& msg) {
    UINT_PTR low = 0;
    UINT_PTR high = 0;
    if (UnpackDDElParam(msg.message, msg.lParam, &low, &high)) {
        FreeDDElParam(msg.message, msg.lParam);
        if (msg.message == WM_DDE_DATA) GlobalFree(reinterpret_cast<HGLOBAL>(low));
        if (high >= MAXINTATOM && high <= 0xFFFF) GlobalDeleteAtom(static_cast<ATOM>(high));
    }
}

// Takes an acknowledgement or a request's data off the queue, if it is next:
// no transaction waits for it. A hot link's data stays where it is.
bool takeStrayAnswer(HWND window) {
    MSG msg;
    if (!PeekMessageA(&msg, window, WM_DDE_ACK, WM_DDE_DATA, PM_NOREMOVE) || !isAnswer(msg))
        return false;
    PeekMessageA(&msg, window, msg.message, msg.message, PM_REMOVE);
    freeAnswer(msg);
    return true;
}

}  // namespace

Session::Session() {
    sessionOfThread = this;
    initError_ = DdeInitializeA(
        &id_, callback, APPCMD_CLIENTONLY | CBF_SKIP_REGISTRATIONS | CBF_SKIP_UNREGISTRATIONS, 0);
}

Session* Session::current() { return sessionOfThread; }

void Session::setListener(Listener* listener) {
    std::lock_guard lock(listenerMutex_);
    listener_ = listener;
}

void Session::data(const std::string& item, const std::string& value) {
    std::lock_guard lock(listenerMutex_);
    if (listener_) listener_->data(item, value);
}

void Session::lost() {
    handle_ = nullptr;
    hungUp_ = true;
    std::lock_guard lock(listenerMutex_);
    if (listener_) listener_->disconnected();
}

bool Session::passesOver(const MSG& msg) {
    if (msg.message != WM_DDE_ACK && msg.message != WM_DDE_DATA) return false;
    CONVINFO info;
    if (!query(info) || msg.hwnd != info.hwnd || !isAnswer(msg)) return false;
    freeAnswer(msg);
    afterRequest_ = lateAnswer_;  // a request's late data may have its stray acknowledgement behind
    lateAnswer_ = false;
    return true;
}

bool Session::query(CONVINFO& info) const {
    info = CONVINFO{};
    info.cb = sizeof info;
    return handle_ && DdeQueryConvInfo(handle_, QID_SYNC, &info);
}

bool Session::end() {
    CONVINFO info;
    if (query(info) &&
        (lateAnswer_ || !SendMessageTimeoutA(info.hwndPartner, WM_NULL, 0, 0, SMTO_ABORTIFHUNG,
                                             HostAnswerMs, nullptr))) {
        // DdeDisconnect would wait 10 s for a host that does not answer, serving
        // no message sent meanwhile: every DdeConnect on the desktop would wait
        // with it. The terminate is posted and the instance given up.
        PostMessageA(info.hwndPartner, WM_DDE_TERMINATE, reinterpret_cast<WPARAM>(info.hwnd), 0);
        handle_ = nullptr;
        return false;
    }
    if (handle_) {
        takeStrayAnswers(afterRequest_ ? StrayAckWaitMs : 0);
        DdeDisconnect(handle_);
        handle_ = nullptr;
    }
    afterRequest_ = false;
    if (initError_ != DMLERR_NO_ERROR) return false;
    // Wine keeps a conversation the host ended in its instance, which then
    // refuses a new one with the same host and topic; and an answer given up
    // may still come.
    if (!hungUp_ && !lateAnswer_) return true;
    DdeUninitialize(id_);
    return false;
}

// Wine's DDEML ends a conversation on the host's terminate without telling the
// callback, so the conversation's state is asked.
bool Session::isConnected() const {
    CONVINFO info;
    return query(info) && (info.wStatus & ST_CONNECTED);
}

UINT Session::connect(const std::string& service, const std::string& topic) {
    if (initError_ != DMLERR_NO_ERROR) return initError_;
    HSZ serviceName = DdeCreateStringHandleA(id_, service.c_str(), CP_WINANSI);
    HSZ topicName = DdeCreateStringHandleA(id_, topic.c_str(), CP_WINANSI);
    handle_ = DdeConnect(id_, serviceName, topicName, nullptr);
    const UINT error = handle_ ? DMLERR_NO_ERROR : DdeGetLastError(id_);
    DdeFreeStringHandle(id_, serviceName);
    DdeFreeStringHandle(id_, topicName);
    return handle_ || error != DMLERR_NO_ERROR ? error : DMLERR_NO_CONV_ESTABLISHED;
}

// Takes the answers no transaction waits for off the queue, waiting up to waitMs
// for one when none is there; answers whether one was taken.
bool Session::takeStrayAnswers(DWORD waitMs) {
    CONVINFO info;
    if (!query(info)) return false;
    bool taken = false;
    while (takeStrayAnswer(info.hwnd)) taken = true;
    const DWORD start = GetTickCount();
    while (!taken) {
        const DWORD spent = GetTickCount() - start;
        if (spent >= waitMs) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, waitMs - spent,
                                  QS_POSTMESSAGE | QS_SENDMESSAGE);
        taken = takeStrayAnswer(info.hwnd);
    }
    return true;
}

void Session::completed(DWORD transaction, HDDEDATA data) {
    if (!waiting_ || transaction != waiting_->id) return;
    waiting_->done = true;
    waiting_->answered = data != nullptr;
    if (data && waiting_->type == XTYP_REQUEST) waiting_->text = textOf(data);
}

// Asynchronous, so that the host ending the conversation ends the wait at once:
// a synchronous transaction (in Wine's DDEML) sees the hang-up only at its limit.
UINT Session::transact(const void* bytes, DWORD size, const std::string& item, UINT type,
                       DWORD timeoutMs, std::string* text) {
    if (handle_ && !isConnected()) lost();
    if (!handle_) return DMLERR_NO_CONV_ESTABLISHED;
    const UINT timedOut = type == XTYP_REQUEST   ? DMLERR_DATAACKTIMEOUT
                          : type == XTYP_EXECUTE ? DMLERR_EXECACKTIMEOUT
                                                 : DMLERR_ADVACKTIMEOUT;
    // A transaction given up is answered late, before any later one: the next
    // would take that answer for its own. Some servers (Wine's DDEML) also post a
    // stray acknowledgement behind a request's data.
    if (lateAnswer_) {
        if (!takeStrayAnswers(timeoutMs)) return timedOut;
        lateAnswer_ = false;
        afterRequest_ = true;
    }
    takeStrayAnswers(afterRequest_ ? StrayAckWaitMs : 0);
    afterRequest_ = false;
    CONVINFO info;
    if (!query(info)) return DMLERR_NO_CONV_ESTABLISHED;

    HSZ itemName = item.empty() ? nullptr : DdeCreateStringHandleA(id_, item.c_str(), CP_WINANSI);
    Waiting waiting;
    waiting.type = type;
    const HDDEDATA started =
        DdeClientTransaction(static_cast<LPBYTE>(const_cast<void*>(bytes)), size, handle_, itemName,
                             CF_TEXT, type, TIMEOUT_ASYNC, &waiting.id);
    const UINT error = started ? DMLERR_NO_ERROR : DdeGetLastError(id_);
    if (itemName) DdeFreeStringHandle(id_, itemName);
    if (!started) return error != DMLERR_NO_ERROR ? error : DMLERR_NOTPROCESSED;

    waiting_ = &waiting;
    const DWORD start = GetTickCount();
    for (;;) {
        MSG msg;
        while (handle_ && !waiting.done && PeekMessageA(&msg, info.hwnd, 0, 0, PM_REMOVE))
            DispatchMessageA(&msg);
        if (handle_ && !waiting.done && !isConnected()) lost();
        if (!handle_ || waiting.done) break;
        const DWORD spent = GetTickCount() - start;
        if (spent >= timeoutMs) break;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, timeoutMs - spent,
                                  QS_POSTMESSAGE | QS_SENDMESSAGE);
    }
    waiting_ = nullptr;
    if (!handle_) return DMLERR_SERVER_DIED;
    // Also once answered: Wine's DDEML keeps a completed transaction queued and
    // would match the next answer against it. Only ours is ever queued.
    DdeAbandonTransaction(id_, handle_, 0);
    if (!waiting.done) {
        lateAnswer_ = true;
        return timedOut;
    }
    if (!waiting.answered) return DMLERR_NOTPROCESSED;
    if (text) *text = std::move(waiting.text);
    return DMLERR_NO_ERROR;
}

UINT Session::request(const std::string& item, DWORD timeoutMs, std::string* value) {
    const UINT error = transact(nullptr, 0, item, XTYP_REQUEST, timeoutMs, value);
    afterRequest_ = true;
    return error;
}

UINT Session::execute(const std::string& command, DWORD timeoutMs) {
    return transact(command.c_str(), static_cast<DWORD>(command.size() + 1), {}, XTYP_EXECUTE,
                    timeoutMs, nullptr);
}

UINT Session::advise(const std::string& item, DWORD timeoutMs) {
    return transact(nullptr, 0, item, XTYP_ADVSTART, timeoutMs, nullptr);
}

}  // namespace sidekin::link::dde
