#include "DdeClientWindows.h"

#include <dde.h>

#include <map>
#include <vector>

namespace sidekin::link::dde {

namespace {

constexpr DWORD StrayAckWaitMs = 30;

std::map<HCONV, Conversation*> conversations;
// Instances of ended conversations, kept: making one costs as much as connecting.
std::vector<DWORD> idle;

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
                           ULONG_PTR, ULONG_PTR) {
    Conversation* conversation = Conversation::of(handle);
    if (!conversation) return nullptr;
    switch (type) {
        case XTYP_ADVDATA:
            if (format == CF_TEXT)
                conversation->listener()->data(stringOf(conversation->id(), item), textOf(data));
            return reinterpret_cast<HDDEDATA>(DDE_FACK);
        case XTYP_DISCONNECT:
            conversation->lost();
            return nullptr;
        default:
            return nullptr;
    }
}

bool takeStrayAck(HWND window) {
    MSG msg;
    if (!PeekMessageA(&msg, window, WM_DDE_ACK, WM_DDE_ACK, PM_REMOVE)) return false;
    UINT_PTR low = 0;
    UINT_PTR high = 0;
    if (UnpackDDElParam(WM_DDE_ACK, msg.lParam, &low, &high)) {
        FreeDDElParam(WM_DDE_ACK, msg.lParam);
        if (high >= MAXINTATOM && high <= 0xFFFF) GlobalDeleteAtom(static_cast<ATOM>(high));
    }
    return true;
}

}  // namespace

Conversation::Conversation(Listener* listener) : listener_(listener) {
    if (!idle.empty()) {
        id_ = idle.back();
        idle.pop_back();
        return;
    }
    initError_ = DdeInitializeA(
        &id_, callback, APPCMD_CLIENTONLY | CBF_SKIP_REGISTRATIONS | CBF_SKIP_UNREGISTRATIONS, 0);
}

Conversation::~Conversation() {
    if (handle_) {
        dropStrayAcks();
        conversations.erase(handle_);
        DdeDisconnect(handle_);
    }
    if (initError_ == DMLERR_NO_ERROR) idle.push_back(id_);
}

Conversation* Conversation::of(HCONV handle) {
    const auto it = conversations.find(handle);
    return it == conversations.end() ? nullptr : it->second;
}

void Conversation::lost() {
    conversations.erase(handle_);
    handle_ = nullptr;
    listener_->disconnected();
}

UINT Conversation::connect(const std::string& service, const std::string& topic) {
    if (initError_ != DMLERR_NO_ERROR) return initError_;
    HSZ serviceName = DdeCreateStringHandleA(id_, service.c_str(), CP_WINANSI);
    HSZ topicName = DdeCreateStringHandleA(id_, topic.c_str(), CP_WINANSI);
    handle_ = DdeConnect(id_, serviceName, topicName, nullptr);
    const UINT error = handle_ ? DMLERR_NO_ERROR : DdeGetLastError(id_);
    DdeFreeStringHandle(id_, serviceName);
    DdeFreeStringHandle(id_, topicName);
    if (handle_) conversations[handle_] = this;
    return handle_ || error != DMLERR_NO_ERROR ? error : DMLERR_NO_CONV_ESTABLISHED;
}

// Some servers (Wine's DDEML) post a second, stray acknowledgement behind a
// request's data, which the next transaction would take for its own answer: it
// is taken off the queue first, waiting a little where one may be on its way.
void Conversation::dropStrayAcks() {
    CONVINFO info{};
    info.cb = sizeof info;
    const bool waitForOne = afterRequest_;
    afterRequest_ = false;
    if (!DdeQueryConvInfo(handle_, QID_SYNC, &info)) return;
    bool taken = false;
    while (takeStrayAck(info.hwnd)) taken = true;
    if (taken || !waitForOne) return;
    const DWORD start = GetTickCount();
    for (;;) {
        const DWORD spent = GetTickCount() - start;
        if (spent >= StrayAckWaitMs) return;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, StrayAckWaitMs - spent, QS_POSTMESSAGE);
        if (takeStrayAck(info.hwnd)) return;
    }
}

UINT Conversation::transact(const void* bytes, DWORD size, const std::string& item, UINT type,
                            DWORD timeoutMs, HDDEDATA* result) {
    *result = nullptr;
    if (!handle_) return DMLERR_NO_CONV_ESTABLISHED;
    dropStrayAcks();
    HSZ itemName = item.empty() ? nullptr : DdeCreateStringHandleA(id_, item.c_str(), CP_WINANSI);
    DWORD status = 0;
    *result = DdeClientTransaction(static_cast<LPBYTE>(const_cast<void*>(bytes)), size, handle_,
                                   itemName, CF_TEXT, type, timeoutMs, &status);
    const UINT error = *result ? DMLERR_NO_ERROR : DdeGetLastError(id_);
    if (itemName) DdeFreeStringHandle(id_, itemName);
    return *result || error != DMLERR_NO_ERROR ? error : DMLERR_NOTPROCESSED;
}

UINT Conversation::request(const std::string& item, DWORD timeoutMs, std::string* value) {
    HDDEDATA data = nullptr;
    const UINT error = transact(nullptr, 0, item, XTYP_REQUEST, timeoutMs, &data);
    if (error != DMLERR_NO_ERROR) return error;
    *value = textOf(data);
    DdeFreeDataHandle(data);
    afterRequest_ = true;
    return DMLERR_NO_ERROR;
}

UINT Conversation::execute(const std::string& command, DWORD timeoutMs) {
    HDDEDATA done = nullptr;
    return transact(command.c_str(), static_cast<DWORD>(command.size() + 1), {}, XTYP_EXECUTE,
                    timeoutMs, &done);
}

UINT Conversation::advise(const std::string& item, DWORD timeoutMs) {
    HDDEDATA done = nullptr;
    return transact(nullptr, 0, item, XTYP_ADVSTART, timeoutMs, &done);
}

}  // namespace sidekin::link::dde
