#include "cadhost/audit/LayerAuditRun.h"

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <thread>
#include <vector>

#include "cadhost/app/Application.h"
#include "cadhost/app/ConsoleInterface.h"
#include "cadhost/audit/DrawingAudit.h"

namespace cadhost::audit {

namespace {

using Clock = std::chrono::steady_clock;
constexpr int kRunFailed = 2;

void fail(const std::string& message) { std::cerr << "ardo-cad: " << message << '\n'; }

bool isDxf(const std::filesystem::path& p) {
    std::string ext = p.extension().string();
    std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return std::tolower(c); });
    return ext == ".dxf";
}

// The drawings in the order given, each folder's in name order. An input that is neither
// a drawing nor a folder stays in the list and fails there, so the user sees it reported.
std::vector<std::string> collectDrawings(const std::vector<std::string>& inputs) {
    std::vector<std::string> drawings;
    for (const std::string& input : inputs) {
        std::error_code ec;
        if (!std::filesystem::is_directory(input, ec)) {
            drawings.push_back(input);
            continue;
        }
        std::vector<std::string> found;
        const auto options = std::filesystem::directory_options::skip_permission_denied;
        for (auto it = std::filesystem::recursive_directory_iterator(input, options, ec);
             !ec && it != std::filesystem::recursive_directory_iterator(); it.increment(ec))
            if (it->is_regular_file(ec) && isDxf(it->path())) found.push_back(it->path().string());
        std::sort(found.begin(), found.end());
        drawings.insert(drawings.end(), found.begin(), found.end());
    }
    return drawings;
}

// A worker at work: its process, the pipe it reports through and what came so far.
struct Worker {
    pid_t pid = -1;
    int fd = -1;
    size_t drawing = 0;
    std::string bytes;
};

bool writeAll(int fd, const std::string& bytes) {
    size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = write(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        done += static_cast<size_t>(n);
    }
    return true;
}

std::string endedAbnormally(int status) {
    if (WIFSIGNALED(status))
        return "the audit of this drawing ended abnormally (signal " + std::to_string(WTERMSIG(status)) + ")";
    return "the audit of this drawing ended without a result";
}

// Progress on stderr once a run takes a while: a counter in place on a terminal, a line
// every few seconds otherwise.
class Progress {
public:
    explicit Progress(size_t total) : total_(total), terminal_(isatty(STDERR_FILENO) == 1), start_(Clock::now()) {}
    void show(size_t done) {
        const auto now = Clock::now();
        if (now - start_ < std::chrono::seconds(1)) return;
        const auto every = terminal_ ? std::chrono::milliseconds(200) : std::chrono::milliseconds(5000);
        if (shown_ && now - last_ < every && done != total_) return;
        last_ = now;
        shown_ = true;
        std::cerr << (terminal_ ? "\r" : "") << "ardo-cad: audited " << done << " of " << total_ << " drawings"
                  << (terminal_ ? "" : "\n") << std::flush;
    }
    void finish() {
        if (shown_ && terminal_) std::cerr << '\n';
    }

private:
    size_t total_;
    bool terminal_;
    Clock::time_point start_, last_;
    bool shown_ = false;
};

class Scheduler {
public:
    Scheduler(const std::vector<std::string>& drawings, const LayerAuditOptions& options, const std::string& module,
              const std::string& programFolder)
        : drawings_(drawings), options_(options), module_(module), programFolder_(programFolder),
          outcomes_(drawings.size()) {}

    // Runs every drawing; false when the run had to stop (runFailure() says why).
    bool run(int workers) {
        Progress progress(drawings_.size());
        size_t next = 0, done = 0;
        while (done < drawings_.size()) {
            // The first drawing runs alone: its module load provides the user's settings files,
            // which parallel loads would otherwise race to copy, and a central file that cannot
            // be used stops the run after one drawing.
            const size_t limit = done == 0 ? 1 : static_cast<size_t>(workers);
            while (runFailure_.empty() && next < drawings_.size() && running_.size() < limit)
                if (!start(next++)) ++done;
            if (running_.empty()) break;
            done += collect();
            progress.show(done);
        }
        progress.finish();
        return runFailure_.empty();
    }

