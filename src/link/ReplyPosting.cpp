#include "link/ReplyPosting.h"

bool PostReplyMessage(HWND window, CReplyMailbox& mailbox, std::uint32_t message, std::unique_ptr<ReplyBlock> block,
                      std::intptr_t lParam) {
    return mailbox.Post(std::move(block), [&](std::uintptr_t wParam) {
        // Posted to no window, a message would go to the calling thread itself, and count as posted.
        return window != nullptr && PostMessageA(window, message, wParam, lParam) != 0;
    });
}
