#include "DdeServerWindows.h"

#include <dde.h>

#include <algorithm>
#include <cctype>

namespace sidekin::hostsim::dde {

namespace {

std::string stringOf(HSZ handle) {
    char buffer[256] = {};
    DdeQueryStringA(Server::instance().id(), handle, buffer, sizeof buffer, CP_WINANSI);
    return buffer;
}

// Names are compared as DDE compares them: without regard to case.
std::string lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::string bytesOf(HDDEDATA data) {
    const DWORD size = DdeGetData(data, nullptr, 0, 0);
    std::string bytes(size, '\0');
    if (size > 0) DdeGetData(data, reinterpret_cast<LPBYTE>(bytes.data()), size, 0);
    const auto end = bytes.find('\0');
    if (end != std::string::npos) bytes.resize(end);
    return bytes;
}

HDDEDATA flag(bool yes) { return reinterpret_cast<HDDEDATA>(static_cast<ULONG_PTR>(yes)); }

HDDEDATA textData(const std::string& text, HSZ item) {
    return DdeCreateDataHandle(Server::instance().id(),
                               reinterpret_cast<LPBYTE>(const_cast<char*>(text.c_str())),
                               static_cast<DWORD>(text.size() + 1), 0, item, CF_TEXT, 0);
}

HDDEDATA CALLBACK callback(UINT type, UINT format, HCONV conversation, HSZ topic, HSZ item,
                           HDDEDATA data, ULONG_PTR, ULONG_PTR) {
    Server& server = Server::instance();
    Server::Handler* handler = server.handler();
    if (!handler) return nullptr;
    switch (type) {
        case XTYP_CONNECT:
            return flag(handler->acceptsTopic(stringOf(topic)));
        case XTYP_CONNECT_CONFIRM:
            handler->connected(conversation, stringOf(topic));
            return nullptr;
        case XTYP_DISCONNECT:
            server.forget(conversation);
            handler->disconnected(conversation);
            return nullptr;
        case XTYP_EXECUTE: {
            const Answer answer = handler->execute(conversation, stringOf(topic), bytesOf(data));
            switch (answer.kind) {
                case Answer::Done:
                    return reinterpret_cast<HDDEDATA>(static_cast<ULONG_PTR>(DDE_FACK));
                case Answer::Busy:
                    return reinterpret_cast<HDDEDATA>(static_cast<ULONG_PTR>(DDE_FBUSY));
                case Answer::Hold:
                    return CBR_BLOCK;
                default:
                    return reinterpret_cast<HDDEDATA>(static_cast<ULONG_PTR>(DDE_FNOTPROCESSED));
            }
        }
        case XTYP_REQUEST: {
            if (format != CF_TEXT) return nullptr;
            const Answer answer = handler->request(conversation, stringOf(topic), stringOf(item));
            if (answer.kind == Answer::Hold) return CBR_BLOCK;
            return answer.kind == Answer::Done ? textData(answer.data, item) : nullptr;
        }
        case XTYP_ADVSTART: {
            if (format != CF_TEXT) return flag(false);
            const Answer answer = handler->advise(conversation, stringOf(topic), stringOf(item));
            if (answer.kind == Answer::Hold) return CBR_BLOCK;
            return flag(answer.kind == Answer::Done);
        }
        case XTYP_ADVREQ:
            return server.nextValue(conversation, item);
        default:
            return nullptr;
    }
}

}  // namespace

Server& Server::instance() {
    static Server server;
    return server;
}

UINT Server::start(Handler* handler) {
    handler_ = handler;
    if (id_) return DMLERR_NO_ERROR;
    return DdeInitializeA(
        &id_, callback,
        APPCLASS_STANDARD | CBF_FAIL_POKES | CBF_SKIP_REGISTRATIONS | CBF_SKIP_UNREGISTRATIONS, 0);
}

bool Server::serve(const std::string& service) {
    HSZ name = DdeCreateStringHandleA(id_, service.c_str(), CP_WINANSI);
    const bool served = DdeNameService(id_, name, nullptr, DNS_REGISTER) != nullptr;
    DdeFreeStringHandle(id_, name);
    return served;
}

void Server::stop() {
    if (!id_) return;
    handler_ = nullptr;
    DdeUninitialize(id_);
    id_ = 0;
    waiting_.clear();
}

void Server::queue(HCONV conversation, const std::string& item, const std::string& value) {
    waiting_[{conversation, lower(item)}].push_back(value);
}

// Topic 0: Wine's DDEML passes over the topic and would send a value once per call.
void Server::post(const std::string& item) {
    if (!id_) return;
    HSZ name = DdeCreateStringHandleA(id_, item.c_str(), CP_WINANSI);
    DdePostAdvise(id_, nullptr, name);
    DdeFreeStringHandle(id_, name);
}

// Wine's DDEML does not end a conversation from the server's side: the
// terminate is posted as a DDE server window would, then DDEML is told.
void Server::drop(HCONV conversation) {
    forget(conversation);
    CONVINFO info{};
    info.cb = sizeof info;
    if (DdeQueryConvInfo(conversation, QID_SYNC, &info))
        PostMessageA(info.hwndPartner, WM_DDE_TERMINATE, reinterpret_cast<WPARAM>(info.hwnd), 0);
    DdeDisconnect(conversation);
}

// An advise request that finds nothing queued for its link sends nothing.
HDDEDATA Server::nextValue(HCONV conversation, HSZ item) {
    const auto it = waiting_.find({conversation, lower(stringOf(item))});
    if (it == waiting_.end() || it->second.empty()) return nullptr;
    const std::string value = it->second.front();
    it->second.pop_front();
    return textData(value, item);
}

void Server::forget(HCONV conversation) {
    for (auto it = waiting_.begin(); it != waiting_.end();)
        it = it->first.first == conversation ? waiting_.erase(it) : std::next(it);
}

}  // namespace sidekin::hostsim::dde
