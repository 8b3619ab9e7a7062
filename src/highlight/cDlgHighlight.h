#pragma once
// The highlight options dialog: mode, changes per second, frame and its distance (typed or
// picked in the drawing), hatches, and the layer of permanent frames.
#include <QColor>
#include <QDialog>
#include <QString>
#include <QWidget>

#include "highlight/cOptHighlight.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace ardo {

// The result code with which the dialog asks its caller to pick the distance.
inline constexpr int kPickDistance = 1099;

// The frequency list and the entry a frequency shows: its "%.1lf" text, else "2.0".
QStringList frequencyEntries();
int frequencyEntryOf(double frequency);
// A distance as the edit shows it: "%.6lf" without trailing zeros, then without a
// trailing point (1 and 2.5, not 1.000000 and 2.500000).
QString distanceText(double distance);
// The distance a typed text stores: the number it begins with, a negative one as 0; the
// stored value stays when the text holds no number.
void takeDistanceText(const QString& text, double& distance);
// The colour the swatch shows for the frame layer: the drawing layer's when the drawing has
// it, else the colour of its entry in the central file; invalid when neither is known.
QColor frameLayerColor(const cOptHighlight& options);

// The swatch: the colour with a raised border and an inner border one pixel inside.
class cColorSwatch : public QWidget {
public:
    explicit cColorSwatch(QWidget* parent = nullptr);
    void setColor(const QColor& color);
    const QColor& color() const { return color_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor color_;
};

class cDlgHighlight : public QDialog {
public:
    explicit cDlgHighlight(QWidget* parent);

    // The options the dialog edits; the controls show them at every opening.
    cOptHighlight& working() { return working_; }
    int exec() override;

private:
    void showValues();
    void setMode(int mode);
    void enableControls();
    void showFrameLayer();
    void chooseFrameLayer();

    cOptHighlight working_;
    QRadioButton* illuminate_;
    QRadioButton* blink_;
    QLabel* perSecondLabel_;
    QComboBox* frequency_;
    QCheckBox* frame_;
    QLabel* distanceLabel_;
    QLineEdit* distance_;
    QPushButton* pick_;
    QCheckBox* hatch_;
    QLabel* layerName_;
    cColorSwatch* swatch_;
    QPushButton* chooseLayer_;
};

}  // namespace ardo
