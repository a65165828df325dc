// What one thread waits for and others raise.
#pragma once

#include <memory>

class CSignal {
public:
    CSignal();
    ~CSignal();
    CSignal(const CSignal&) = delete;
    CSignal& operator=(const CSignal&) = delete;

    // On any thread. Stays raised until somebody has waited for it.
    void Raise();

    // Waits until it is raised, and lowers it.
    void Await();

private:
    struct State; // the platform's objects
    std::unique_ptr<State> state;
};
