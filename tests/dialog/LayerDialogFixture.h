#pragma once
// The layer dialog on a copy of the example installation's central file and a real drawing
// with two layers of its own; message boxes are answered by the scripted host.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>

#include "cadhost/drawing/Drawing.h"
#include "dialog/GuiApplication.h"
#include "dialog/cDlgLayer.h"
#include "dialog/cListControl.h"
#include "support/ScriptedHost.h"
#include "support/TempFolder.h"

namespace ardo {

// Runs `answer` on the modal dialog of type D as soon as it is shown (looked for every few
// milliseconds for a second); a dialog of another type is closed, so a test fails instead
// of hanging.
template <typename D>
void whenShown(std::function<void(D&)> answer, int tries = 100) {
    QTimer::singleShot(tries == 100 ? 0 : 10, [answer, tries] {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal && tries > 0) return whenShown<D>(answer, tries - 1);
        auto* dialog = dynamic_cast<D*>(modal);
        if (!dialog) {
            ADD_FAILURE() << "the dialog is not shown";
            if (modal) modal->close();
            return;
        }
        answer(*dialog);
    });
}

using test::readBytes;

class LayerDialogTest : public ::testing::Test {
protected:
    void SetUp() override {
        test::guiApplication();
        host.drawing = &drawing;
        LayerRecord r;
        r.name = "A-Wand-tragend";
        r.color = HostColor::fromIndex(1);   // the file says 7
        r.lineweight = 50;
        ASSERT_EQ(drawing.addLayer(r), DbStatus::Ok);
        r.name = "Skizze";
        ASSERT_EQ(drawing.addLayer(r), DbStatus::Ok);
        centralPath = tmp.write("Ardo.ini", readBytes(std::string(ARDO_SOURCE_DIR) + "/examples/install/DefaultIni/Ardo.ini"));
        settings.ardoLayerFile = centralPath;
    }
    std::unique_ptr<cDlgLayer> open(int mode, const std::string& defaultKey = {}) {
        session = std::make_unique<LayerDialogSession>(mode, settings);
        session->load();
        LayerDialogCall call;
        call.mode = mode;
        call.defaultKey = defaultKey;
        auto dialog = std::make_unique<cDlgLayer>(*session, call, nullptr);
        dialog->show();
        dialog->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
        return dialog;
    }
    void select(cDlgLayer& dialog, const std::string& name) {
        for (int row = 0; row < dialog.model().rowCount(); ++row)
            if (dialog.model().entryAt(row)->name == name) {
                dialog.table().setFocus();
                dialog.table().selectRow(row);
                dialog.updateCommands();
                return;
            }
        ADD_FAILURE() << name << " is not in the list";
    }

    test::ScriptedHost host;
    test::TempFolder tmp;
    cadhost::Drawing drawing;
    LayerDialogSettings settings;
    std::string centralPath;
    std::unique_ptr<LayerDialogSession> session;
};

}  // namespace ardo
