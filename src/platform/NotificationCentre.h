#pragma once

#include <functional>
#include <list>
#include <string>
#include <string_view>

namespace platform {

/// Tells whoever wants to know that something named happened. Main thread only.
///
/// An observer may be added or removed while a notification is being delivered; one that was
/// removed is not called any more, one that was added hears from the next notification on.
class NotificationCentre {
public:
    /// `object` is what the notification is about.
    using Observer = std::function<void(const void* object)>;

    /// Keeps an observer registered for as long as it lives. It must not outlive the centre.
    class Registration {
    public:
        Registration() = default;
        Registration(Registration&& other) noexcept;
        Registration& operator=(Registration&& other) noexcept;
        Registration(const Registration&) = delete;
        Registration& operator=(const Registration&) = delete;
        ~Registration();

    private:
        friend class NotificationCentre;
        Registration(NotificationCentre* centre, int id) : centre_(centre), id_(id) {}

        NotificationCentre* centre_ = nullptr;
        int id_ = 0;
    };

    NotificationCentre() = default;
    NotificationCentre(const NotificationCentre&) = delete;
    NotificationCentre& operator=(const NotificationCentre&) = delete;

    [[nodiscard]] Registration addObserver(std::string_view name, Observer observer);
    void postNotification(std::string_view name, const void* object);

private:
    struct Entry {
        int id;
        std::string name;
        Observer observer;
    };
    void remove(int id);
    void sweep();

    std::list<Entry> entries_;
    int lastId_ = 0;
    int posting_ = 0;
};

}  // namespace platform
