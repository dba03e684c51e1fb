#pragma once

#include <QAction>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <vector>

namespace qt::desktop {

/// Keeps a person's input from every window of the program while it is up: mouse, keys, touch,
/// menus, dropped things, closing a window, and what assistive technology presses. It is thrown
/// away, not kept. Painting, what the window manager asks of a window, and what assistive
/// technology asks about it goes through; nothing looks switched off.
class InputShield final : public QObject {
public:
    /// Puts the shield up for as long as it lives.
    class Up {
    public:
        explicit Up(InputShield& shield);
        Up(const Up&) = delete;
        Up& operator=(const Up&) = delete;
        ~Up();

    private:
        InputShield& shield_;
    };

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void putUp();
    void takeDown();
    void letPaint(QObject* watched);

    // Assistive technology presses a button, picks an item of a box or triggers an action without
    // an event of its own.
    std::vector<QPointer<QWidget>> shieldedWidgets_;
    std::vector<QPointer<QAction>> shieldedActions_;
    QPointer<QWidget> painting_;
};

}  // namespace qt::desktop
