// The queue with its real worker, against a model of what is queued, in flight and done.
#include "link/CommandQueue.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <vector>

#include <gtest/gtest.h>

#include "support/Seed.h"

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

bool Eventually(const std::function<bool()>& condition) {
    for (const auto deadline = Clock::now() + 10s; !condition() && Clock::now() < deadline;) PauseThread(1);
    return condition();
}

constexpr int everyId = -2;

// What the commands of one test do and report: `released` needn't stay in flight, `done` is written on the worker.
struct Journal {
    std::atomic<int> alive{0}, inside{0}, latest{-1}, released{everyId};
    std::vector<int> done;
    Clock::time_point end;
};

struct CJournalCommand : CCommand {
    CJournalCommand(Journal& target, int number) : journal(target), id(number) { ++journal.alive; }
    ~CJournalCommand() override { --journal.alive; }
    void Execute() override {
        EXPECT_TRUE(Clock::now() - journal.end >= 10ms && ++journal.inside == 1) << "no pause, or two at a time";
        journal.latest = id;
        EXPECT_TRUE(Eventually([&] { return journal.released == id || journal.released == everyId; }));
        journal.done.push_back(id);
        --journal.inside;
        journal.end = Clock::now();
    }
    Journal& journal;
    int id;
};

// The queue as its users understand it. While a command is held in flight, nothing happens by itself.
struct QueueModel {
    bool IsIdle() const { return running && inFlight < 0; }
    // What the worker does until it is in a command again, or has nothing to do.
    void Settle() {
        if (IsIdle() && stopRequested) running = false;
        if (IsIdle() && !queued.empty()) inFlight = queued.front(), queued.pop_front();
    }
    void Start() {
        if (!running && !shut) running = true, stopRequested = false;
    }
    std::deque<int> queued;
    int inFlight = -1; // its number
    bool running = false, stopRequested = false, shut = false;
};

TEST(CommandQueue, DoesWhatItsUsersUnderstand) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    std::mt19937 random(seed);
    Journal journal;
    journal.released = -1;
    QueueModel model;
    std::vector<int> done;
    {
        CCommandQueue queue;
        EXPECT_EQ(queue.GetThreadHandle(), nullptr);
        for (int step = 0; step < 250 && !testing::Test::HasFailure(); ++step) {
            const auto operation = random() % 12;
            if (operation < 3) {
                EXPECT_EQ(queue.Add(std::make_unique<CJournalCommand>(journal, step)), 0);
                if (!model.shut) model.queued.push_back(step), model.Start();
            } else if (operation == 3) { // skipped when its turn comes
                queue.Add(nullptr), model.Start();
            } else if (operation < 6 && model.inFlight >= 0) {
                done.push_back(journal.released = std::exchange(model.inFlight, -1));
            } else if (operation == 6) {
                queue.Start(), model.Start();
            } else if (operation == 7) {
                queue.Stop(), model.stopRequested = true;
            } else if (operation == 8 || operation == 9) {
                operation == 8 ? queue.DropQueued() : queue.Shut();
                model.queued.clear();
                if (operation == 9) model.shut = model.stopRequested = true;
                EXPECT_LE(journal.alive, 1) << "only what is in flight is left";
            } else if (operation > 9) {
                queue.Reopen(), model.shut = false;
            }
            model.Settle();
            EXPECT_TRUE(Eventually([&] {
                            return queue.IsRunning() == model.running &&
                                   journal.inside == (model.inFlight < 0 ? 0 : 1) &&
                                   (model.inFlight < 0 || journal.latest == model.inFlight) &&
                                   journal.alive == static_cast<int>(model.queued.size()) + journal.inside;
                        }) &&
                        queue.IsShut() == model.shut)
                << "step " << step << ", operation " << operation << ", in flight " << model.inFlight;
        }
        queue.Reopen();
        for (int id = 1000; id < 1003; ++id) queue.Add(std::make_unique<CJournalCommand>(journal, id));
        journal.released = everyId;
    } // waits for the command in flight, and takes the others along
    EXPECT_EQ(journal.alive, 0);
    journal.done.resize(std::min(journal.done.size(), done.size())); // and perhaps one of the last three
    EXPECT_EQ(journal.done, done);
}

TEST(CommandQueue, AddsAndDropsMeetTheWorkerAtAnyMoment) {
    Journal journal;
    CCommandQueue& queue = *CCommandQueue::Instance();
    for (int id = 0; id < 300; ++id) {
        queue.Add(std::make_unique<CJournalCommand>(journal, id));
        if (id % 7 == 0) queue.DropQueued();
        if (id % 20 == 0) PauseThread(3);
    }
    CCommandQueue::Instance()->DropQueued();
    EXPECT_TRUE(Eventually([&] { return journal.alive == 0; }) && queue.IsRunning()) << "idle, but there";
    EXPECT_TRUE(std::ranges::is_sorted(journal.done, std::less_equal{})) << "run twice, or out of order";
}

} // namespace
