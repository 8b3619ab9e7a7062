#pragma once
// The docked command line: the text window above, the prompt and the input line below.
// Up and Down walk the history, which is kept between runs in a file; Tab completes
// command and LISP function names.
#include <QDockWidget>
#include <QStringList>
#include <functional>
#include <string>

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QCompleter;
class QStringListModel;

namespace cadhost::gui {

class CommandDock final : public QDockWidget {
public:
    // `historyFile` may be empty (no home folder): the history then lasts for the session.
    CommandDock(std::string historyFile, QWidget* parent = nullptr);
    ~CommandDock() override;

    // Called with each line entered (Enter) and on Escape; the receiver echoes the line
    // where nobody else does.
    void setEntered(std::function<void(const std::string&)> entered) { entered_ = std::move(entered); }
    void setCancelled(std::function<void()> cancelled) { cancelled_ = std::move(cancelled); }
    void print(std::string_view text);
    void setPrompt(const std::string& prompt);
    std::string prompt() const;
    void setCompletions(const QStringList& names);
    QLineEdit* input() const { return input_; }
    QString text() const;
    const QStringList& history() const { return history_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void enter();
    void saveHistory() const;

    std::string historyFile_;
    QPlainTextEdit* output_;
    QLabel* prompt_;
    QLineEdit* input_;
    QStringListModel* names_;
    QCompleter* completer_;
    QStringList history_;
    int historyAt_ = 0;
    std::function<void(const std::string&)> entered_;
    std::function<void()> cancelled_;
};

}  // namespace cadhost::gui
