#include "DdeThreadWindows.h"

#include <thread>

namespace sidekin::link::dde {

struct WorkThread::Task {
    std::function<void()> work;
    HANDLE done = nullptr;  // none for posted work
    bool dropped = false;
    ~Task() {
        if (done) CloseHandle(done);
    }
};

WorkThread::WorkThread() : wake_(CreateEventA(nullptr, FALSE, FALSE, nullptr)) {}

WorkThread::~WorkThread() { CloseHandle(wake_); }

std::shared_ptr<WorkThread> WorkThread::start() {
    std::shared_ptr<WorkThread> thread(new WorkThread);
    // The thread keeps itself until it finishes; one held by a stopped host is
    // never waited for.
    std::thread([thread] { thread->run(); }).detach();
    return thread;
}

void WorkThread::hand(std::shared_ptr<Task> task) {
    {
        std::lock_guard lock(mutex_);
        tasks_.push_back(std::move(task));
    }
    SetEvent(wake_);
}

std::shared_ptr<WorkThread::Task> WorkThread::next() {
    std::lock_guard lock(mutex_);
    while (!tasks_.empty()) {
        auto task = std::move(tasks_.front());
        tasks_.pop_front();
        if (task->dropped) continue;
        return task;
    }
    return nullptr;
}

void WorkThread::post(std::function<void()> work) {
    auto task = std::make_shared<Task>();
    task->work = std::move(work);
    hand(std::move(task));
}

bool WorkThread::call(std::function<void()> work, DWORD limitMs) {
    auto task = std::make_shared<Task>();
    task->work = std::move(work);
    task->done = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    hand(task);
    const DWORD start = GetTickCount();
    for (;;) {
        const DWORD spent = GetTickCount() - start;
        const DWORD woke = MsgWaitForMultipleObjects(
            1, &task->done, FALSE, spent < limitMs ? limitMs - spent : 0, QS_SENDMESSAGE);
        if (woke == WAIT_OBJECT_0) return true;
        if (woke != WAIT_OBJECT_0 + 1) break;
        // DdeConnect on the work thread sends to every top-level window, ours too.
        MSG msg;
        PeekMessageA(&msg, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    }
    std::lock_guard lock(mutex_);
    task->dropped = true;
    return WaitForSingleObject(task->done, 0) == WAIT_OBJECT_0;
}

void WorkThread::run() {
    MSG msg;
    PeekMessageA(&msg, nullptr, 0, 0, PM_NOREMOVE);  // makes the thread's message queue
    while (!finished_) {
        // Before waiting: a wait counts only what came after the last look at the queue.
        while (PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE))
            if (!passOver_ || !passOver_(msg)) DispatchMessageA(&msg);
        if (const auto task = next()) {
            task->work();
            if (task->done) SetEvent(task->done);
            continue;
        }
        MsgWaitForMultipleObjects(1, &wake_, FALSE, INFINITE, QS_ALLINPUT);
    }
}

}  // namespace sidekin::link::dde
