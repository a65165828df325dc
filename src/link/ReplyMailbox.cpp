// The crossing is a stack of notices: the posting thread pushes one at a time, the taking thread carries off the whole
// chain. With one posting thread, and a taker that only ever empties the stack, the notice just pushed stays the newest
// until it is carried off.
#include "link/ReplyMailbox.h"

CReplyMailbox::~CReplyMailbox() {
    Gather();
}

CReplyMailbox::Pushed CReplyMailbox::Push(std::unique_ptr<ReplyBlock> block, const ReplyBlock* withdrawn) {
    Notice* beneath = newest.load(std::memory_order_relaxed);
    auto* const notice = new Notice{std::move(block), withdrawn, beneath};
    while (!newest.compare_exchange_weak(beneath, notice, std::memory_order_release, std::memory_order_relaxed)) {
        notice->next = beneath;
    }
    return {notice, beneath};
}

void CReplyMailbox::Withdraw(Pushed pushed, const ReplyBlock* block) {
    Notice* expected = pushed.notice;
    if (newest.compare_exchange_strong(expected, pushed.beneath, std::memory_order_relaxed)) {
        delete pushed.notice;
    } else {
        // The taker has the block, and may even have given it away to a message that guessed its address. A notice
        // keeps the order: it is read before any later block that happens to get the same address.
        Push(nullptr, block);
    }
}

void CReplyMailbox::Gather() {
    Notice* oldest = nullptr;
    for (Notice* notice = newest.exchange(nullptr, std::memory_order_acquire); notice != nullptr;) {
        Notice* const next = std::exchange(notice->next, oldest);
        oldest = std::exchange(notice, next);
    }
    while (oldest != nullptr) {
        const std::unique_ptr<Notice> notice(std::exchange(oldest, oldest->next));
        if (notice->block) {
            waiting.push_back(std::move(notice->block));
        } else {
            std::erase_if(waiting, [&](const auto& block) { return block.get() == notice->withdrawn; });
        }
    }
}

std::unique_ptr<ReplyBlock> CReplyMailbox::Take(std::uintptr_t wParam) {
    Gather();
    for (auto block = waiting.begin(); block != waiting.end(); ++block) {
        if (reinterpret_cast<std::uintptr_t>(block->get()) != wParam) continue;
        auto taken = std::move(*block);
        waiting.erase(block);
        return taken;
    }
    return nullptr;
}
