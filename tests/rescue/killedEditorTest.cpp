#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <new>
#include <random>
#include <thread>

#include "rescue/Keeper.h"
#include "rescue/works.h"

// What the next editor finds of one that was killed at any moment.

namespace rescue {
namespace {

using namespace std::chrono_literals;

/// What the one that is killed tells of itself until then.
struct Progress {
    std::atomic<int> last{0};  // the number of the newest work
};

class SharedProgress {
public:
    SharedProgress()
        : memory_(::mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE,
                         MAP_SHARED | MAP_ANONYMOUS, -1, 0)),
          progress_(new (memory_) Progress) {}
    SharedProgress(const SharedProgress&) = delete;
    SharedProgress& operator=(const SharedProgress&) = delete;
    ~SharedProgress() { ::munmap(memory_, sizeof(Progress)); }
    Progress& operator*() const { return *progress_; }
    Progress* operator->() const { return progress_; }

private:
    void* memory_;
    Progress* progress_;
};

class KilledEditor : public RescueTest {
protected:
    /// Runs an editor, which lives for ever, and kills it once that has come to pass.
    template <typename Live, typename HasHappened>
    void killOnce(HasHappened hasHappened, const SharedProgress& progress, Live live) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            live(*progress);
            ::_exit(1);
        }
        while (!hasHappened()) {
            std::this_thread::yield();
        }
        ::kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status));
    }
    /// The same at a random moment after one of its first works; which one does not depend on how
    /// fast the machine is.
    template <typename Live>
    void killWhile(const SharedProgress& progress, Live live) {
        const int wanted = std::uniform_int_distribution<int>(1, 12)(random_);
        const auto hasHappened = [&] {
            if (progress->last < wanted) {
                return false;
            }
            std::this_thread::sleep_for(
                std::chrono::microseconds(std::uniform_int_distribution<int>(0, 4000)(random_)));
            return true;
        };
        killOnce(hasHappened, progress, live);
    }

private:
    std::mt19937 random_{std::random_device()()};
};

TEST_F(KilledEditor, LeavesAWholeCopyOfWhatWasAtMostTwoSecondsBefore) {
    int found = 0;
    for (int round = 0; round < 300; ++round) {
        const SharedProgress progress;
        killWhile(progress, [this](Progress& its) {
            Keeper keeper(folder);
            Keeper::Time now{};
            for (int number = 1;; ++number, now += 400ms) {
                its.last = number;
                keeper.configurationIs(workWith(number), false, now);
                (void)keeper.timePassed(now);
            }
        });
        Keeper next(folder);
        const Findings findings = next.look();
        EXPECT_THAT(findings.leftAlone, testing::IsEmpty());
        const std::vector<int> numbers = numbersIn(findings);
        ASSERT_LE(numbers.size(), 1U);
        // Five steps take two seconds.
        const int newest = numbers.empty() ? 0 : numbers.front();
        EXPECT_GE(newest, progress->last - 5);
        EXPECT_LE(newest, progress->last);
        found += numbers.empty() ? 0 : 1;
        for (const Leftover& leftover : findings.leftovers) {
            next.discard(leftover.stem);
        }
    }
    EXPECT_GT(found, 150);
}

TEST_F(KilledEditor, BringsNothingToLightAgainThatWasSavedBefore) {
    for (int round = 0; round < 100; ++round) {
        const SharedProgress progress;
        killWhile(progress, [this](Progress& its) {
            Keeper keeper(folder);
            const Keeper::Time now{};
            for (int number = 1;; number += 2) {
                its.last = number;
                keeper.configurationIs(workWith(number), false, now);
                keeper.end();
                keeper.configurationIs(workWith(number + 1), false, now);
                keeper.end();
                keeper.configurationIs(workWith(number + 1), true, now);
                keeper.end();
            }
        });
        Keeper next(folder);
        for (const Leftover& leftover : next.look().leftovers) {
            EXPECT_GE(numberOf(leftover.work), progress->last);
            next.discard(leftover.stem);
        }
        EXPECT_THAT(next.look().leftAlone, testing::IsEmpty());
        tidy(folder, mostLeftovers);
        for (const std::string& name : names()) {
            EXPECT_TRUE(name.starts_with(".unfinished-")) << name;
        }
    }
}

TEST_F(KilledEditor, BringsNoOlderOneToLightWhenItWasDiscardingANewer) {
    constexpr int newest = 100;
    const std::string stem = "unsaved-00000001";
    for (int round = 0; round < 10; ++round) {
        std::filesystem::create_directories(folder);
        for (int number = 1; number <= newest; ++number) {
            const auto at = static_cast<std::uint64_t>(number);
            files::write(folder / fileName({stem, Part::Shown, at}),
                         presetTextOf(workWith(number).shown));
            files::write(folder / fileName({stem, Part::UserDefined, at}),
                         presetTextOf(workWith(number).userDefined));
        }
        const SharedProgress progress;
        const auto hasBegun = [this] { return names().size() < std::size_t{2} * newest; };
        killOnce(hasBegun, progress, [&](Progress&) {
            auto taken = HeldCopy::take(folder, stem);
            if (taken && taken->read()) {
                HeldCopy::discard(std::move(*taken));
            }
            ::pause();
        });
        const std::vector<int> numbers = numbersIn(lookInto(folder));
        EXPECT_TRUE(numbers.empty() || numbers.front() == newest)
            << testing::PrintToString(numbers);
        std::filesystem::remove_all(folder);
    }
}

}  // namespace
}  // namespace rescue
