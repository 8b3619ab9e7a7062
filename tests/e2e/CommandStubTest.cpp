// The command stubs ardo writes for the suite's commands, loaded by ardo-cad at start-up.
#include <gtest/gtest.h>

#include <fstream>

#include "e2e/E2eSupport.h"

namespace ardo::e2e {

// An ObjectARX program that is missing from the installation leaves its own command undefined
// and every command after it in the stub file working.
TEST(CommandStub, AMissingProgramDoesNotStopTheCommandsAfterIt) {
    const Installation install;
    std::ofstream(install.file("ardo.bfl"), std::ios::binary | std::ios::trunc)
        << "[BEFEHLE]\r\nX3=fehlt/x.arx\r\nWANDNEU=module/wand/wand.lsp\r\n";
    const RunResult r = install.run({officeDrawing().string()},
                                    "(if C:X3 \"X3\" \"no X3\")\n(if C:WANDNEU \"WANDNEU\" \"no WANDNEU\")\n");
    EXPECT_EQ(r.exitCode, 0) << r.output;
    EXPECT_EQ(r.output.find("error"), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("\"no X3\""), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("\"WANDNEU\""), std::string::npos) << r.output;
}

}  // namespace ardo::e2e
