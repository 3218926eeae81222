#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <memory>
#include <mutex>

namespace sidekin::link::dde {

// A thread with a message loop of its own that runs the work handed to it in
// turn. DDEML ties an instance and its conversations to the thread that made
// them: on a thread of their own, a host that stopped answering holds that
// thread, never the program's.
class WorkThread {
public:
    static std::shared_ptr<WorkThread> start();
    ~WorkThread();

    // Runs work on the thread, waiting up to limitMs and serving the messages
    // other threads send meanwhile. False when it did not end in time; work not
    // yet begun is then left out.
    bool call(std::function<void()> work, DWORD limitMs);
    void post(std::function<void()> work);
    // From work: the thread ends after it.
    void finish() { finished_ = true; }
    // From work: the messages it answers true for are not dispatched.
    void passOver(std::function<bool(const MSG&)> filter) { passOver_ = std::move(filter); }

private:
    struct Task;
    WorkThread();
    void hand(std::shared_ptr<Task> task);
    std::shared_ptr<Task> next();
    void run();

    std::mutex mutex_;
    std::deque<std::shared_ptr<Task>> tasks_;
    HANDLE wake_;
    bool finished_ = false;
    std::function<bool(const MSG&)> passOver_;
};

}  // namespace sidekin::link::dde
