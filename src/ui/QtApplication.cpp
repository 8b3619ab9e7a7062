#include "ui/QtApplication.h"

#include <QApplication>
#include <cstdlib>

namespace ardo {

namespace {

bool isSet(const char* name) {
    const char* value = std::getenv(name);
    return value && *value;
}

}  // namespace

bool hasDisplay() { return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM"); }

bool ensureApplication(bool* madeHere) {
    // The arguments must outlive the application, which keeps references to them.
    static int argc = 1;
    static char name[] = "ardo";
    static char* argv[] = {name, nullptr};
    static bool ours = false;
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        if (QCoreApplication::instance() || !hasDisplay()) return false;
        new QApplication(argc, argv);
        ours = true;
    }
    if (madeHere) *madeHere = ours;
    return true;
}

}  // namespace ardo
