#include "interrupt.h"

#include <atomic>
#include <csignal>

namespace {

std::atomic<bool> interrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free,
              "a signal handler may only touch such a flag");

void noteInterrupt(int) {
    interrupted.store(true, std::memory_order_relaxed);
}

} // namespace

void catchInterrupts() {
    struct sigaction action = {};
    action.sa_handler = noteInterrupt;
    action.sa_flags = int(SA_RESETHAND | SA_RESTART);
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

bool isInterrupted() {
    return interrupted.load(std::memory_order_relaxed);
}
