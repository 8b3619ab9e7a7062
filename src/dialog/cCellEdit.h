#pragma once
// The in-place editor laid over a key or name cell of the layer list. Enter gives the focus
// back to the list, Esc first restores the start text; the owner commits on the loss of focus.
#include <QLineEdit>
#include <functional>

namespace ardo {

class cCellEdit : public QLineEdit {
public:
    static constexpr int kMaxLength = 256;

    // Covers the cell, takes the list's font, selects the whole text and takes the focus.
    cCellEdit(QWidget* list, const QRect& cell, const QString& text, std::function<void()> focusLost);

    const QString& startText() const { return startText_; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QWidget* list_;
    QString startText_;
    std::function<void()> focusLost_;
};

}  // namespace ardo
