// The one way from the worker thread to a window: what a reply target calls to post.
#pragma once

#include <cstdint>
#include <memory>

#include <windows.h>

#include "link/ReplyMailbox.h"

// Posts `message` with the block's address, or 0, as wParam. The block waits in `mailbox`, where the handler of the
// message takes it. False when the post failed (no such window, its message queue full); the block is freed then.
bool PostReplyMessage(HWND window, CReplyMailbox& mailbox, std::uint32_t message, std::unique_ptr<ReplyBlock> block,
                      std::intptr_t lParam);
