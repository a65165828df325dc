// Ownership of a reply on its way between two threads. The sanitizers of the host build turn a block that leaks, is
// freed twice or is read across threads without order into a failure.
#include "link/ReplyMailbox.h"

#include <deque>
#include <mutex>
#include <thread>

#include <gtest/gtest.h>

namespace {

std::unique_ptr<ReplyBlock> Block(std::int32_t number) {
    auto block = std::make_unique<ReplyBlock>();
    block->address = number;
    return block;
}

TEST(ReplyMailbox, GivesEachBlockOnceAndNothingForOtherNumbers) {
    CReplyMailbox mailbox;
    std::uintptr_t sent[3]{};
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(mailbox.Post(Block(i), [&](std::uintptr_t wParam) {
            sent[i] = wParam;
            return true;
        }));
    }
    for (const std::uintptr_t madeUp : {std::uintptr_t{0}, std::uintptr_t{1}, sent[1] + 8, ~std::uintptr_t{0}}) {
        EXPECT_EQ(mailbox.Take(madeUp), nullptr) << madeUp;
    }
    for (const int i : {1, 0, 2}) { // messages may be handled in any order
        const auto block = mailbox.Take(sent[i]);
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(block->address, i);
        EXPECT_EQ(mailbox.Take(sent[i]), nullptr);
    }
}

// The post fails while the other thread has done each of the things that it can do at that moment.
TEST(ReplyMailbox, AFailedPostLeavesNoBlockBehind) {
    for (const char* meanwhile : {"nothing", "gathered", "taken"}) {
        CReplyMailbox mailbox;
        std::uintptr_t kept = 0, failed = 0;
        std::unique_ptr<ReplyBlock> stolen;
        mailbox.Post(Block(1), [&](std::uintptr_t wParam) { return (kept = wParam) != 0; });
        EXPECT_FALSE(mailbox.Post(Block(2), [&](std::uintptr_t wParam) {
            failed = wParam;
            if (*meanwhile != 'n') stolen = mailbox.Take(*meanwhile == 't' ? wParam : 1);
            return false;
        })) << meanwhile;
        EXPECT_EQ(stolen != nullptr, *meanwhile == 't');
        EXPECT_EQ(mailbox.Take(failed), nullptr) << meanwhile;
        EXPECT_NE(mailbox.Take(kept), nullptr) << meanwhile;
        mailbox.Post(Block(3), [](std::uintptr_t) { return true; }); // never asked for: dies with the mailbox
    }
}

// Two real threads with a message queue between them that is often full.
TEST(ReplyMailbox, TwoThreadsAgree) {
    CReplyMailbox mailbox;
    std::mutex mutex;
    std::deque<std::uintptr_t> messages;
    std::atomic<bool> finished{false};
    int posted = 0;

    std::thread worker([&] {
        for (int i = 0; i < 20000; ++i) {
            posted += mailbox.Post(Block(i), [&](std::uintptr_t wParam) {
                const std::lock_guard guard(mutex);
                if (messages.size() == 4) return false;
                messages.push_back(wParam);
                return true;
            });
        }
        finished = true;
    });

    const auto next = [&]() -> std::uintptr_t {
        const std::lock_guard guard(mutex);
        if (messages.empty()) return 0;
        const std::uintptr_t front = messages.front();
        messages.pop_front();
        return front;
    };
    int latest = -1, taken = 0, wrong = 0;
    while (true) {
        const bool last = finished;
        const std::uintptr_t wParam = next();
        const auto block = mailbox.Take(wParam); // with 0 too: gathering then meets posts at every stage
        if (wParam != 0) {
            if (!block || block->address <= latest) ++wrong;
            if (block) latest = block->address;
            ++taken;
        } else if (last) {
            break;
        }
    }
    worker.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(taken, posted);
}

} // namespace
