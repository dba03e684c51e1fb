#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <random>

#include "rescue/HeldCopy.h"
#include "rescue/Keeper.h"
#include "rescue/works.h"

// Editors that start, work and end in one folder at the same time.

namespace rescue {
namespace {

class SeveralEditors : public RescueTest {
protected:
    /// Runs `live` in so many processes at once; each is told which it is.
    template <typename Live>
    void atOnce(int editors, Live live) {
        std::vector<pid_t> children;
        for (int editor = 0; editor < editors; ++editor) {
            const pid_t child = ::fork();
            ASSERT_GE(child, 0);
            if (child == 0) {
                live(editor);
                ::_exit(0);
            }
            children.push_back(child);
        }
        for (const pid_t child : children) {
            int status = 0;
            EXPECT_EQ(::waitpid(child, &status, 0), child);
            EXPECT_EQ(status, 0);
        }
    }
    /// In a child: the end with a word about it, unless all is well.
    static void require(bool isWell, const char* what) {
        if (!isWell) {
            std::cerr << what << "\n";
            ::_exit(1);
        }
    }
};

TEST_F(SeveralEditors, NeverTouchEachOthersCopies) {
    atOnce(4, [this](int editor) {
        std::mt19937 random(static_cast<unsigned>(editor));
        for (int life = 0; life < 40; ++life) {
            auto own = HeldCopy::begin(folder);
            require(own.has_value(), "cannot begin");
            for (int step = 0; step < 5; ++step) {
                const int number = editor * 1000 + life * 10 + step;
                require(own->write(workWith(number)).replaced, "cannot write");
                for (const Leftover& leftover : lookInto(folder).leftovers) {
                    require(numberOf(leftover.work) >= 0, "a torn copy");
                    require(leftover.stem != own->stem(), "a living editor's copy is offered");
                    if (random() % 3 == 0) {
                        if (auto taken = HeldCopy::take(folder, leftover.stem)) {
                            HeldCopy::discard(std::move(*taken));
                        }
                    }
                }
                tidy(folder, random() % 4);
                require(own->isInPlace(), "somebody has taken the lock away");
                const auto work = own->read();
                require(work && numberOf(*work) == number, "somebody has touched the copy");
            }
            if (random() % 2 == 0) {
                HeldCopy::discard(std::move(*own));
            }
        }
    });
    tidy(folder, 0);
    EXPECT_FALSE(std::filesystem::exists(folder)) << testing::PrintToString(names());
}

TEST_F(SeveralEditors, OneOfThemGetsWhatADeadOneHasLeft) {
    for (int round = 0; round < 20; ++round) {
        {
            Keeper dead(folder);
            dead.configurationIs(workWith(7), false, {});
            dead.end();
        }
        atOnce(4, [this](int editor) {
            // Each keeps what it gets on disk and says so, and no other can then.
            Keeper keeper(folder);
            for (const Leftover& leftover : keeper.look().leftovers) {
                if (keeper.bringBack(leftover.stem)) {
                    const auto file = temporary / "got";
                    require(!std::filesystem::exists(file), "two have got it");
                    files::write(file, std::to_string(editor));
                    ::usleep(2000);
                    require(files::contents(file) == std::to_string(editor), "two have it");
                    std::filesystem::remove(file);
                }
            }
        });
        EXPECT_THAT(numbersIn(lookInto(folder)), testing::ElementsAre(7));
        tidy(folder, 0);
    }
}

}  // namespace
}  // namespace rescue
