#pragma once

#include <QTemporaryDir>
#include <memory>

namespace qt {

/// Keeps the home folder clean: what the toolkit's own dialogs write down between runs (the file
/// dialog does, by merely being made) goes to a folder that is gone when the program ends. Made
/// before any dialog. The toolkit knows one such folder a process; all that live share it.
class TemporarySettings {
public:
    TemporarySettings();

    /// At the end of a process that is not unwound.
    void remove() { folder_->remove(); }

private:
    std::shared_ptr<QTemporaryDir> folder_;
};

}  // namespace qt
