// The program's queue of commands, as a test waits for it.
#pragma once

#include <atomic>
#include <memory>

#include <gtest/gtest.h>

#include "link/CommandQueue.h"
#include "support/Windows.h"

// Waits until every command has run and what it posted is handled.
inline void RunQueue() {
    static std::atomic<bool> ran; // the worker may outlive a wait that fails
    struct CLastCommand : CCommand {
        void Execute() override { ran = true; }
    };
    ran = false;
    CCommandQueue::Instance()->Add(std::make_unique<CLastCommand>());
    EXPECT_TRUE(PumpUntil([] { return ran.load(); }));
    PumpMessages();
}
