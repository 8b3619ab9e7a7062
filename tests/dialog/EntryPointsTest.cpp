// The three LISP entry points: argument checks, the result lists and the layer a chosen
// entry gets in the drawing; the dialog is answered through its widgets.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTableView>
#include <QTimer>
#include <QAction>
#include <fstream>
#include <functional>
#include <sstream>

#include "cadhost/drawing/Drawing.h"
#include "dialog/GuiApplication.h"
#include "dialog/LayerDialogRun.h"
#include "messages/MessageFile.h"
#include "module/DialogHandlers.h"
#include "module/UnavailableFunctions.h"
#include "support/ScriptedHost.h"
#include "support/TempFolder.h"

namespace ardo {
namespace {

std::string lispText(const ResBufChain& chain) {
    std::string out;
    for (const ResBuf& r : chain) {
        if (!out.empty() && out.back() != '(' && r.restype != RTLE) out += ' ';
        if (r.restype == RTLB) out += "(";
        else if (r.restype == RTLE) out += ")";
        else if (r.restype == RTSTR) out += "\"" + r.text + "\"";
        else if (r.restype == RTSHORT || r.restype == RTLONG) out += std::to_string(r.integer);
        else out += "?";
    }
    return out;
}

// Answers the next modal dialog: selects the row of a key when given, then OK or Cancel.
void answerDialog(bool ok, const char* key = nullptr) {
    QTimer::singleShot(0, [=] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        if (key) {
            auto* table = dialog->findChild<QTableView*>("layerList");
            for (int row = 0; row < table->model()->rowCount(); ++row)
                if (table->model()->index(row, 0).data().toString() == key) table->selectRow(row);
        }
        QMetaObject::invokeMethod(dialog, ok ? "accept" : "reject");
    });
}

class EntryPointsTest : public ::testing::Test {
protected:
    void SetUp() override {
        test::guiApplication();
        host.drawing = &drawing;
        MessageFile::instance().attach(SettingsStore::load(std::string(ARDO_SOURCE_DIR) + "/examples/install/ardo.msg"));
        moduleSettings().setup.bind(tmp.file("ArdoSetup.ini"), "", "ArdoSetup", "CONFIG", false, true);
        moduleSettings().layerDialog = LayerDialogSettings{};
        moduleSettings().layerDialog.ardoLayerFile = std::string(ARDO_SOURCE_DIR) + "/examples/install/DefaultIni/Ardo.ini";
        moduleSettings().layerDialog.viewModeObjs = 3;
        installLayerDialogHandlers();
    }
    void TearDown() override {
        dialogHandlers() = DialogHandlers{};
        MessageFile::instance().release();
    }
    std::string call(LispHandler handler, ResBufChain args) {
        host.call(handler, std::move(args));
        return lispText(host.result);
    }

