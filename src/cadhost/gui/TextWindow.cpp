#include "cadhost/gui/TextWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace cadhost::gui {

TextWindow::TextWindow(QWidget* parent) : QDialog(parent) {
    setObjectName("textWindow");
    setWindowTitle(tr("ardo-cad Text Window"));
    text_ = new QPlainTextEdit(this);
    text_->setReadOnly(true);
    text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* copy = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    copy->setObjectName("copy");
    connect(copy, &QPushButton::clicked, this, [this] { this->copy(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::hide);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text_);
    layout->addWidget(buttons);
    resize(760, 480);
}

void TextWindow::showText(const QString& text) {
    text_->setPlainText(text);
    text_->verticalScrollBar()->setValue(text_->verticalScrollBar()->maximum());
    show();
    raise();
    activateWindow();
}

void TextWindow::append(std::string_view text) {
    QTextCursor end(text_->document());
    end.movePosition(QTextCursor::End);
    end.insertText(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    text_->verticalScrollBar()->setValue(text_->verticalScrollBar()->maximum());
}

void TextWindow::copy() const {
    const QString selected = text_->textCursor().selectedText().replace(QChar::ParagraphSeparator, '\n');
    QApplication::clipboard()->setText(selected.isEmpty() ? text_->toPlainText() : selected);
}

QString TextWindow::text() const { return text_->toPlainText(); }

}  // namespace cadhost::gui
