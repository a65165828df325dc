// Holds the blocks whose messages are under way from the worker to the user-interface thread.
//
// A posted message can carry an address but no ownership, and anybody may post such a message. So a block stays owned
// here while its message waits, and the receiver asks for it by the address that the message brought: an address that
// is none of these gives nothing. Blocks that nobody has asked for die with the mailbox.
//
// One thread posts (the worker), one other takes (the user-interface thread); neither ever waits for the other.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "link/ReplyBlock.h"

class CReplyMailbox {
public:
    CReplyMailbox() = default;
    CReplyMailbox(const CReplyMailbox&) = delete;
    CReplyMailbox& operator=(const CReplyMailbox&) = delete;

    // Both threads must be done with the mailbox.
    ~CReplyMailbox();

    // Posting thread. Calls `send(wParam)` once, with the block's address or 0 for no block, which posts the message
    // and tells whether that worked. After a failed post the block is gone: at once, or, where the taking thread has
    // gathered it in the meantime, at that thread's next Take. Gives what `send` gave.
    template <class Send>
    bool Post(std::unique_ptr<ReplyBlock> block, Send&& send) {
        if (!block) return send(std::uintptr_t{0});
        const ReplyBlock* const posted = block.get();
        const Pushed pushed = Push(std::move(block), nullptr);
        if (send(reinterpret_cast<std::uintptr_t>(posted))) return true;
        Withdraw(pushed, posted);
        return false;
    }

    // Taking thread. The block at this address if it was posted here and not taken yet, else null. 0 is never a block.
    std::unique_ptr<ReplyBlock> Take(std::uintptr_t wParam);

private:
    // What the posting thread has to say: here is a block, or forget the block at this address.
    struct Notice {
        std::unique_ptr<ReplyBlock> block;
        const ReplyBlock* withdrawn;
        Notice* next;
    };

    // A notice just pushed and the one beneath it. Mere addresses: the taking thread may have freed both.
    struct Pushed {
        Notice* notice;
        Notice* beneath;
    };

    Pushed Push(std::unique_ptr<ReplyBlock> block, const ReplyBlock* withdrawn);
    void Withdraw(Pushed pushed, const ReplyBlock* block);
    void Gather();

    // Both threads: the notices not gathered yet, the latest first.
    std::atomic<Notice*> newest{nullptr};
    // Taking thread only: blocks gathered and not taken yet.
    std::vector<std::unique_ptr<ReplyBlock>> waiting;
};
