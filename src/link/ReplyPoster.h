// The one way from the worker thread to a window: a target that posts each reply and keeps its block meanwhile.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>

#include <windows.h>

#include "link/ReplyMailbox.h"
#include "link/ReplyTarget.h"

class CReplyPoster : public CReplyTarget {
public:
    CReplyPoster() = default;
    CReplyPoster(const CReplyPoster&) = delete;
    CReplyPoster& operator=(const CReplyPoster&) = delete;
    virtual ~CReplyPoster() = default;

    // To be set before the first command is queued; until then replies are dropped. User-interface thread.
    void SetWindow(HWND receiver) { window = receiver; }

    // Posts `message` with the block's address, or 0, as wParam. The block is freed when the post fails (no such
    // window, its message queue full).
    void PostReply(std::uint32_t message, std::unique_ptr<ReplyBlock> block, std::intptr_t lParam) override;

    // For the handler of the message: the block of its wParam, null if there is none. User-interface thread.
    std::unique_ptr<ReplyBlock> Take(WPARAM wParam) { return mailbox.Take(wParam); }

private:
    std::atomic<HWND> window{nullptr};
    CReplyMailbox mailbox;
};
