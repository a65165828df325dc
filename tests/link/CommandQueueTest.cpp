// The queue with its real worker: order, pauses, ownership, and the end of the process.
#include "link/CommandQueue.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <mutex>
#include <vector>

#include <gtest/gtest.h>

#include "TimeFactor.h"

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

// What the commands of one test report. Written on the worker; to be read once all are gone.
struct Journal {
    std::atomic<int> alive{0};
    std::vector<int> ids;
    std::vector<Clock::duration> gaps; // between the end of one command and the start of the next
    Clock::time_point end;
};

class CJournalCommand : public CCommand {
public:
    CJournalCommand(Journal& target, int number, std::function<void()> body)
        : journal(target), id(number), work(std::move(body)) {
        ++journal.alive;
    }
    ~CJournalCommand() override { --journal.alive; }
    void Execute() override {
        if (!journal.ids.empty()) journal.gaps.push_back(Clock::now() - journal.end);
        if (work) work();
        journal.ids.push_back(id);
        journal.end = Clock::now();
    }

private:
    Journal& journal;
    int id;
    std::function<void()> work;
};

class CommandQueue : public testing::Test {
protected:
    void Add(int id, std::function<void()> work = {}) {
        queue.Add(std::make_unique<CJournalCommand>(journal, id, std::move(work)));
    }
    // Adds a command and waits until the worker is inside it, where it stays until `release`.
    void AddBlocking(int id) {
        Add(id, [this] {
            inside = true;
            while (!release) PauseThread(1);
        });
        ASSERT_TRUE(Eventually([&] { return inside.load(); }));
    }
    static bool Eventually(const std::function<bool()>& condition) {
        const auto deadline = Clock::now() + 10s * TimeFactor();
        while (!condition() && Clock::now() < deadline) PauseThread(1);
        return condition();
    }
    bool AllGone() {
        return Eventually([&] { return journal.alive == 0; });
    }
    bool WorkerLeft() {
        return Eventually([&] { return !queue.IsRunning(); });
    }

    Journal journal;
    std::atomic<bool> inside{false}, release{false};
    CCommandQueue queue;
};

TEST_F(CommandQueue, RunsInOrderOneAtATimeWithAPauseBetween) {
    std::vector<int> expected;
    EXPECT_FALSE(queue.IsRunning());
    queue.Add(nullptr); // removed and skipped
    for (int id = 0; id < 20; ++id) {
        queue.Start(); // must not make a second worker
        Add(id, [] { PauseThread(2); });
        expected.push_back(id);
    }
    ASSERT_TRUE(AllGone());
    EXPECT_EQ(journal.ids, expected);
    EXPECT_GE(std::ranges::min(journal.gaps), 10ms);
    EXPECT_TRUE(queue.IsRunning()); // idle, but there
}

TEST_F(CommandQueue, StopLeavesTheRestQueuedUntilTheNextStart) {
    AddBlocking(0);
    Add(1);
    queue.Stop();
    EXPECT_TRUE(queue.IsRunning()); // the command in flight ends first
    release = true;
    ASSERT_TRUE(WorkerLeft());
    EXPECT_EQ(journal.ids, std::vector{0});
    Add(2); // starts a new worker
    ASSERT_TRUE(AllGone());
    EXPECT_EQ(journal.ids, (std::vector{0, 1, 2}));
}

TEST_F(CommandQueue, TheEndOfTheProcessDropsWhatIsQueued) {
    AddBlocking(0);
    for (int id = 1; id < 100; ++id) Add(id);
    queue.Stop();
    queue.DropQueued();
    EXPECT_EQ(journal.alive, 1); // only the one in flight
    release = true;
    ASSERT_TRUE(WorkerLeft());
    EXPECT_EQ(journal.ids, std::vector{0});
    EXPECT_EQ(journal.alive, 0);
}

TEST_F(CommandQueue, EachCommandRunsOrIsDropped) {
    for (int id = 0; id < 200; ++id) {
        Add(id);
        if (id % 7 == 0) queue.DropQueued();
        if (id % 20 == 0) PauseThread(3);
    }
    queue.DropQueued();
    ASSERT_TRUE(AllGone());
    EXPECT_TRUE(std::ranges::is_sorted(journal.ids, std::less_equal{})) << "run twice, or out of order";
}

TEST(Mutex, WaitsForItsOwnerAndNoLongerThanAsked) {
    static CMutex mutex;
    static std::atomic<int> outcome;
    const auto lockedElsewhere = [] {
        outcome = -1;
        CWorkerThread thread;
        EXPECT_TRUE(thread.Start(
            [](void*) noexcept -> unsigned {
                const bool owned = mutex.Lock(20);
                if (owned) mutex.Unlock();
                outcome = owned;
                return 0;
            },
            nullptr));
        while (outcome < 0) PauseThread(1);
        return outcome == 1;
    };
    ASSERT_TRUE(mutex.Lock());
    EXPECT_FALSE(lockedElsewhere());
    mutex.Unlock();
    EXPECT_TRUE(lockedElsewhere());
}

} // namespace
