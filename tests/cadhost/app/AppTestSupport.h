#pragma once
// A CAD host over a new drawing whose command-line output the test reads.
#include <gtest/gtest.h>

#include <string>

#include "cadhost/app/CadHost.h"

namespace cadhost::test {

class HostTest : public ::testing::Test {
protected:
    std::string output;
    CadHost host{Drawing(), false, [this](std::string_view text) { output += text; }};

    // The value as the prompt prints it, or "ERR:" and the error message.
    std::string run(std::string_view source) {
        const lisp::EvalResult r = host.lisp().evaluate(source);
        return r.ok ? r.printed : "ERR:" + r.error;
    }
    void loadTestModule() {
        const auto error = host.modules().load(ARDO_TEST_MODULE);
        ASSERT_FALSE(error) << *error;
    }
};

}  // namespace cadhost::test
