// The highlight options dialog driven through its widgets: the combo and distance rules,
// the enabling of the controls, the pick loop and Cancel that keeps what was set.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <functional>

#include "cadhost/drawing/Drawing.h"
#include "dialog/GuiApplication.h"
#include "highlight/HighlightOptionsRun.h"
#include "highlight/cDlgHighlight.h"
#include "support/ScriptedHost.h"

namespace ardo {
namespace {

cDlgHighlight* openDialog() {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* d = dynamic_cast<cDlgHighlight*>(w); d && d->isVisible()) return d;
    return nullptr;
}

// Runs `act` on the dialog once it shows; the actions queue up one per opening.
void whenShown(std::function<void(cDlgHighlight&)> act) {
    QTimer::singleShot(20, [act] {
        if (cDlgHighlight* d = openDialog()) act(*d);
        else whenShown(act);
    });
}

template <typename W>
W* child(QWidget& dialog, const char* name) {
    W* w = dialog.findChild<W*>(name);
    EXPECT_NE(w, nullptr) << name;
    return w;
}

void press(QWidget& dialog, const char* button) { child<QPushButton>(dialog, button)->click(); }

// Saves a picture of the dialog where ARDO_GRAB_DIR points, for a person to look at.
void grab(QWidget& dialog, const char* name) {
    if (const QByteArray dir = qgetenv("ARDO_GRAB_DIR"); !dir.isEmpty())
        dialog.grab().save(QString::fromLocal8Bit(dir) + "/" + name + ".png");
}

class HighlightDialogTest : public ::testing::Test {
protected:
    void SetUp() override {
        test::guiApplication();
        host.drawing = &drawing;
    }
    test::ScriptedHost host;
    cadhost::Drawing drawing;
    cOptHighlight options;
};

TEST(HighlightDialogRules, DistanceTextDropsTrailingZerosThenThePoint) {
    EXPECT_EQ(distanceText(1.0), "1");
    EXPECT_EQ(distanceText(2.5), "2.5");
    EXPECT_EQ(distanceText(10.0), "10") << "only the zeros after the point go";
    EXPECT_EQ(distanceText(0.0), "0") << "the zeros go up to the point, then the point";
    double d = 1.0;
    takeDistanceText("-3", d);
    EXPECT_EQ(d, 0.0);
    takeDistanceText("4.75mm", d);
    EXPECT_EQ(d, 4.75) << "the number a text begins with";
    takeDistanceText("abc", d);
    EXPECT_EQ(d, 4.75) << "a text without a number changes nothing";
}

TEST(HighlightDialogRules, FrequencyWithoutEntryShowsTwo) {
    EXPECT_EQ(frequencyEntryOf(0.5), 0);
    EXPECT_EQ(frequencyEntryOf(3.0), 3);
    EXPECT_EQ(frequencyEntryOf(2.5), 2);
    EXPECT_EQ(frequencyEntryOf(0.1), 2);
}

TEST_F(HighlightDialogTest, UntouchedDialogKeepsAFrequencyTheListLacks) {
    options.mode = 1;
    options.setFrequency(2.5);
    options.drawFrame = false;
    whenShown([](cDlgHighlight& d) {
        EXPECT_EQ(child<QComboBox>(d, "frequency")->currentText(), "2.0");
        EXPECT_TRUE(child<QComboBox>(d, "frequency")->isEnabled());
        EXPECT_FALSE(child<QLineEdit>(d, "distance")->isEnabled()) << "the distance belongs to the frame";
        EXPECT_EQ(child<QLineEdit>(d, "distance")->text(), "1");
        grab(d, "highlight-options");
        press(d, "ok");
    });
    runHighlightOptionsLoop(options);
    EXPECT_DOUBLE_EQ(options.frequency, 2.5);
    EXPECT_EQ(options.period, 400);
}

TEST_F(HighlightDialogTest, CancelStillKeepsTheChanges) {
    options.mode = 1;
    whenShown([](cDlgHighlight& d) {
        child<QRadioButton>(d, "illuminate")->click();
        EXPECT_FALSE(child<QComboBox>(d, "frequency")->isEnabled()) << "illuminating has no frequency";
        child<QCheckBox>(d, "frame")->click();
        EXPECT_TRUE(child<QLineEdit>(d, "distance")->isEnabled());
        QLineEdit* distance = child<QLineEdit>(d, "distance");
        distance->clear();
        QTest::keyClicks(distance, "-3");
        child<QCheckBox>(d, "hatch")->click();
        d.move(321, 123);
        press(d, "cancel");
    });
    runHighlightOptionsLoop(options);
    EXPECT_EQ(options.mode, 0);
    EXPECT_TRUE(options.drawFrame);
    EXPECT_TRUE(options.changeHatch);
    EXPECT_EQ(options.distance, 0.0) << "a negative distance is stored as 0";
    EXPECT_EQ(options.dialogPosX, 321);
    EXPECT_EQ(options.dialogPosY, 123);
}

TEST_F(HighlightDialogTest, ChosenFrequencySetsThePeriod) {
    options.mode = 1;
    whenShown([](cDlgHighlight& d) {
        QComboBox* combo = child<QComboBox>(d, "frequency");
        combo->setFocus();
        QTest::keyClick(combo, Qt::Key_Down);  // 2.0 -> 3.0
        press(d, "ok");
    });
    runHighlightOptionsLoop(options);
    EXPECT_DOUBLE_EQ(options.frequency, 3.0);
    EXPECT_EQ(options.period, 333);
}

TEST_F(HighlightDialogTest, PickButtonAsksForTheDistanceAndShowsTheDialogAgain) {
    options.drawFrame = true;
    host.distances.push_back(7.25);
    whenShown([](cDlgHighlight& d) {
        press(d, "pick");
        whenShown([](cDlgHighlight& again) {
            EXPECT_EQ(child<QLineEdit>(again, "distance")->text(), "7.25");
            press(again, "ok");
        });
    });
    runHighlightOptionsLoop(options);
    ASSERT_EQ(host.prompts.size(), 1u);
    EXPECT_EQ(host.prompts[0], "\nErsten Punkt angeben: ");
    EXPECT_DOUBLE_EQ(options.distance, 7.25);
}

TEST_F(HighlightDialogTest, CancelledPickKeepsTheDistance) {
    options.distance = 2.0;
    whenShown([](cDlgHighlight& d) {
        press(d, "pick");
        whenShown([](cDlgHighlight& again) {
            EXPECT_EQ(child<QLineEdit>(again, "distance")->text(), "2");
            press(again, "ok");
        });
    });
    runHighlightOptionsLoop(options);
    EXPECT_DOUBLE_EQ(options.distance, 2.0);
}

TEST_F(HighlightDialogTest, SwatchShowsTheFrameLayersColourInTheDrawing) {
    LayerRecord layer;
    layer.name = "Rahmen";
    layer.color = HostColor::fromIndex(1);
    ASSERT_EQ(drawing.addLayer(layer), DbStatus::Ok);
    options.frameLayer = "Rahmen";
    EXPECT_EQ(frameLayerColor(options), QColor(255, 0, 0));
    options.frameLayer = "Fehlt";
    EXPECT_FALSE(frameLayerColor(options).isValid()) << "a layer neither drawing nor file knows has no colour";
    whenShown([](cDlgHighlight& d) {
        EXPECT_EQ(child<QWidget>(d, "frameLayer")->property("text").toString(), "Fehlt");
        press(d, "ok");
    });
    runHighlightOptionsLoop(options);
}

}  // namespace
}  // namespace ardo
