#include "link/ReplyPoster.h"

#include <utility>

void CReplyPoster::PostReply(std::uint32_t message, std::unique_ptr<ReplyBlock> block, std::intptr_t lParam) {
    mailbox.Post(std::move(block), [&](std::uintptr_t wParam) {
        const HWND receiver = window;
        // Posted to no window, a message would go to the calling thread itself, and count as posted.
        return receiver != nullptr && ::PostMessageA(receiver, message, wParam, lParam) != FALSE;
    });
}
