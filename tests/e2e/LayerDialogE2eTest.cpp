// Kemb_EditLayers in the CAD host with the real module on a copy of the example
// installation: the dialog is driven as a user drives it, through its widgets.
#include <gtest/gtest.h>

#include <QAbstractItemModel>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <sstream>

#include "cadhost/app/Application.h"
#include "cadhost/app/ConsoleInterface.h"
#include "cadhost/app/ModuleLoader.h"
#include "dialog/GuiApplication.h"
#include "e2e/E2eSupport.h"

namespace ardo::e2e {
namespace {

std::string bytesOf(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

QAction* actionNamed(QWidget& dialog, const QString& text) {
    for (QAction* a : dialog.findChildren<QAction*>())
        if (a->text() == text) return a;
    ADD_FAILURE() << "no command " << text.toStdString();
    return nullptr;
}

int rowNamed(QTableView& table, const QString& name) {
    QAbstractItemModel* model = table.model();
    for (int row = 0; row < model->rowCount(); ++row)
        if (model->index(row, 1).data().toString() == name) return row;
    ADD_FAILURE() << name.toStdString() << " is not listed";
    return -1;
}

// TMPDIR points into the installation for one test and is given back afterwards.
class TemporaryFolderOf {
public:
    explicit TemporaryFolderOf(const Installation& install) {
        if (const char* old = std::getenv("TMPDIR")) old_ = old;
        setenv("TMPDIR", install.scratch("tmp").c_str(), 1);
    }
    ~TemporaryFolderOf() {
        if (old_) setenv("TMPDIR", old_->c_str(), 1);
        else unsetenv("TMPDIR");
    }

private:
    std::optional<std::string> old_;
};

TEST(LayerDialogE2e, EditLayersRenamesSavesAndRegenerates) {
    test::guiApplication();
    const Installation install;
    const TemporaryFolderOf temporary(install);
    std::string printed;
    cadhost::ConsoleInterface ui([&](std::string_view text) { printed += text; });
    cadhost::Application app(ui);
    app.setSupportPath({install.folder()});
    app.addDocument(cadhost::Drawing(), false);
    ASSERT_TRUE(app.modules().load(install.file("ardo.arx").string()));
    app.idle();
    ASSERT_EQ(app.lisp().evaluate("(kemb_newlayer \"T\" \"A_DECKE\")").printed, "0") << printed;
    ASSERT_TRUE(app.lisp().evaluate("(command \"_.LAYER\" \"_Color\" \"1\" \"A-Decken\" \"\")").ok) << printed;
    ASSERT_EQ(app.lisp().evaluate("(cdr (assoc 62 (tblsearch \"LAYER\" \"A-Decken\")))").printed, "1");

    // The rename's question, Regenerate's report.
    ui.boxes().addScriptAnswer(MbAnswer::Yes);
    ui.boxes().addScriptAnswer(MbAnswer::Ok);
    bool driven = false;
    QTimer::singleShot(0, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
        auto* table = dialog->findChild<QTableView*>("layerList");
        ASSERT_NE(table, nullptr);
        const int row = rowNamed(*table, "A-Fenster");
        table->setFocus();
        table->selectRow(row);
        table->setCurrentIndex(table->model()->index(row, 1));
        QTest::keyClick(table, Qt::Key_F2);
        auto* editor = dialog->findChild<QLineEdit*>("cellEdit");
        ASSERT_NE(editor, nullptr);
        editor->selectAll();
        QTest::keyClicks(editor, "A-Fenster-S");
        editor->insert(QString::fromUtf8("üd"));   // QTest types ASCII keys only
        QTest::keyClick(editor, Qt::Key_Return);
        QApplication::processEvents();
        // A new entry through the properties dialog.
        QTimer::singleShot(0, [&] {
            QWidget* props = QApplication::activeModalWidget();
            ASSERT_NE(props, nullptr);
            auto* key = props->findChild<QLineEdit*>("key");
            ASSERT_NE(key, nullptr);
            QTest::keyClicks(key, "E2E_NEU");
            QMetaObject::invokeMethod(props, "accept");
        });
        actionNamed(*dialog, "Neu ...")->trigger();
        actionNamed(*dialog, "Speichern")->trigger();
        actionNamed(*dialog, "Regenerieren")->trigger();
        driven = true;
        QMetaObject::invokeMethod(dialog, "accept");
    });
    ASSERT_TRUE(app.lisp().evaluate("(c:Kemb_EditLayers)").ok) << printed;
    ASSERT_TRUE(driven);

    EXPECT_NE(printed.find("OnEditFocusKilled Nam T:4 Op:0"), std::string::npos) << printed;
    EXPECT_NE(printed.find("1 (1) Layer erfolgreich ge"), std::string::npos) << printed;
    EXPECT_EQ(app.lisp().evaluate("(cdr (assoc 62 (tblsearch \"LAYER\" \"A-Decken\")))").printed, "4")
        << "Regenerate gave the drawing's layer the file's colour";
    EXPECT_EQ(app.lisp().evaluate("(kemb_newlayer \"T\" \"A_FENSTER\")").printed, "0") << printed;
    EXPECT_EQ(app.lisp().evaluate("(kemb_getlayername \"T\" \"A_FENSTER\")").printed, "\"A-Fenster-Süd\"")
        << "the LISP functions read the saved file";

    EXPECT_EQ(app.lisp().evaluate("(kemb_newlayer \"T\" \"E2E_NEU\")").printed, "0") << printed;
    EXPECT_EQ(app.lisp().evaluate("(cdr (assoc 2 (tblsearch \"LAYER\" \"Layer1\")))").printed, "\"Layer1\"")
        << "the new entry makes its layer";

    // The user's central file, as saved: Windows-1252 and CRLF line ends.
    fs::path saved;
    for (const auto& entry : fs::recursive_directory_iterator(install.folder()))
        if (entry.path().filename() == "Ardo.ini" && bytesOf(entry.path()).find("A-Fenster-S") != std::string::npos)
            saved = entry.path();
    ASSERT_FALSE(saved.empty());
    const std::string bytes = bytesOf(saved);
    EXPECT_NE(bytes.find("A_FENSTER=A-Fenster-S\xFC" "d,3,Continuous,,0,,,25,Normal,Fenster,1\r\n"), std::string::npos);
    EXPECT_NE(bytes.find("\r\nE2E_NEU=Layer1,7,Continuous,"), std::string::npos) << bytes;
    for (size_t at = bytes.find('\n'); at != std::string::npos; at = bytes.find('\n', at + 1))
        ASSERT_TRUE(at > 0 && bytes[at - 1] == '\r') << "a bare line feed at " << at;
}

TEST(LayerDialogE2e, WithoutADisplayTheDialogsSaySoAndGiveTheErrorOutcome) {
    const Installation install;
    const RunResult r = install.run({"-e", "(kemb_ArdoIniDialog \"T\")", "-e", "(kemb_layerDialog \"T\" \"O\" \"A\" \".\")",
                                     "-e", "(c:Kemb_EditLayers)"},
                                    "", {{"DISPLAY", ""}, {"WAYLAND_DISPLAY", ""}, {"QT_QPA_PLATFORM", ""}});
    EXPECT_EQ(r.exitCode, 0) << r.output;
    EXPECT_NE(r.output.find("kemb_ArdoIniDialog: ohne Anzeige kann kein Dialog ge"), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("(\"\" \"\" -1)"), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("(\"\" \"\" 0 -1 0)"), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("Kemb_EditLayers: ohne Anzeige"), std::string::npos) << r.output;
}

}  // namespace
}  // namespace ardo::e2e
