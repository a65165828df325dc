#include <condition_variable>
#include <mutex>

#include "framework/Signal.h"

struct CSignal::State {
    std::mutex lock;
    std::condition_variable changed;
    bool raised = false;
};

CSignal::CSignal() : state(std::make_unique<State>()) {}
CSignal::~CSignal() = default;

void CSignal::Raise() {
    const std::scoped_lock hold(state->lock);
    state->raised = true;
    state->changed.notify_one();
}

void CSignal::Await() {
    std::unique_lock hold(state->lock);
    state->changed.wait(hold, [this] { return state->raised; });
    state->raised = false;
}
