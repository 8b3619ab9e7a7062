// CLOSE of a drawing with unsaved changes asks whether to save them, with the scripted
// message-box answers of the console.
#include "AppTestSupport.h"

#include "cadhost/app/CommandLine.h"
#include "support/TempFolder.h"

namespace cadhost::test {
namespace {

class CloseCommand : public HostTest {
protected:
    ardo::test::TempFolder folder;
    CommandLine line{host};
    std::string path = (folder.path() / "plan.dxf").string();

    // A second drawing, saved to `path` and current, with a layer added since.
    Document& changedDrawing() {
        Document& plan = host.addDocument(Drawing(), false);
        EXPECT_TRUE(plan.drawing().save(path));
        ardo::LayerRecord layer;
        layer.name = "Nach dem Speichern";
        EXPECT_EQ(plan.drawing().addLayer(layer), ardo::DbStatus::Ok);
        return plan;
    }
    bool isOpen(const Document& document) const {
        for (const auto& d : host.documents())
            if (d.get() == &document) return true;
        return false;
    }
    bool savedHasLayer() const {
        auto saved = Drawing::open(path);
        return saved && saved->findLayer("Nach dem Speichern").has_value();
    }
};

TEST_F(CloseCommand, CancelKeepsTheDrawingOpenAndNoDiscardsItsChanges) {
    Document& plan = changedDrawing();
    ui.boxes().addScriptAnswer(ardo::MbAnswer::Cancel);
    line.enter("CLOSE");
    EXPECT_NE(output.find("Save changes to " + path + "?"), std::string::npos) << output;
    EXPECT_TRUE(isOpen(plan));
    EXPECT_EQ(&host.current(), &plan);
    EXPECT_TRUE(plan.drawing().hasUnsavedChanges());

    ui.boxes().addScriptAnswer(ardo::MbAnswer::No);
    line.enter("close plan.dxf");
    EXPECT_FALSE(isOpen(plan));
    EXPECT_FALSE(savedHasLayer());
    EXPECT_EQ(&host.current(), &first);
}

TEST_F(CloseCommand, YesSavesBeforeClosing) {
    Document& plan = changedDrawing();
    ui.boxes().addScriptAnswer(ardo::MbAnswer::Yes);
    line.enter("CLOSE");
    EXPECT_FALSE(isOpen(plan));
    EXPECT_TRUE(savedHasLayer());
}

TEST_F(CloseCommand, UnchangedDrawingsCloseWithoutAQuestion) {
    Document& plan = host.addDocument(Drawing(), false);
    ASSERT_TRUE(plan.drawing().save(path));
    line.enter("CLOSE");
    EXPECT_FALSE(isOpen(plan));
    EXPECT_EQ(output.find("Save changes"), std::string::npos) << output;
}

// Yes for a drawing never saved needs a file name; a script has nobody to give one.
TEST_F(CloseCommand, ANeverSavedDrawingStaysOpenWhenNoFileNameComes) {
    Document& fresh = host.addDocument(Drawing(), false);
    ardo::LayerRecord layer;
    layer.name = "Neu";
    ASSERT_EQ(fresh.drawing().addLayer(layer), ardo::DbStatus::Ok);
    ui.boxes().addScriptAnswer(ardo::MbAnswer::Yes);
    line.enter("CLOSE");
    EXPECT_TRUE(isOpen(fresh));
    EXPECT_NE(output.find("has no file name yet and stays open"), std::string::npos) << output;
}

// The last drawing is not closed, so its changes are not asked about.
TEST_F(CloseCommand, TheLastDrawingIsNotAskedAbout) {
    ardo::LayerRecord layer;
    layer.name = "Neu";
    ASSERT_EQ(first.drawing().addLayer(layer), ardo::DbStatus::Ok);
    line.enter("CLOSE");
    EXPECT_EQ(output.find("Save changes"), std::string::npos) << output;
    EXPECT_NE(output.find("is the only open drawing"), std::string::npos) << output;
}

}  // namespace
}  // namespace cadhost::test
