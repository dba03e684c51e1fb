#include "platform/NotificationCentre.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

namespace platform {
namespace {

TEST(NotificationCentre, TellsObserversOfTheNameWithTheObject) {
    NotificationCentre centre;
    std::vector<const void*> heard;
    const auto one =
        centre.addObserver("one", [&](const void* object) { heard.push_back(object); });
    const int about = 0;
    centre.postNotification("one", &about);
    centre.postNotification("two", &about);
    EXPECT_EQ(heard, std::vector<const void*>{&about});
}

TEST(NotificationCentre, ForgetsAnObserverWithItsRegistration) {
    NotificationCentre centre;
    int heard = 0;
    {
        const auto registration = centre.addObserver("n", [&](const void*) { ++heard; });
        centre.postNotification("n", nullptr);
    }
    centre.postNotification("n", nullptr);
    EXPECT_EQ(heard, 1);
}

TEST(NotificationCentre, KeepsAnObserverWhoseRegistrationMoves) {
    NotificationCentre centre;
    int heard = 0;
    NotificationCentre::Registration kept;
    {
        auto registration = centre.addObserver("n", [&](const void*) { ++heard; });
        kept = std::move(registration);
    }
    centre.postNotification("n", nullptr);
    EXPECT_EQ(heard, 1);
}

TEST(NotificationCentre, DoesNotCallAnObserverThatAnotherOneRemoved) {
    NotificationCentre centre;
    int heard = 0;
    auto second = std::make_unique<NotificationCentre::Registration>();
    const auto first = centre.addObserver("n", [&](const void*) { second.reset(); });
    *second = centre.addObserver("n", [&](const void*) { ++heard; });
    centre.postNotification("n", nullptr);
    EXPECT_EQ(heard, 0);
}

TEST(NotificationCentre, LetsAnObserverRemoveItself) {
    NotificationCentre centre;
    int heard = 0;
    auto registration = std::make_unique<NotificationCentre::Registration>();
    *registration = centre.addObserver("n", [&](const void*) {
        registration.reset();
        ++heard;
    });
    centre.postNotification("n", nullptr);
    centre.postNotification("n", nullptr);
    EXPECT_EQ(heard, 1);
}

TEST(NotificationCentre, CallsAnObserverAddedMeanwhileFromTheNextNotificationOn) {
    NotificationCentre centre;
    int heard = 0;
    std::vector<NotificationCentre::Registration> added;
    const auto first = centre.addObserver("n", [&](const void*) {
        if (added.empty()) {
            added.push_back(centre.addObserver("n", [&](const void*) { ++heard; }));
        }
    });
    centre.postNotification("n", nullptr);
    EXPECT_EQ(heard, 0);
    centre.postNotification("n", nullptr);
    EXPECT_EQ(heard, 1);
}

}  // namespace
}  // namespace platform
