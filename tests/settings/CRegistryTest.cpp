#include "settings/registry/CRegistry.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

#include "settings/registry/RegistryArchive.h"
#include "support/TempFolder.h"

namespace ardo {
namespace {

using test::readBytes;
using test::TempFolder;
using Strings = std::vector<std::string>;

TEST(CRegistryPath, SplitsRootAndSubkeyInPlace) {
    RegRoot root = RegRoot::LocalMachine;
    std::string text = "HKEY_CURRENT_USER\\Software\\Ardo\\Layer";
    EXPECT_TRUE(CRegistry::parsePath(text, root));
    EXPECT_EQ(root, RegRoot::CurrentUser);
    EXPECT_EQ(text, "Software\\Ardo\\Layer");

    text = "HKEY_CLASSES_ROOT";
    EXPECT_TRUE(CRegistry::parsePath(text, root));
    EXPECT_EQ(root, RegRoot::ClassesRoot);
    EXPECT_EQ(text, "");

    // An unknown root leaves the root as it was; the remainder is still taken.
    root = RegRoot::Users;
    text = "HKEY_PERFORMANCE_DATA\\Counter";
    EXPECT_TRUE(CRegistry::parsePath(text, root));
    EXPECT_EQ(root, RegRoot::Users);
    EXPECT_EQ(text, "Counter");

    // Root names are matched exactly, upper case; the prefix must lead.
    root = RegRoot::Users;
    text = "hkey_current_user\\Software";
    EXPECT_FALSE(CRegistry::parsePath(text, root));
    EXPECT_EQ(text, "hkey_current_user\\Software");
    text = "Software\\HKEY_CURRENT_USER";
    EXPECT_FALSE(CRegistry::parsePath(text, root));
    text = "HKEY_current_user\\Software";
    EXPECT_TRUE(CRegistry::parsePath(text, root));
    EXPECT_EQ(root, RegRoot::Users);
}

class CRegistryFile : public ::testing::Test {
protected:
    TempFolder folder;
    RegistryFile file{folder / "registry.reg"};
    CRegistry reg{file};

