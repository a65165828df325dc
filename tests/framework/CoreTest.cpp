// What the rest stands on: the archive, formatted text, the lock, and threads.
#include <atomic>

#include <gtest/gtest.h>

#include "framework/Archive.h"
#include "framework/Mutex.h"
#include "framework/Text.h"
#include "framework/WorkerThread.h"
#include "support/Hex.h"
#include "support/Seed.h"

namespace {

std::string StoredHex(const CArchive& archive) {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(archive.GetStored().data());
    return HexOf({bytes, archive.GetStored().size()});
}

TEST(Archive, CountsAreShortUntilTheirMark) {
    const std::pair<std::uint32_t, const char*> rows[] = {{0, "00 00"},
                                                          {0x1234, "34 12"},
                                                          {0xFFFE, "fe ff"},
                                                          {0xFFFF, "ff ff ff ff 00 00"},
                                                          {0x10000, "ff ff 00 00 01 00"},
                                                          {0xFEDCBA98, "ff ff 98 ba dc fe"}};
    for (const auto& [count, bytes] : rows) {
        CArchive archive;
        archive.WriteCount(count);
        EXPECT_EQ(StoredHex(archive), bytes);
    }
}

// Each value comes back, and a cut takes nothing of the value that it hits.
TEST(Archive, LoadsWhatItStoredUpToAnyCut) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    std::mt19937 random(seed);
    for (int round = 0; round < 100; ++round) {
        CArchive storing;
        std::vector<std::tuple<bool, std::uint32_t, std::size_t>> values; // whether a count, and where it ends
        for (auto count = random() % 6; count > 0; --count) {
            const bool isCount = random() % 2 == 0;
            const auto value = static_cast<std::uint32_t>(random() >> random() % 32);
            isCount ? storing.WriteCount(value) : storing.WriteDword(value);
            values.emplace_back(isCount, value, storing.GetStored().size());
        }
        ASSERT_TRUE(storing.IsStoring());
        for (std::size_t size = 0; size <= storing.GetStored().size(); ++size) {
            const std::vector<std::byte> cut(storing.GetStored().begin(),
                                             storing.GetStored().begin() + static_cast<std::ptrdiff_t>(size));
            CArchive loading(cut);
            ASSERT_FALSE(loading.IsStoring());
            for (const auto& [isCount, value, end] : values) {
                const std::size_t rest = loading.GetRest();
                const auto read = isCount ? loading.ReadCount() : loading.ReadDword();
                ASSERT_EQ(read, end <= size ? std::optional(value) : std::nullopt);
                ASSERT_EQ(loading.GetRest(), read ? size - end : rest);
                if (!read) break;
            }
        }
    }
}

TEST(FormatText, HasAnyLength) {
    EXPECT_EQ(FormatText("%d %s %02X", -7, "x", 0xAU), "-7 x 0A");
    EXPECT_EQ(FormatText("%s", ""), "");
    EXPECT_EQ(FormatText("%5000d|", 1).size(), 5001U);
}

// The lock is its thread's own, as often as that took it; others wait until it is free, or as long as they said.
TEST(Mutex, LetsOneThreadInAtATime) {
    static CMutex mutex;
    static int entered = 0;
    static std::atomic<int> refused, running;
    constexpr auto enter = [](void* wait) noexcept {
        const bool held = mutex.Lock(wait == nullptr ? 0 : CMutex::infinite);
        held ? ++entered : ++refused;
        if (held) mutex.Unlock();
        --running;
        return 0U;
    };
    const auto awaitThem = [] {
        while (running != 0) PauseThread(1);
    };
    CWorkerThread threads[3];
    {
        const CMutexGuard outer(mutex);
        EXPECT_TRUE(mutex.Lock(0));
        mutex.Unlock();
        running = 1;
        EXPECT_TRUE(threads[0].Start(enter, nullptr));
        awaitThem();
        EXPECT_EQ(refused, 1);
        running = 3;
        for (CWorkerThread& thread : threads) EXPECT_TRUE(thread.Start(enter, &mutex));
        PauseThread(20);
        EXPECT_EQ(running, 3);
    }
    awaitThem();
    EXPECT_EQ(refused, 1);
    EXPECT_EQ(entered, 3);
}

} // namespace
