// The properties dialog on the example drawing: what it shows for a mixed selection, what
// it changes, and PROPERTIES typed in the window as one step that U takes back.
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>

#include "cadhost/gui/PropertiesDialog.h"
#include "cadhost/gui/WindowFixture.h"

namespace cadhost::gui {
namespace {

using namespace test;

template <class T>
T* part(const QWidget& dialog, const char* name) {
    T* found = dialog.findChild<T*>(name);
    EXPECT_TRUE(found) << name;
    return found;
}

class PropertiesWindow : public WindowTest {
protected:
    Drawing& drawing() { return app->current().drawing(); }
    // Entities of the type, in file order.
    std::vector<Handle> all(const std::string& type) {
        std::vector<Handle> out;
        drawing().forEachEntity([&](const EntityInfo& e) {
            if (e.type == type) out.push_back(e.handle);
            return true;
        });
        return out;
    }
};

TEST_F(PropertiesWindow, ShowsWhatTheObjectsShareAndVariesForTheRest) {
    const std::vector<Handle> lines = all("LINE"), texts = all("TEXT");
    ASSERT_GE(lines.size(), 2u);
    ASSERT_FALSE(texts.empty());
    std::vector<Handle> mixed{lines[0], lines[1], texts[0]};
    PropertiesDialog dialog(drawing(), mixed, window.get());
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    EXPECT_EQ(part<QLabel>(dialog, "count")->text(), "3 objects selected");
    EXPECT_EQ(part<QComboBox>(dialog, "layer")->currentText(), PropertiesDialog::varies());
    EXPECT_EQ(part<QComboBox>(dialog, "linetype")->currentText(), "ByLayer");
    EXPECT_EQ(part<QComboBox>(dialog, "lineweight")->currentText(), "ByLayer");
    EXPECT_EQ(part<QLineEdit>(dialog, "linetypeScale")->text(), "1.0000");
    const auto nothing = dialog.changes();
    EXPECT_FALSE(nothing.layer || nothing.color || nothing.linetype || nothing.lineweight || nothing.linetypeScale);

    part<QComboBox>(dialog, "layer")->setCurrentText("Raumtext");
    part<QComboBox>(dialog, "lineweight")->setCurrentText("0.50 mm");
    QLineEdit* scale = part<QLineEdit>(dialog, "linetypeScale");
    scale->clear();
    QTest::keyClicks(scale, "-2");
    QPushButton* ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    EXPECT_FALSE(ok->isEnabled());   // a scale must be positive
    scale->clear();
    QTest::keyClicks(scale, "2");
    EXPECT_TRUE(ok->isEnabled());
    dialog.grab().save(QString::fromStdString((scratch() / "properties.png").string()));
    const auto changes = dialog.changes();
    EXPECT_EQ(changes.layer, "Raumtext");
    EXPECT_EQ(changes.lineweight, 50);
    EXPECT_EQ(changes.linetypeScale, 2.0);
    EXPECT_FALSE(changes.color || changes.linetype);
}

TEST_F(PropertiesWindow, TypedPropertiesChangesTheSelectionAsOneStep) {
    const std::string before = drawing().toDxf();
    const std::vector<Handle> lines = all("LINE");
    ASSERT_FALSE(lines.empty());
    type("PROPERTIES");
    type("ALL");
    bool seen = false;
    // The dialog is modal: answered once it shows.
    QTimer::singleShot(50, [&] {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* dialog = dynamic_cast<PropertiesDialog*>(w); dialog && dialog->isVisible()) {
                seen = true;
                dialog->grab().save(QString::fromStdString((scratch() / "properties-window.png").string()));
                part<QComboBox>(*dialog, "layer")->setCurrentText("Raumtext");
                dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
            }
    });
    type("");
    EXPECT_TRUE(seen);
    for (Handle h : lines) EXPECT_EQ(drawing().entity(h)->layer, "Raumtext");
    type("U");
    EXPECT_EQ(drawing().toDxf(), before);
}

}  // namespace
}  // namespace cadhost::gui
