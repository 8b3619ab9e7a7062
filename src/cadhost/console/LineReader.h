#pragma once
// Where the prompt's lines come from: the terminal through GNU readline, with line
// editing and a history kept in the user's home, or a stream read to its end (script
// mode), each line echoed after its prompt as a script run shows it.
#include <istream>
#include <optional>
#include <string>

namespace cadhost::console {

// The file that keeps the prompt's history between runs; empty without a home folder.
std::string historyFile();

class LineReader {
public:
    virtual ~LineReader() = default;
    // The next line without its line end; nothing at the end of input.
    virtual std::optional<std::string> read(const std::string& prompt) = 0;
};

class TerminalReader final : public LineReader {
public:
    TerminalReader();
    ~TerminalReader() override;
    std::optional<std::string> read(const std::string& prompt) override;
    // For questions (message boxes): the answer stays out of the history.
    std::optional<std::string> ask(const std::string& prompt);

private:
    std::string historyFile_;
};

class StreamReader final : public LineReader {
public:
    explicit StreamReader(std::istream& in) : in_(in) {}
    std::optional<std::string> read(const std::string& prompt) override;

private:
    std::istream& in_;
};

}  // namespace cadhost::console
