#pragma once

#include <vector>

namespace sidekin::bench {

// Round trips, in microseconds, of a plain AF_UNIX stream ping-pong with a forked
// echo process: requestBytes out, answerBytes back, blocking reads on both ends.
// The least a request over the link can cost on this machine. Empty on failure.
std::vector<double> socketPingPong(int rounds, int warmup, int requestBytes, int answerBytes);

}  // namespace sidekin::bench
