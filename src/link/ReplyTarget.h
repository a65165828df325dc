// Where a command's reply goes: the narrow face of the panel that the worker thread sees.
#pragma once

#include <cstdint>
#include <memory>

#include "link/ReplyBlock.h"

class CReplyTarget {
public:
    // Posts `message` to the target's window with the block's address, or 0 for none, as wParam, and never waits for
    // the window. Called on the worker thread. The block is handed over in any case: a post that fails frees it.
    virtual void PostReply(std::uint32_t message, std::unique_ptr<ReplyBlock> block, std::intptr_t lParam) = 0;

protected:
    CReplyTarget() = default;
    CReplyTarget(const CReplyTarget&) = default;
    CReplyTarget& operator=(const CReplyTarget&) = default;
    ~CReplyTarget() = default;
};