    const std::vector<DrawingOutcome>& outcomes() const { return outcomes_; }
    const std::string& runFailure() const { return runFailure_; }

private:
    // False when no worker could be started; the drawing's outcome then says why.
    bool start(size_t index) {
        int fds[2];
        if (pipe(fds) != 0) {
            outcomes_[index] = {drawings_[index], std::string("no pipe for a worker: ") + std::strerror(errno), {}, {}, false};
            return false;
        }
        std::cout.flush();
        const pid_t pid = fork();
        if (pid == 0) {
            close(fds[0]);
            for (const Worker& w : running_) close(w.fd);
            const DrawingOutcome outcome = auditDrawing(drawings_[index], options_, module_, programFolder_);
            _exit(writeAll(fds[1], encodeOutcome(outcome)) ? 0 : 1);
        }
        close(fds[1]);
        if (pid < 0) {
            close(fds[0]);
            outcomes_[index] = {drawings_[index], std::string("no worker process: ") + std::strerror(errno), {}, {}, false};
            return false;
        }
        running_.push_back({pid, fds[0], index, {}});
        return true;
    }

    // Waits for output of the workers; the number that finished.
    size_t collect() {
        std::vector<pollfd> fds;
        for (const Worker& w : running_) fds.push_back({w.fd, POLLIN, 0});
        if (poll(fds.data(), fds.size(), -1) < 0 && errno != EINTR) return 0;
        size_t finished = 0;
        for (size_t i = fds.size(); i-- > 0;) {
            if (!(fds[i].revents & (POLLIN | POLLHUP | POLLERR))) continue;
            Worker& w = running_[i];
            char buffer[65536];
            const ssize_t n = read(w.fd, buffer, sizeof buffer);
            if (n < 0 && errno == EINTR) continue;
            if (n > 0) {
                w.bytes.append(buffer, static_cast<size_t>(n));
                continue;
            }
            finish(w);
            running_.erase(running_.begin() + static_cast<std::ptrdiff_t>(i));
            ++finished;
        }
        return finished;
    }

    void finish(Worker& w) {
        close(w.fd);
        int status = 0;
        while (waitpid(w.pid, &status, 0) < 0 && errno == EINTR) {}
        const std::string& path = drawings_[w.drawing];
        auto outcome = decodeOutcome(path, w.bytes);
        if (!outcome || !WIFEXITED(status)) outcome = DrawingOutcome{path, endedAbnormally(status), {}, {}, false};
        if (!outcome->runFailure.empty() && runFailure_.empty()) runFailure_ = outcome->runFailure;
        outcomes_[w.drawing] = std::move(*outcome);
    }

    const std::vector<std::string>& drawings_;
    const LayerAuditOptions& options_;
    const std::string& module_;
    const std::string& programFolder_;
    std::vector<DrawingOutcome> outcomes_;
    std::vector<Worker> running_;
    std::string runFailure_;
};

// The module merges the outcomes, prints the summary and writes the reports.
int writeReports(const std::vector<DrawingOutcome>& outcomes, const LayerAuditOptions& options,
                 const std::string& module, double seconds, int workers) {
    ConsoleInterface ui([](std::string_view) {});
    Application app(ui);
    app.addDocument(Drawing(), false);
    if (const ardo::Status loaded = app.modules().load(module); !loaded) {
        fail(loaded.error());
        return kRunFailed;
    }
    const ArdoLayerStandardEntry entry = layerStandardEntry(app, module);
    if (!entry) {
        fail("the module has no layer-standard entry");
        return kRunFailed;
    }
    std::vector<ArdoDrawingOutcome> drawings;
    for (const DrawingOutcome& o : outcomes)
        drawings.push_back({o.path.c_str(), o.record.c_str(), o.failure.c_str(), o.saved ? 1 : 0});
    std::vector<const char*> reports;
    for (const std::string& r : options.reports) reports.push_back(r.c_str());
    std::string summary, messages;
    ArdoStandardCall call{};
    call.operation = kArdoWriteReports;
    call.apply = options.apply;
    call.dryRun = options.dryRun;
    call.out = appendingTo(summary);
    call.messages = appendingTo(messages);
    call.drawings = drawings.data();
    call.drawingCount = drawings.size();
    call.reportFiles = reports.data();
    call.reportFileCount = reports.size();
    call.seconds = seconds;
    call.workers = workers;
    const int status = entry(&call);
    std::cout << summary << std::flush;
    if (!messages.empty()) fail(messages);
    return status;
}

}  // namespace

int runLayerAudit(const LayerAuditOptions& options, const std::string& module, const std::string& programFolder) {
    const auto start = Clock::now();
    const std::vector<std::string> drawings = collectDrawings(options.inputs);
    if (drawings.empty()) {
        fail("no .dxf drawings found in the folders given");
        return kRunFailed;
    }
    const int cores = static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
    const int workers = std::min<int>(options.jobs > 0 ? options.jobs : cores, static_cast<int>(drawings.size()));
    Scheduler scheduler(drawings, options, module, programFolder);
    if (!scheduler.run(workers)) {
        fail(scheduler.runFailure());
        return kRunFailed;
    }
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    return writeReports(scheduler.outcomes(), options, module, seconds, workers);
}

}  // namespace cadhost::audit