    test::ScriptedHost host;
    test::TempFolder tmp;
    cadhost::Drawing drawing;
};

TEST_F(EntryPointsTest, BadArgumentsGiveTheErrorOutcome) {
    EXPECT_EQ(call(handlers::kemb_ArdoIniDialog, {}), "(\"\" \"\" -1)");
    EXPECT_NE(host.printed.find("Anzahl"), std::string::npos) << host.printed;
    EXPECT_EQ(call(handlers::kemb_ArdoIniDialog, {ResBuf::shortInt(1)}), "(\"\" \"\" -1)");
    EXPECT_EQ(call(handlers::kemb_layerDialog, {ResBuf::str("T"), ResBuf::str("Mauer"), ResBuf::str("Wand")}),
              "(\"\" \"\" 0 -1 0)");
    EXPECT_EQ(call(handlers::kemb_layerDialog, {ResBuf::str("T"), ResBuf::str("Mauer"), ResBuf::str("Wand"),
                                                ResBuf::str("dir"), ResBuf::str("K"), ResBuf::str("N"),
                                                ResBuf::str("not a number")}),
              "(\"\" \"\" 0 -1 0)");
}

TEST_F(EntryPointsTest, TheCentralFileSelectionGivesTheChosenEntry) {
    answerDialog(true);
    EXPECT_EQ(call(handlers::kemb_ArdoIniDialog, {ResBuf::str("T"), ResBuf::str("A_DECKE")}),
              "(\"A_DECKE\" \"A-Decken\" 1)") << "the preselected key";
    answerDialog(true, "A_FENSTER");
    EXPECT_EQ(call(handlers::kemb_ArdoIniDialog, {ResBuf::str("T")}), "(\"A_FENSTER\" \"A-Fenster\" 1)");
    answerDialog(false, "A_FENSTER");
    EXPECT_EQ(call(handlers::kemb_ArdoIniDialog, {ResBuf::str("T")}), "(\"\" \"\" 0)");
    EXPECT_FALSE(drawing.findLayer("A-Fenster")) << "the selection creates nothing";
}

TEST_F(EntryPointsTest, TheObjectDialogCreatesTheChosenLayerWhenAsked) {
    const ResBufChain args{ResBuf::str("T"), ResBuf::str("Mauer"), ResBuf::str("Wand"), ResBuf::str(tmp.path().string()),
                           ResBuf::str("A_FENSTER"), ResBuf::str("")};
    answerDialog(true);
    ResBufChain noCreate = args;
    noCreate.push_back(ResBuf::shortInt(0));
    EXPECT_EQ(call(handlers::kemb_layerDialog, noCreate), "(\"A_FENSTER\" \"A-Fenster\" 0 1 1)");
    EXPECT_FALSE(drawing.findLayer("A-Fenster"));

    answerDialog(true);
    ResBufChain create = args;
    create.push_back(ResBuf::shortInt(1));
    EXPECT_EQ(call(handlers::kemb_layerDialog, create), "(\"A_FENSTER\" \"A-Fenster\" 1 1 1)");
    const auto layer = drawing.findLayer("A-Fenster");
    ASSERT_TRUE(layer);
    EXPECT_EQ(layer->color, HostColor::fromIndex(3));
    EXPECT_EQ(moduleSettings().layerDialog.viewModeObjs, 3) << "the view is stored for the mode";
}

TEST_F(EntryPointsTest, SavingOnClosingKeepsTheChosenEntry) {
    std::ifstream example(std::string(ARDO_SOURCE_DIR) + "/examples/install/DefaultIni/Ardo.ini", std::ios::binary);
    std::stringstream bytes;
    bytes << example.rdbuf();
    const std::string copy = tmp.write("Ardo.ini", bytes.str());
    moduleSettings().layerDialog.ardoLayerFile = copy;
    host.chosenColors.push_back(HostColor::fromIndex(5));
    host.answers = {MbAnswer::Yes};   // save the changes on closing
    QTimer::singleShot(0, [] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        auto* table = dialog->findChild<QTableView*>("layerList");
        for (int row = 0; row < table->model()->rowCount(); ++row)
            if (table->model()->index(row, 0).data().toString() == "A_DECKE") table->selectRow(row);
        for (QAction* action : dialog->findChildren<QAction*>())
            if (action->text() == "Farbe ...") action->trigger();
        QMetaObject::invokeMethod(dialog, "accept");
    });
    EXPECT_EQ(call(handlers::kemb_ArdoIniDialog, {ResBuf::str("T")}), "(\"A_DECKE\" \"A-Decken\" 1)");
    ASSERT_FALSE(host.boxes.empty());
    EXPECT_EQ(host.boxes.back().buttons, MbButtons::YesNoCancel);
    std::ifstream saved(copy, std::ios::binary);
    std::stringstream written;
    written << saved.rdbuf();
    EXPECT_NE(written.str().find("A_DECKE=A-Decken,5,Continuous"), std::string::npos);
}

TEST_F(EntryPointsTest, EditLayersReturnsNothing) {
    answerDialog(false);
    host.call(handlers::C_Kemb_EditLayers, {});
    ASSERT_EQ(host.result.size(), 1u);
    EXPECT_EQ(host.result[0].restype, RTVOID);
}

}  // namespace
}  // namespace ardo
