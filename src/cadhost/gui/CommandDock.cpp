#include "cadhost/gui/CommandDock.h"

#include <QAbstractItemView>
#include <algorithm>
#include <QCompleter>
#include <QFile>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStringListModel>
#include <QTextStream>
#include <QVBoxLayout>

namespace cadhost::gui {

namespace {

constexpr int kHistoryLines = 1000;

}  // namespace

CommandDock::CommandDock(std::string historyFile, QWidget* parent)
    : QDockWidget(tr("Command Line"), parent), historyFile_(std::move(historyFile)) {
    setObjectName("commandLine");
    setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    auto* body = new QWidget(this);
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    output_ = new QPlainTextEdit(body);
    output_->setReadOnly(true);
    output_->setFont(fixed);
    output_->setMaximumBlockCount(5000);
    output_->setFocusPolicy(Qt::ClickFocus);
    auto* row = new QHBoxLayout;
    prompt_ = new QLabel(body);
    prompt_->setFont(fixed);
    input_ = new QLineEdit(body);
    input_->setFont(fixed);
    input_->setObjectName("commandInput");
    input_->installEventFilter(this);
    row->addWidget(prompt_);
    row->addWidget(input_, 1);
    layout->addWidget(output_, 1);
    layout->addLayout(row);
    setWidget(body);
    setMinimumHeight(120);

    names_ = new QStringListModel(this);
    completer_ = new QCompleter(names_, this);
    completer_->setCaseSensitivity(Qt::CaseInsensitive);
    completer_->setCompletionMode(QCompleter::PopupCompletion);
    completer_->setWidget(input_);
    connect(completer_, qOverload<const QString&>(&QCompleter::activated), input_, [this](const QString& name) {
        // Only the word under the cursor is replaced; "(" keeps its place before a function.
        QString text = input_->text();
        const int start = text.lastIndexOf(QRegularExpression("[\\s(]")) + 1;
        text.replace(start, text.size() - start, name);
        input_->setText(text);
    });
    connect(input_, &QLineEdit::returnPressed, this, &CommandDock::enter);

    if (QFile file(QString::fromStdString(historyFile_)); !historyFile_.empty() && file.open(QIODevice::ReadOnly)) {
        QTextStream in(&file);
        while (!in.atEnd())
            if (const QString line = in.readLine(); !line.isEmpty()) history_.push_back(line);
    }
    historyAt_ = static_cast<int>(history_.size());
}

CommandDock::~CommandDock() { saveHistory(); }

void CommandDock::saveHistory() const {
    if (historyFile_.empty()) return;
    QFile file(QString::fromStdString(historyFile_));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) return;
    QTextStream out(&file);
    for (qsizetype i = std::max<qsizetype>(0, history_.size() - kHistoryLines); i < history_.size(); ++i)
        out << history_[i] << '\n';
}

void CommandDock::print(std::string_view text) {
    QTextCursor cursor = output_->textCursor();
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    output_->verticalScrollBar()->setValue(output_->verticalScrollBar()->maximum());
}

void CommandDock::setPrompt(const std::string& prompt) { prompt_->setText(QString::fromStdString(prompt)); }

std::string CommandDock::prompt() const { return prompt_->text().toStdString(); }

QString CommandDock::text() const { return output_->toPlainText(); }

void CommandDock::setCompletions(const QStringList& names) { names_->setStringList(names); }

void CommandDock::enter() {
    const QString line = input_->text();
    input_->clear();
    if (!line.trimmed().isEmpty() && (history_.isEmpty() || history_.back() != line)) history_.push_back(line);
    historyAt_ = static_cast<int>(history_.size());
    if (entered_) entered_(line.toStdString());
}

bool CommandDock::eventFilter(QObject* watched, QEvent* event) {
    if (watched != input_) return QDockWidget::eventFilter(watched, event);
    if (event->type() == QEvent::ShortcutOverride) {
        // On an empty line Ctrl+Z and Ctrl+Y undo and redo in the drawing, as the window's
        // menu says; with text typed they edit the text.
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool drawingUndo = key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo) ||
                                 key->keyCombination() == QKeyCombination(Qt::CTRL, Qt::Key_Y);
        if (drawingUndo && input_->text().isEmpty()) {
            event->ignore();
            return true;
        }
        return false;
    }
    if (event->type() != QEvent::KeyPress) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    switch (key->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down: {
        if (completer_->popup()->isVisible()) return false;
        const int step = key->key() == Qt::Key_Up ? -1 : 1;
        historyAt_ = std::clamp(historyAt_ + step, 0, static_cast<int>(history_.size()));
        input_->setText(historyAt_ < history_.size() ? history_[historyAt_] : QString());
        return true;
    }
    case Qt::Key_Escape:
        input_->clear();
        if (cancelled_) cancelled_();
        return true;
    case Qt::Key_Tab: {
        const QString text = input_->text();
        const QString word = text.mid(text.lastIndexOf(QRegularExpression("[\\s(]")) + 1);
        if (word.isEmpty()) return true;
        completer_->setCompletionPrefix(word);
        if (completer_->completionCount() == 1) emit completer_->activated(completer_->currentCompletion());
        else completer_->complete();
        return true;
    }
    default:
        return false;
    }
}

}  // namespace cadhost::gui
