#pragma once

#include <QTemporaryDir>

namespace qt {

/// Keeps the home folder clean: what the toolkit's own dialogs write down between runs (the file
/// dialog does, by merely being made) goes to a folder that is gone when the program ends. Made
/// before any dialog.
class TemporarySettings {
public:
    TemporarySettings();

    /// At the end of a process that is not unwound.
    void remove() { folder_.remove(); }

private:
    QTemporaryDir folder_;
};

}  // namespace qt
