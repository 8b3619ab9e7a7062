#include "dialog/cCellEdit.h"

#include <QKeyEvent>

namespace ardo {

cCellEdit::cCellEdit(QWidget* list, const QRect& cell, const QString& text, std::function<void()> focusLost)
    : QLineEdit(list), list_(list), startText_(text), focusLost_(std::move(focusLost)) {
    setObjectName("cellEdit");
    setGeometry(cell);
    setMaxLength(kMaxLength);
    setFont(list->font());
    setText(text);
    end(false);
    selectAll();
    show();
    setEnabled(true);
    setFocus(Qt::OtherFocusReason);
}

void cCellEdit::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter: list_->setFocus(Qt::OtherFocusReason); return;
        case Qt::Key_Escape:
            setText(startText_);
            list_->setFocus(Qt::OtherFocusReason);
            return;
        default: QLineEdit::keyPressEvent(event);
    }
}

void cCellEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // The owner removes the editor; the callback runs once.
    if (auto callback = std::exchange(focusLost_, nullptr)) callback();
}

}  // namespace ardo
