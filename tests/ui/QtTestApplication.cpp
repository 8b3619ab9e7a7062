#include "ui/QtTestApplication.h"

#include <gtest/gtest.h>

#include "messages/MessageFile.h"
#include "ui/QtApplication.h"

namespace {

class QtEnvironment : public ::testing::Environment {
public:
    void SetUp() override {
        // The tests run offscreen unless a display was chosen.
        if (!ardo::hasDisplay()) ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
        // Made here, as the host's window makes its own: the module's windows then leave
        // the event loop to the tests.
        static int argc = 1;
        static char name[] = "ui_tests";
        static char* argv[] = {name, nullptr};
        new QApplication(argc, argv);
        // The windows' texts, as the installation ships them.
        ardo::MessageFile::instance().attach(ardo::SettingsStore::load(ARDO_SOURCE_DIR "/examples/install/ardo.msg"));
        ASSERT_TRUE(ardo::MessageFile::instance().loaded());
    }
};

const auto* const kEnvironment = ::testing::AddGlobalTestEnvironment(new QtEnvironment);

}  // namespace
