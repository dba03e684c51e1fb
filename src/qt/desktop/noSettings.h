#pragma once

namespace qt::desktop {

/// Keeps the home folder clean: what the toolkit's own dialogs want to write down between runs (the
/// file dialog does, by merely being made) gets a place where nothing can be written. Nothing is
/// ever there to be removed, however the program ends. To be called before any dialog is made; it
/// holds for the process.
void keepNoSettings();

}  // namespace qt::desktop
