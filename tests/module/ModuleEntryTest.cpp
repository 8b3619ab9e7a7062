#include "module/ModuleEntry.h"

#include <unistd.h>

#include "module/CommandStubFile.h"
#include "module/LispFunctionTable.h"
#include "module/ModuleFixture.h"
#include "module/paths/Platform.h"

namespace ardo {
namespace {

using ModuleEntryTest = test::ModuleFixture;
using test::readBytes;

constexpr int kQueryInit = 1;
constexpr int kLcInit = 0;
constexpr int kArdoLoaded = 39;
constexpr int kProductName = 48;

TEST_F(ModuleEntryTest, StartUpRegistersEveryRowAndReadsTheModuleFiles) {
    EXPECT_EQ(moduleEntryPoint(kInitAppMsg, &host), kRetOK);
    EXPECT_EQ(host.defined.size(), lispFunctionTable().size());
    EXPECT_EQ(host.handlers.size(), lispFunctionTable().size());
    EXPECT_EQ(moduleFiles().programFolder, programFolder);
    EXPECT_NE(moduleFiles().configuration, nullptr);
    EXPECT_NE(moduleFiles().definition, nullptr);
    EXPECT_TRUE(MessageFile::instance().loaded());
    EXPECT_NE(moduleFiles().centralLayerFile, nullptr);
    // The user's central file, copied from the installation's default.
    EXPECT_EQ(moduleFiles().centralLayerFilePath, programFolder + "users/" + platform::loginName() + "/Ardo.ini");
    EXPECT_TRUE(host.printed.empty()) << host.printed;
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_TRUE(host.alerts.empty());

    // Dispatch through the entry reaches the row of the code.
    callRow(kArdoLoaded);
    EXPECT_TRUE(isT(host.result));
    callRow(kProductName);
    EXPECT_EQ(stringOf(host.result), "Testprodukt");
}

TEST_F(ModuleEntryTest, QueryInitAnswersTOnceUntilTheNextStartUp) {
    moduleEntryPoint(kInitAppMsg, &host);
    callRow(kQueryInit);
    EXPECT_TRUE(isT(host.result));
    callRow(kQueryInit);
    EXPECT_TRUE(isNil(host.result));
    callRow(kLcInit);
    EXPECT_TRUE(isVoid(host.result));
    callRow(kQueryInit);
    EXPECT_TRUE(isNil(host.result));

    moduleEntryPoint(kInitAppMsg, &host);
    callRow(kQueryInit);
    EXPECT_TRUE(isT(host.result));
}

TEST_F(ModuleEntryTest, EachDocumentWritesTheStubQueuesItsLoadAndRegistersTheSameCodes) {
    moduleEntryPoint(kInitAppMsg, &host);
    const auto firstRegistration = host.defined;
    host.defined.clear();
    host.handlers.clear();

    char computer[256] = {};
    ASSERT_EQ(::gethostname(computer, sizeof computer - 1), 0);
    const std::string stub = tempFolder + computer + "_Cmd.lsp";
    EXPECT_EQ(commandStubPath(), stub);

    EXPECT_EQ(moduleEntryPoint(kLoadDwgMsg, &host), kRetOK);
    EXPECT_TRUE(std::filesystem::is_regular_file(stub));
    ASSERT_EQ(host.queued.size(), 1u);
    EXPECT_EQ(host.queued[0], "(load \"" + stub + "\")\n");
    EXPECT_EQ(host.defined, firstRegistration);

    moduleEntryPoint(kLoadDwgMsg, &host);
    EXPECT_EQ(host.queued.size(), 2u);
    EXPECT_EQ(host.defined, firstRegistration);
    EXPECT_EQ(host.handlers.size(), lispFunctionTable().size());
}

TEST_F(ModuleEntryTest, AnLtHostGetsTheStubFileButNoLoadExpression) {
    host.variables["PROGRAM"] = ResBuf::str("aclt");
    moduleEntryPoint(kInitAppMsg, &host);
    moduleEntryPoint(kLoadDwgMsg, &host);
    const std::string stub = commandStubPath();
    EXPECT_TRUE(host.queued.empty());
    const std::string content = readBytes(stub);
    EXPECT_NE(content.find("(defun C:WANDNEU()(kemb_ltload \""), std::string::npos) << content;
    EXPECT_EQ(host.defined.size(), lispFunctionTable().size());
}

TEST_F(ModuleEntryTest, QuitReleasesTheParsedFilesAndUnloadUnregisters) {
    moduleEntryPoint(kInitAppMsg, &host);
    EXPECT_EQ(moduleEntryPoint(kQuitMsg, &host), kRetOK);
    EXPECT_EQ(moduleFiles().configuration, nullptr);
    EXPECT_EQ(moduleFiles().definition, nullptr);
    EXPECT_EQ(moduleFiles().centralLayerFile, nullptr);
    EXPECT_FALSE(MessageFile::instance().loaded());
    // A second quit finds nothing to release.
    EXPECT_EQ(moduleEntryPoint(kQuitMsg, &host), kRetOK);

    EXPECT_EQ(host.defined.size(), lispFunctionTable().size());
    EXPECT_EQ(moduleEntryPoint(kUnloadAppMsg, &host), kRetOK);
    EXPECT_TRUE(host.defined.empty());
    EXPECT_TRUE(host.handlers.empty());
}

TEST_F(ModuleEntryTest, OtherMessagesDoNothing) {
    for (int message : std::initializer_list<int>{kNullMsg, kUnloadDwgMsg, kPreQuitMsg, kSaveMsg, kEndMsg, 99})
        EXPECT_EQ(moduleEntryPoint(message, &host), kRetOK);
    EXPECT_TRUE(host.defined.empty());
    EXPECT_TRUE(host.queued.empty());
    EXPECT_EQ(moduleFiles().configuration, nullptr);
}

}  // namespace
}  // namespace ardo
