// Ownership of a reply on its way between two threads. The sanitizers of the host build turn a block that leaks, is
// freed twice or is read across threads without order into a failure.
#include "link/ReplyMailbox.h"

#include <deque>
#include <map>
#include <mutex>
#include <thread>

#include <gtest/gtest.h>

#include "support/Seed.h"

namespace {

std::unique_ptr<ReplyBlock> Block(std::int32_t number) {
    auto block = std::make_unique<ReplyBlock>();
    block->address = number;
    return block;
}

// Posts, good and bad, and the takings of a receiver who may be asked for anything, also in the middle of a post.
TEST(ReplyMailbox, GivesEachBlockOnceAndNothingForOtherNumbers) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    std::mt19937 random(seed);
    CReplyMailbox mailbox;
    std::map<std::uintptr_t, int> underWay; // number of the block by its address
    const auto take = [&](std::uintptr_t wParam) {
        const auto block = mailbox.Take(wParam);
        EXPECT_EQ(block ? block->address : -1, underWay.contains(wParam) ? underWay[wParam] : -1);
        underWay.erase(wParam);
    };
    const auto takeAny = [&] {
        const auto any = std::next(underWay.begin(), underWay.empty() ? 0 : random() % underWay.size());
        take(any == underWay.end() ? 1 : any->first + (random() % 4 == 0 ? 8 : 0));
    };
    for (int number = 0; number < 5000 && !testing::Test::HasFailure(); ++number) {
        const bool arrives = random() % 3 != 0;
        std::uintptr_t sent = 0;
        EXPECT_EQ(mailbox.Post(random() % 20 == 0 ? nullptr : Block(number),
                               [&](std::uintptr_t wParam) {
                                   sent = wParam;
                                   if (wParam != 0) underWay[wParam] = number;
                                   for (auto turns = random() % 3; turns > 0; --turns) takeAny();
                                   return arrives;
                               }),
                  arrives);
        if (!arrives) underWay.erase(sent), take(sent);
        for (auto turns = random() % 3; turns > 0; --turns) takeAny();
    }
    mailbox.Post(Block(0), [](std::uintptr_t) { return true; }); // never asked for: dies with the mailbox
}

// Two real threads with a message queue between them that is often full.
TEST(ReplyMailbox, TwoThreadsAgree) {
    CReplyMailbox mailbox;
    std::mutex mutex;
    std::deque<std::uintptr_t> messages;
    std::atomic<bool> finished{false};
    int posted = 0, latest = -1, taken = 0, wrong = 0;
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
    for (bool last = false; !last;) {
        last = finished;
        std::uintptr_t wParam = 0;
        if (const std::lock_guard guard(mutex); !messages.empty())
            wParam = messages.front(), messages.pop_front(), last = false;
        const auto block = mailbox.Take(wParam); // with 0 too: gathering then meets posts at every stage
        if (wParam == 0) continue;
        wrong += !block || block->address <= latest;
        latest = block ? block->address : latest;
        ++taken;
    }
    worker.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(taken, posted);
}

} // namespace
