#pragma once

#include <Qt>
#include <optional>

namespace qt::surface {

/// A step from face to face by the keyboard.
enum class Move { Left, Right, Up, Down, Home, End };

/// What a key asks for, if it is one of those.
[[nodiscard]] inline std::optional<Move> moveOf(int key) {
    switch (key) {
        case Qt::Key_Left:
            return Move::Left;
        case Qt::Key_Right:
            return Move::Right;
        case Qt::Key_Up:
            return Move::Up;
        case Qt::Key_Down:
            return Move::Down;
        case Qt::Key_Home:
            return Move::Home;
        case Qt::Key_End:
            return Move::End;
        default:
            return std::nullopt;
    }
}

}  // namespace qt::surface
