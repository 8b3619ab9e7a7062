#pragma once
// One QApplication for the dialog tests of a process, made before the first test and
// deleted after the last, while Qt's own globals still live. The tests run headless.
#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

namespace ardo::test {

class GuiEnvironment : public ::testing::Environment {
public:
    void SetUp() override {
        static int argc = 1;
        static char name[] = "ardo_tests";
        static char* argv[] = {name, nullptr};
        if (!QApplication::instance()) app_ = std::make_unique<QApplication>(argc, argv);
    }
    void TearDown() override { app_.reset(); }

private:
    std::unique_ptr<QApplication> app_;
};

inline ::testing::Environment* const kGuiEnvironment = ::testing::AddGlobalTestEnvironment(new GuiEnvironment);

inline QApplication& guiApplication() { return *qApp; }

}  // namespace ardo::test
