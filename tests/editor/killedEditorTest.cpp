// What the next editor brings back of one that was killed at any moment, while a person did
// anything at random in it.

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <new>
#include <random>
#include <thread>

#include "editor/UndoWalk.h"
#include "editor/UnsavedWork.h"

namespace editor {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t statesKept = 1024;
constexpr auto stepTime = 250ms;
constexpr int stepsInTwoSeconds = 2s / stepTime;

/// What was there from some moment of a step on. One step can go through very many.
struct State {
    rescue::Work work;
    bool isOnFile = true;
    int step = 0;
};

/// What the one that is killed tells of itself until then: its last states.
struct Diary {
    std::atomic<int> steps{0};
    std::atomic<int> states{0};
    std::array<State, statesKept> lastStates{};

    [[nodiscard]] State& at(int number) {
        return lastStates.at(static_cast<std::size_t>(number) % statesKept);
    }
    void note(const TestEditor& editor) {
        const int number = states;
        at(number) = {rescue::workOf(editor.state.sysData, editor.state.stores),
                      !editor.controller.document().hasUnsavedWork(), steps};
        states = number + 1;
    }
};

class SharedDiary {
public:
    SharedDiary()
        : memory_(::mmap(nullptr, sizeof(Diary), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS,
                         -1, 0)),
          diary_(new (memory_) Diary) {}
    SharedDiary(const SharedDiary&) = delete;
    SharedDiary& operator=(const SharedDiary&) = delete;
    ~SharedDiary() { ::munmap(memory_, sizeof(Diary)); }
    Diary* operator->() const { return diary_; }

private:
    void* memory_;
    Diary* diary_;
};

/// Works at random for ever. Its clock goes on by a quarter of a second with each thing it does.
[[noreturn]] void live(UndoWalk& walk, const std::filesystem::path& place,
                       const SharedDiary& diary) {
    TestEditor& editor = walk.editor();
    UnsavedWork::Time now{1h};
    UnsavedWork unsavedWork(editor.controller, editor.window, place, [&now] { return now; });
    diary->note(editor);
    Document& document = editor.controller.document();
    document.onChange = [&, follow = document.onChange] {
        diary->note(editor);
        follow();
    };
    while (true) {
        walk.step();
        now += stepTime;
        ++diary->steps;
        if (const auto wait = unsavedWork.wait(); wait && *wait == 0ms) {
            unsavedWork.timePassed();
        }
    }
}

class KilledWhileSomebodyWorks : public testing::Test {
protected:
    /// Kills an editor at a random moment after one of its first steps.
    void killOne(const SharedDiary& diary) {
        UndoWalk walk(random_());
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            live(walk, place_, diary);
        }
        const int wanted = std::uniform_int_distribution<int>(1, 60)(random_);
        while (diary->steps < wanted) {
            std::this_thread::yield();
        }
        std::this_thread::sleep_for(
            std::chrono::microseconds(std::uniform_int_distribution<int>(0, 3000)(random_)));
        ::kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status));
    }

    /// Whether a state that was there in the last two seconds is like that.
    template <typename Like>
    static bool wasLately(const SharedDiary& diary, Like isLike) {
        const int last = diary->states - 1;
        for (int number = last; number >= 0; --number) {
            if (isLike(diary->at(number))) {
                return true;
            }
            if (diary->at(number).step < diary->steps - stepsInTwoSeconds) {
                return false;  // what was before it ended with it
            }
        }
        return false;
    }

    std::mt19937_64 random_{std::random_device()()};
    files::TemporaryFolder folder_{files::parentInMemory()};
    const std::filesystem::path place_ = folder_ / "state";
};

TEST_F(KilledWhileSomebodyWorks, AnEditorLosesTwoSecondsAtMostAndNothingIsTorn) {
    int broughtBack = 0;
    for (int round = 0; round < 300; ++round) {
        const SharedDiary diary;
        killOne(diary);
        TestEditor next;
        UnsavedWork unsavedWork(next.controller, next.window, place_);
        unsavedWork.lookAround();
        EXPECT_EQ(next.window.status.stringValue().find("Left alone"), std::string::npos);
        ASSERT_LE(unsavedWork.offers().size(), 1U);
        if (unsavedWork.offers().empty()) {
            EXPECT_TRUE(wasLately(diary, [](const State& state) { return state.isOnFile; }));
            continue;
        }
        const rescue::Leftover offer = unsavedWork.offers().front();
        unsavedWork.bringBack(offer);
        ++broughtBack;
        EXPECT_TRUE(wasLately(diary, [now = rescue::workOf(next.state.sysData, next.state.stores)](
                                         const State& state) { return state.work == now; }))
            << "round " << round << ", killed after step " << diary->steps;
        unsavedWork.discard(offer);
        next.controller.undo();
        unsavedWork.end();
        EXPECT_FALSE(std::filesystem::exists(place_) &&
                     !rescue::lookInto(place_).leftovers.empty());
        std::filesystem::remove_all(place_);  // halves of files too
    }
    EXPECT_GT(broughtBack, 150);
}

}  // namespace
}  // namespace editor
