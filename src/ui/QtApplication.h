#pragma once
// Windows of the module need a display and a QApplication. In the host's window both are
// there; in the console the module makes the application itself when a display exists.
namespace ardo {

// DISPLAY, WAYLAND_DISPLAY or QT_QPA_PLATFORM is set.
bool hasDisplay();

// True when a QApplication exists afterwards: the host's, or one made here (only with a
// display). `madeHere` tells whether nobody runs its event loop, so a window that should
// stay open must run one itself.
bool ensureApplication(bool* madeHere = nullptr);

}  // namespace ardo
