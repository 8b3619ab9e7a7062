// The object dialog: the object-type layer file is read with the central file, new entries
// become layers of the object, and closing asks to write the object file.
#include <gtest/gtest.h>

#include <filesystem>

#include "dialog/LayerDialogFixture.h"
#include "dialog/LayerViews.h"
#include "dialog/cDlgProps.h"

namespace ardo {
namespace {

class ObjectDialogTest : public LayerDialogTest {
protected:
    std::unique_ptr<cDlgLayer> openObject(const std::string& objectType, const std::string& defaultKey = {}) {
        session = std::make_unique<LayerDialogSession>(7, settings);
        session->setObject("Mauer", objectType, tmp.path().string(), nullptr);
        session->load();
        LayerDialogCall call;
        call.mode = 7;
        call.objectName = "Mauer";
        call.objectType = objectType;
        call.defaultKey = defaultKey;
        auto dialog = std::make_unique<cDlgLayer>(*session, call, nullptr);
        dialog->show();
        return dialog;
    }
    void SetUp() override {
        LayerDialogTest::SetUp();
        settings.viewModeObjs = 1;
        objectPath = tmp.write("Wand.ini", "; Waende\r\n[Layer]\r\nMauer=A_DECKE,1\r\nSockel=A_FENSTER\r\n");
    }
    std::string objectPath;
};

TEST_F(ObjectDialogTest, TheObjectViewShowsTheObjectsKeys) {
    auto dialog = openObject("Wand");
    EXPECT_EQ(session->objectFilePath(), objectPath);
    ASSERT_EQ(dialog->model().rowCount(), 1);
    EXPECT_EQ(dialog->model().entryAt(0)->key, "A_DECKE");
    dialog->run(LayerCommand::ViewObjectType);
    EXPECT_EQ(dialog->model().rowCount(), 2) << "the keys of every object of the file";
    dialog->reject();
    EXPECT_TRUE(host.boxes.empty()) << "nothing changed, nothing asked";
}

TEST_F(ObjectDialogTest, ANewEntryIsWrittenAsTheObjectsLayerOnClosing) {
    auto dialog = openObject("Wand");
    whenShown<cDlgProps>([](cDlgProps& props) {
        QTest::keyClicks(&props.keyField(), "K_MAUER");
        props.nameField().clear();
        QTest::keyClicks(&props.nameField(), "Mauerwerk");
        props.accept();
    });
    dialog->run(LayerCommand::LayerNew);
    ASSERT_NE(dialog->chosenEntry(), nullptr);
    EXPECT_EQ(dialog->chosenEntry()->key, "K_MAUER") << "shown in the object view and chosen";
    EXPECT_TRUE(session->objectsChanged());

    // Cancel on the object question keeps the dialog open; the central file is saved by then.
    host.answers = {MbAnswer::Yes, MbAnswer::Cancel};
    dialog->accept();
    EXPECT_TRUE(dialog->isVisible());
    ASSERT_EQ(host.boxes.size(), 2u);
    EXPECT_EQ(host.boxes[1].text, QString::fromUtf8("Es sind Änderungen vorgenommen worden,\n"
                                                    "welche die Layer-Objekte in der Datei\n    ").toStdString() +
                                      objectPath + "\nbetreffen.\n\nspeichern ?");
    EXPECT_NE(readBytes(centralPath).find("K_MAUER=Mauerwerk,"), std::string::npos);
    ASSERT_NE(dialog->chosenEntry(), nullptr);
    EXPECT_TRUE(dialog->chosenEntry()->has(entryflag::kCurrentObject)) << "the saved file's entry is the object's";

    host.answers = {MbAnswer::Yes};
    dialog->accept();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(readBytes(objectPath), "; Waende\r\n[LAYER]\r\nSockel=A_FENSTER\r\nMauer=A_DECKE\r\nMauer=K_MAUER,1\r\n")
        << "the chosen layer is the object's active one";
}

TEST_F(ObjectDialogTest, NoLeavesTheObjectFileAndAnUnusableTypeHasNone) {
    auto dialog = openObject("Wand", "A_DECKE");
    whenShown<cDlgProps>([](cDlgProps& props) {
        QTest::keyClicks(&props.keyField(), "K2");
        props.accept();
    });
    dialog->run(LayerCommand::LayerNew);
    host.answers = {MbAnswer::Yes, MbAnswer::No};
    const std::string before = readBytes(objectPath);
    dialog->accept();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(readBytes(objectPath), before);
    dialog.reset();   // a dialog ends before its session is replaced by the next opening

    auto odd = openObject("Wa.nd");
    EXPECT_EQ(session->objectFilePath(), "") << "a full stop is no object type";
    EXPECT_EQ(odd->model().rowCount(), 0);
    odd->reject();
}

}  // namespace
}  // namespace ardo