    // What a fresh session (another process) finds in the file.
    Result<RegistryTree> onDisk() const { return RegistryTree::fromRegedit4(readBytes(file.path())); }
};

TEST_F(CRegistryFile, ValuesRecordTypeAndSizeAndSurviveInTheFile) {
    ASSERT_TRUE(reg.create(RegRoot::CurrentUser, "Software\\KEMB_ARDOARX\\Dialog"));
    EXPECT_EQ(reg.lastValueType(), 0u);

    ASSERT_TRUE(reg.setText("Title", "Layer-Editor"));
    EXPECT_EQ(reg.lastValueType(), kRegSz);
    EXPECT_EQ(reg.lastValueSize(), 2u * 12 + 2);
    ASSERT_TRUE(reg.setText("Empty", ""));
    EXPECT_EQ(reg.lastValueSize(), 2u);
    ASSERT_TRUE(reg.setText("Umlaut", "Lösche"));
    EXPECT_EQ(reg.lastValueSize(), 2u * 6 + 2);
    ASSERT_TRUE(reg.setNumber("PosX", 0xFFFFFFF0u));
    EXPECT_EQ(reg.lastValueType(), kRegDword);
    EXPECT_EQ(reg.lastValueSize(), 4u);
    reg.close();

    RegistryFile again(file.path());
    CRegistry other(again);
    ASSERT_TRUE(other.openForReading(RegRoot::CurrentUser, "software\\kemb_ardoarx\\DIALOG"));
    std::string text;
    std::uint32_t number = 0;
    ASSERT_TRUE(other.getText("title", text));
    EXPECT_EQ(text, "Layer-Editor");
    EXPECT_EQ(other.lastValueSize(), 26u);
    ASSERT_TRUE(other.getText("Umlaut", text));
    EXPECT_EQ(text, "Lösche");
    ASSERT_TRUE(other.getText("Empty", text));
    EXPECT_EQ(text, "");
    ASSERT_TRUE(other.getNumber("PosX", number));
    EXPECT_EQ(number, 0xFFFFFFF0u);

    // A number is not a text, and a missing value is an error with its code.
    EXPECT_FALSE(other.getText("PosX", text));
    EXPECT_EQ(other.lastError(), kRegInvalidDatatype);
    EXPECT_FALSE(other.getNumber("Missing", number));
    EXPECT_EQ(other.lastError(), kRegFileNotFound);
    EXPECT_EQ(other.lastValueType(), 0u);
    EXPECT_TRUE(other.valueExists("PosX"));
    EXPECT_FALSE(other.valueExists("Missing"));
}

TEST_F(CRegistryFile, FileIsRegedit4WithWindowsLineEndsAndEscapes) {
    ASSERT_TRUE(reg.create(RegRoot::CurrentUser, "Software\\Ardo"));
    ASSERT_TRUE(reg.setText("Path", "C:\\Programme\\\"ardo\""));
    ASSERT_TRUE(reg.setText("", "Vorgabe"));
    ASSERT_TRUE(reg.setNumber("Count", 42));
    ASSERT_TRUE(reg.setText("Zeilen", "eins\ntwo"));
    EXPECT_EQ(readBytes(file.path()),
              "REGEDIT4\r\n\r\n"
              "[HKEY_CURRENT_USER\\Software]\r\n\r\n"
              "[HKEY_CURRENT_USER\\Software\\Ardo]\r\n"
              "\"Path\"=\"C:\\\\Programme\\\\\\\"ardo\\\"\"\r\n"
              "@=\"Vorgabe\"\r\n"
              "\"Count\"=dword:0000002a\r\n"
              // A line break cannot stand in quotes: the text goes as its UTF-16 bytes.
              "\"Zeilen\"=hex(1):65,00,69,00,6e,00,73,00,0a,00,74,00,77,00,6f,00,00,00\r\n\r\n");
    std::string text;
    RegistryFile again(file.path());
    CRegistry other(again);
    ASSERT_TRUE(other.openForReading(RegRoot::CurrentUser, "Software\\Ardo"));
    ASSERT_TRUE(other.getText("Zeilen", text));
    EXPECT_EQ(text, "eins\ntwo");
    ASSERT_TRUE(other.getText("Path", text));
    EXPECT_EQ(text, "C:\\Programme\\\"ardo\"");
}

TEST_F(CRegistryFile, ObjectsUseTheArchiveLayout) {
    ASSERT_TRUE(reg.create(RegRoot::CurrentUser, "Software\\Ardo"));
    const Strings texts{"A", "Öl", std::string(300, 'x')};
    ASSERT_TRUE(reg.setObject("Columns", texts));
    EXPECT_EQ(reg.lastValueType(), kRegBinary);
    // count, then per text 0xFF 0xFFFE, a length (one byte, or 0xFF and a word) and UTF-16.
    EXPECT_EQ(reg.lastValueSize(), 2u + (4 + 2) + (4 + 4) + (6 + 600));
    EXPECT_EQ(storeArchive(Strings{"A"}), std::string("\x01\x00\xff\xfe\xff\x01\x41\x00", 8));
    ASSERT_TRUE(reg.setObject("Widths", std::vector<std::uint32_t>{140, 0x01020304}));
    EXPECT_EQ(reg.lastValueSize(), 10u);

    Strings back;
    std::vector<std::uint32_t> numbers;
    ASSERT_TRUE(reg.getObject("Columns", back));
    EXPECT_EQ(back, texts);
    ASSERT_TRUE(reg.getObject("Widths", numbers));
    EXPECT_EQ(numbers, (std::vector<std::uint32_t>{140, 0x01020304}));
    // Numbers are not texts: the archive does not fit and nothing is returned.
    back = {"kept"};
    EXPECT_FALSE(reg.getObject("Widths", back));
    EXPECT_EQ(back, Strings{"kept"});
    EXPECT_FALSE(loadTextArchive(std::string("\x02\x00\xff\xfe\xff\x01\x41\x00", 8)));
}

TEST_F(CRegistryFile, ReadOnlyKeysRefuseChangesAndClosingTwiceIsHarmless) {
    ASSERT_TRUE(reg.create(RegRoot::LocalMachine, "Software\\Ardo"));
    ASSERT_TRUE(reg.setNumber("Build", 1));
    reg.close();
    EXPECT_FALSE(reg.isOpen());
    reg.close();
    EXPECT_FALSE(reg.isOpen());
    EXPECT_FALSE(reg.setNumber("Build", 2));
    EXPECT_EQ(reg.lastError(), kRegInvalidHandle);

    ASSERT_TRUE(reg.open(RegRoot::LocalMachine, "Software\\Ardo", kKeyRead));
    EXPECT_EQ(reg.keyPath(), "Software\\Ardo");
    EXPECT_FALSE(reg.setNumber("Build", 2));
    EXPECT_EQ(reg.lastError(), kRegAccessDenied);
    EXPECT_FALSE(reg.deleteValue("Build"));
    std::uint32_t build = 0;
    ASSERT_TRUE(reg.getNumber("Build", build));
    EXPECT_EQ(build, 1u);

    EXPECT_FALSE(reg.openForReading(RegRoot::LocalMachine, "Software\\Missing"));
    EXPECT_EQ(reg.lastError(), kRegFileNotFound);
    EXPECT_TRUE(reg.isOpen());  // a failed open keeps the key that was open
    EXPECT_FALSE(reg.openForReading(RegRoot::LocalMachine, "Software\\\\Ardo"));
    EXPECT_EQ(reg.lastError(), kRegBadPathname);
    // The same key under another root is another key.
    EXPECT_FALSE(reg.openForReading(RegRoot::CurrentUser, "Software\\Ardo"));
}

TEST_F(CRegistryFile, KeysAreListedDeletedLeafFirstAndOpenedRelative) {
    ASSERT_TRUE(reg.create(RegRoot::CurrentUser, "Software\\Ardo\\Dialog\\Columns"));
    ASSERT_TRUE(reg.create(RegRoot::CurrentUser, "Software\\Ardo\\Highlight"));
    ASSERT_TRUE(reg.setText("Zeta", "1"));
    ASSERT_TRUE(reg.setText("Alpha", "2"));
    ASSERT_TRUE(reg.openForReading(RegRoot::CurrentUser, "Software"));

    Strings names{"before"};
    ASSERT_TRUE(reg.listSubkeys("Ardo", names));
    EXPECT_EQ(names, (Strings{"before", "Dialog", "Highlight"}));
    names.clear();
    ASSERT_TRUE(reg.listValues("Ardo\\Highlight", names));
    EXPECT_EQ(names, (Strings{"Zeta", "Alpha"}));
    EXPECT_FALSE(reg.listSubkeys("Nothing", names));
    EXPECT_EQ(reg.lastError(), kRegFileNotFound);

    // A key with subkeys stays; its leaves go first.
    EXPECT_FALSE(reg.deleteKey("Ardo\\Dialog"));
    EXPECT_EQ(reg.lastError(), kRegAccessDenied);
    EXPECT_TRUE(reg.deleteKey("Ardo\\Dialog\\Columns"));
    EXPECT_TRUE(reg.deleteKey("Ardo\\Dialog"));
    EXPECT_FALSE(reg.deleteKey("Ardo\\Dialog"));
    names.clear();
    ASSERT_TRUE(reg.listSubkeys("Ardo", names));
    EXPECT_EQ(names, Strings{"Highlight"});

    ASSERT_TRUE(reg.openRelative("Ardo\\Highlight"));
    std::string text;
    ASSERT_TRUE(reg.getText("alpha", text));
    EXPECT_EQ(text, "2");

    auto tree = onDisk();
    ASSERT_TRUE(tree) << tree.error();
    EXPECT_EQ(tree->find(RegRoot::CurrentUser, {"Software", "Ardo", "Dialog"}), nullptr);
}

TEST_F(CRegistryFile, ADamagedFileIsReportedAndNeverOverwritten) {
    const std::string damaged = "REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Software]\r\n\"Broken\"=dword:xyz\r\n";
    folder.write("registry.reg", damaged);
    EXPECT_FALSE(reg.create(RegRoot::CurrentUser, "Software\\Ardo"));
    EXPECT_EQ(reg.lastError(), kRegBadDatabase);
    EXPECT_NE(reg.fileProblem().find("line 4"), std::string::npos) << reg.fileProblem();
    EXPECT_EQ(readBytes(file.path()), damaged);
}

TEST(RegistryText, ReadsWhatARegistryEditorExports) {
    const std::string exported =
        "REGEDIT4\n\n; comment\n[HKEY_LOCAL_MACHINE\\Software\\Ardo]\n"
        "\"Blob\"=hex:00,01,02,\\\n  03,ff\n@=\"Standard\"\n\"Expand\"=hex(2):25,00,00,00\n"
        "[HKEY_LOCAL_MACHINE\\Software\\Gone]\n[-HKEY_LOCAL_MACHINE\\Software\\Gone]\n"
        "\"Old\"=\"x\"\n";
    auto tree = RegistryTree::fromRegedit4(exported);
    ASSERT_FALSE(tree) << "a value after a deleted key has no key";
    auto good = RegistryTree::fromRegedit4(exported.substr(0, exported.size() - 10));
    ASSERT_TRUE(good) << good.error();
    const RegistryKey* key = good->find(RegRoot::LocalMachine, {"SOFTWARE", "ardo"});
    ASSERT_NE(key, nullptr);
    EXPECT_EQ(key->value("Blob")->data, std::string("\x00\x01\x02\x03\xff", 5));
    EXPECT_EQ(regDataToText(key->value("")->data), "Standard");
    EXPECT_EQ(key->value("Expand")->type, kRegExpandSz);
    EXPECT_EQ(good->find(RegRoot::LocalMachine, {"Software", "Gone"}), nullptr);
    // Written and read again, nothing changes.
    auto again = RegistryTree::fromRegedit4(good->toRegedit4());
    ASSERT_TRUE(again);
    EXPECT_EQ(again->toRegedit4(), good->toRegedit4());

    EXPECT_FALSE(RegistryTree::fromRegedit4("Windows Registry Editor Version 5.00\r\n"));
    EXPECT_FALSE(RegistryTree::fromRegedit4("REGEDIT4\r\n[HKEY_NOWHERE\\x]\r\n"));
    EXPECT_TRUE(RegistryTree::fromRegedit4("REGEDIT4\r\n"));
    EXPECT_FALSE(RegistryTree::fromRegedit4(""));
}

// A session killed in the middle of saving leaves the file as it was before or after that
// save, never half of it.
TEST_F(CRegistryFile, SurvivesAKillDuringAWrite) {
    const std::string big(20000, 'k');
    // The file is there before the first writer starts, so every kill hits a replacement.
    ASSERT_TRUE(reg.create(RegRoot::CurrentUser, "Software\\Ardo"));
    ASSERT_TRUE(reg.setText("Big0", big));
    for (int round = 0; round < 12; ++round) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            RegistryFile childFile(file.path());
            CRegistry writer(childFile);
            if (!writer.create(RegRoot::CurrentUser, "Software\\Ardo")) _exit(2);
            for (std::uint32_t i = 0;; ++i) {
                writer.setNumber("Counter", i);
                writer.setText("Big" + std::to_string(i % 7), big + std::to_string(i));
            }
        }
        usleep(static_cast<useconds_t>(3000 + round * 1700));
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status)) << "the writer stopped by itself";

        auto tree = onDisk();
        ASSERT_TRUE(tree) << "round " << round << ": " << tree.error();
        const RegistryKey* key = tree->find(RegRoot::CurrentUser, {"Software", "Ardo"});
        ASSERT_NE(key, nullptr);
        for (const auto& v : key->values) {
            if (v.name == "Counter") EXPECT_EQ(v.data.size(), 4u);
            else EXPECT_EQ(regDataToText(v.data).substr(0, big.size()), big);
        }
    }
    // The next save clears what the killed ones left beside the file.
    ASSERT_TRUE(reg.create(RegRoot::CurrentUser, "Software\\Ardo"));
    ASSERT_TRUE(reg.setNumber("Counter", 7));
    EXPECT_EQ(folder.names(), Strings{"registry.reg"});
}

}  // namespace
}  // namespace ardo
