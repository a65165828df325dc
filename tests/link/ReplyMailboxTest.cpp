// Ownership of a reply on its way between two threads. The sanitizers of the host build turn a block that leaks, is
// freed twice or is read across threads without order into a failure.
#include "link/ReplyMailbox.h"

#include <map>

#include <gtest/gtest.h>

#include "support/Seed.h"

namespace {

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
        const std::size_t steps = underWay.empty() ? 0 : random() % underWay.size();
        const auto any = std::next(underWay.begin(), static_cast<std::ptrdiff_t>(steps));
        take(any == underWay.end() ? 1 : any->first + (random() % 4 == 0 ? 8 : 0));
    };
    for (int number = 0; number < 5000 && !testing::Test::HasFailure(); ++number) {
        const bool arrives = random() % 3 != 0;
        std::uintptr_t sent = 0;
        auto block = random() % 20 == 0 ? nullptr : std::make_unique<ReplyBlock>();
        const bool isBlock = block != nullptr;
        if (isBlock) block->address = number;
        EXPECT_EQ(mailbox.Post(std::move(block),
                               [&](std::uintptr_t wParam) {
                                   EXPECT_EQ((sent = wParam) != 0, isBlock);
                                   if (wParam != 0) underWay[wParam] = number;
                                   for (auto turns = random() % 3; turns > 0; --turns) takeAny();
                                   return arrives;
                               }),
                  arrives);
        if (!arrives) underWay.erase(sent), take(sent);
        for (auto turns = random() % 3; turns > 0; --turns) takeAny();
    }
    mailbox.Post(std::make_unique<ReplyBlock>(),
                 [](std::uintptr_t) { return true; }); // never asked for: dies with the mailbox
}

} // namespace
