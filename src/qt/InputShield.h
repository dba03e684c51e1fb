#pragma once

#include <QObject>

namespace qt {

/// Keeps a person's input from every window of the program while it is up: mouse, keys, touch,
/// menus, dropped things, and closing a window. It is thrown away, not kept. Painting, and what the
/// window manager asks of a window, goes through.
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
};

}  // namespace qt
