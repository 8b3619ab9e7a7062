#pragma once
// The text window (F2): the command line's whole text of the session in a window of its own,
// large enough to read and select; Copy takes the selection, or everything when nothing is
// selected.
#include <QDialog>
#include <string_view>

class QPlainTextEdit;

namespace cadhost::gui {

class TextWindow final : public QDialog {
public:
    explicit TextWindow(QWidget* parent = nullptr);

    // Shows the text and keeps its end in view.
    void showText(const QString& text);
    void append(std::string_view text);
    void copy() const;
    QString text() const;

private:
    QPlainTextEdit* text_;
};

}  // namespace cadhost::gui
