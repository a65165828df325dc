// The queue with its real worker, against a model of what is queued, in flight and done.
#include "link/CommandQueue.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <thread>
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

// What the commands of one test do and report.
struct Journal {
    std::atomic<int> alive{0}, inside{0}, latest{-1};
    std::atomic<int> released{everyId}; // who needn't stay in flight
    std::vector<int> done;              // written on the worker, as are these
    std::vector<Clock::time_point> begun, end;
};

class CJournalCommand : public CCommand {
public:
    CJournalCommand(Journal& target, int number) : journal(target), id(number) { ++journal.alive; }
    ~CJournalCommand() override { --journal.alive; }
    void Execute() override {
        journal.begun.push_back(Clock::now());
        EXPECT_EQ(++journal.inside, 1) << "two commands at a time";
        journal.latest = id;
        while (journal.released != id && journal.released != everyId) PauseThread(1);
        journal.done.push_back(id);
        --journal.inside;
        journal.end.push_back(Clock::now());
    }

private:
    Journal& journal;
    int id;
};

// The queue as its users understand it. While a command is held in flight, nothing happens by itself.
struct QueueModel {
    bool IsIdle() const { return running && inFlight < 0; }
    // What the worker does until it is in a command again, or has nothing to do.
    void Settle() {
        if (IsIdle() && stopRequested) running = false;
        while (IsIdle() && !queued.empty()) {
            inFlight = queued.front();
            queued.pop_front();
        }
    }
    void Start() {
        if (running || shut) return;
        running = true;
        stopRequested = false;
    }
    std::deque<int> queued;
    std::vector<int> done;
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
    {
        CCommandQueue queue;
        EXPECT_EQ(queue.GetThreadHandle(), nullptr);
        for (int step = 0; step < 250 && !testing::Test::HasFailure(); ++step) {
            constexpr std::array names{"add",  "add",  "add",  "finish", "finish", "start",
                                       "null", "stop", "drop", "shut",   "reopen", "reopen"};
            const std::string operation = names.at(random() % names.size());
            SCOPED_TRACE("step " + std::to_string(step) + ", " + operation);
            if (operation == "add") {
                EXPECT_EQ(queue.Add(std::make_unique<CJournalCommand>(journal, step)), 0);
                if (!model.shut) model.queued.push_back(step), model.Start();
            } else if (operation == "null") { // skipped when its turn comes
                queue.Add(nullptr);
                if (!model.shut) model.Start();
            } else if (operation == "finish" && model.inFlight >= 0) {
                journal.released = model.inFlight;
                model.done.push_back(std::exchange(model.inFlight, -1));
            } else if (operation == "start") {
                queue.Start();
                model.Start();
            } else if (operation == "stop") {
                queue.Stop();
                model.stopRequested = true;
            } else if (operation == "drop" || operation == "shut") {
                operation == "drop" ? queue.DropQueued() : queue.Shut();
                model.queued.clear();
                if (operation == "shut") model.shut = model.stopRequested = true;
                EXPECT_LE(journal.alive, 1) << "only what is in flight is left";
            } else if (operation == "reopen") {
                queue.Reopen();
                model.shut = false;
            }
            model.Settle();
            EXPECT_TRUE(Eventually([&] {
                return queue.IsRunning() == model.running && journal.inside == (model.inFlight < 0 ? 0 : 1) &&
                       (model.inFlight < 0 || journal.latest == model.inFlight) &&
                       journal.alive == static_cast<int>(model.queued.size()) + journal.inside;
            })) << queue.IsRunning()
                << model.running << ' ' << journal.latest << ' ' << model.inFlight << ' ' << journal.alive << ' '
                << model.queued.size();
            EXPECT_EQ(queue.IsShut(), model.shut);
        }
        queue.Reopen();
        for (int id = 1000; id < 1003; ++id) queue.Add(std::make_unique<CJournalCommand>(journal, id));
        journal.released = everyId;
    } // waits for the command in flight, and takes the others along
    EXPECT_EQ(journal.alive, 0);
    ASSERT_GE(journal.done.size(), model.done.size());
    EXPECT_TRUE(std::ranges::equal(model.done, std::span(journal.done).first(model.done.size())));
    EXPECT_TRUE(std::ranges::is_sorted(journal.done, std::less_equal{})) << "run twice, or out of order";
    for (std::size_t at = 1; at < journal.begun.size(); ++at)
        EXPECT_GE(journal.begun[at] - journal.end[at - 1], 10ms) << at;
}

TEST(CommandQueue, AddsAndDropsMeetTheWorkerAtAnyMoment) {
    Journal journal;
    CCommandQueue& queue = *CCommandQueue::Instance();
    for (int id = 0; id < 300; ++id) {
        queue.Add(std::make_unique<CJournalCommand>(journal, id));
        queue.Start(); // must not make a second worker
        if (id % 7 == 0) queue.DropQueued();
        if (id % 20 == 0) PauseThread(3);
    }
    queue.DropQueued();
    EXPECT_TRUE(Eventually([&] { return journal.alive == 0; }));
    EXPECT_TRUE(CCommandQueue::Instance()->IsRunning()); // idle, but there
    EXPECT_TRUE(std::ranges::is_sorted(journal.done, std::less_equal{})) << "run twice, or out of order";
    queue.Stop();
#ifdef _WIN32
    EXPECT_EQ(::WaitForSingleObject(queue.GetThreadHandle(), 10'000), WAIT_OBJECT_0);
#endif
    EXPECT_TRUE(Eventually([&] { return !queue.IsRunning(); }));
}

TEST(Mutex, WaitsForItsOwnerAndNoLongerThanAsked) {
    CMutex mutex;
    const auto isFree = [&] {
        bool owned = false;
        std::thread([&] {
            owned = mutex.Lock(20);
            if (owned) mutex.Unlock();
        }).join();
        return owned;
    };
    ASSERT_TRUE(mutex.Lock() && mutex.Lock(0));
    EXPECT_FALSE(isFree());
    mutex.Unlock();
    EXPECT_FALSE(isFree()) << "locked once more";
    mutex.Unlock();
    EXPECT_TRUE(isFree());
}

} // namespace
