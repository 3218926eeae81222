#include "SocketFloor.h"

#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>

namespace sidekin::bench {

namespace {

bool transfer(int fd, char* bytes, int size, bool out) {
    for (int done = 0; done < size;) {
        const ssize_t n =
            out ? ::write(fd, bytes + done, size - done) : ::read(fd, bytes + done, size - done);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        done += static_cast<int>(n);
    }
    return true;
}

// Only system calls here: the child of a threaded process may do no more.
[[noreturn]] void echo(int fd, int requestBytes, int answerBytes) {
    char bytes[4096] = {};
    while (transfer(fd, bytes, requestBytes, false) && transfer(fd, bytes, answerBytes, true)) {
    }
    ::_exit(0);
}

}  // namespace

std::vector<double> socketPingPong(int rounds, int warmup, int requestBytes, int answerBytes) {
    std::vector<double> times;
    if (requestBytes > 4096 || answerBytes > 4096) return times;
    int fds[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, fds) != 0) return times;
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(fds[0]);
        echo(fds[1], requestBytes, answerBytes);
    }
    ::close(fds[1]);
    if (child > 0) {
        char bytes[4096] = {};
        times.reserve(static_cast<std::size_t>(rounds));
        for (int i = 0; i < warmup + rounds; ++i) {
            const auto t0 = std::chrono::steady_clock::now();
            if (!transfer(fds[0], bytes, requestBytes, true) ||
                !transfer(fds[0], bytes, answerBytes, false)) {
                times.clear();
                break;
            }
            const auto t1 = std::chrono::steady_clock::now();
            if (i >= warmup)
                times.push_back(std::chrono::duration<double, std::micro>(t1 - t0).count());
        }
    }
    ::close(fds[0]);
    if (child > 0) ::waitpid(child, nullptr, 0);
    return times;
}

}  // namespace sidekin::bench
