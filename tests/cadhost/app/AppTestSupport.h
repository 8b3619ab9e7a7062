#pragma once
// The CAD host with one new drawing open, on a console in script mode whose output the
// test reads.
#include <gtest/gtest.h>

#include <string>

#include "cadhost/app/Application.h"
#include "cadhost/app/ConsoleInterface.h"

namespace cadhost::test {

class HostTest : public ::testing::Test {
protected:
    std::string output;
    ConsoleInterface ui{[this](std::string_view text) { output += text; }};
    Application host{ui};
    Document& first = host.addDocument(Drawing(), false);

    // The value as the prompt prints it, or "ERR:" and the error message.
    std::string run(std::string_view source) {
        const lisp::EvalResult r = host.lisp().evaluate(source);
        return r.ok ? r.printed : "ERR:" + r.error;
    }
    void loadTestModule() {
        const ardo::Status loaded = host.modules().load(ARDO_TEST_MODULE);
        ASSERT_TRUE(loaded) << loaded.error();
    }
};

}  // namespace cadhost::test
