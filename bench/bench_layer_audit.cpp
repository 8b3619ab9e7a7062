// ardo-cad --audit-layers over many drawings, one worker against as many workers as the
// machine has cores, side by side in one run: 1,000 copies of the example office drawing
// and 100 copies of a 200,000-entity drawing. Prints drawings per second for both and their
// ratio. Arguments: [office copies] [large copies] (defaults 1000 and 100).
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "GeneratedDrawing.h"
#include "../tests/support/TempFolder.h"

extern char** environ;

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

// Seconds for one audit run, or a negative number when ardo-cad did not finish as expected
// (exit status 0 or 1: every drawing was read).
double auditSeconds(const fs::path& ardoCad, const fs::path& folder, int jobs) {
    const std::string program = ardoCad.string(), jobText = std::to_string(jobs), folderText = folder.string();
    std::vector<char*> argv{const_cast<char*>(program.c_str()), const_cast<char*>("--audit-layers"),
                            const_cast<char*>("--jobs"), const_cast<char*>(jobText.c_str()),
                            const_cast<char*>(folderText.c_str()), nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    const auto start = Clock::now();
    pid_t pid = 0;
    const int spawned = posix_spawn(&pid, program.c_str(), &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (spawned != 0) return -1;
    int status = 0;
    waitpid(pid, &status, 0);
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    return WIFEXITED(status) && WEXITSTATUS(status) <= 1 ? seconds : -1;
}

// The same drawing under many names; hard links, since an audit only reads.
void fillFolder(const fs::path& folder, const fs::path& drawing, int copies) {
    fs::create_directories(folder);
    for (int i = 0; i < copies; ++i) fs::create_hard_link(drawing, folder / ("drawing-" + std::to_string(i) + ".dxf"));
}

bool compare(const char* label, const fs::path& ardoCad, const fs::path& folder, int copies, int cores) {
    // Warm the page cache and the module's files once, so that neither side pays for it.
    if (auditSeconds(ardoCad, folder, cores) < 0) {
        std::printf("%s: ardo-cad did not audit the drawings\n", label);
        return false;
    }
    const double one = auditSeconds(ardoCad, folder, 1);
    const double all = auditSeconds(ardoCad, folder, cores);
    if (one < 0 || all < 0) return false;
    std::printf("%-34s 1 worker %8.1f drawings/s | %d workers %8.1f drawings/s | ratio %.2f\n", label, copies / one,
                cores, copies / all, one / all);
    std::fflush(stdout);
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    const int officeCopies = argc > 1 ? std::atoi(argv[1]) : 1000;
    const int largeCopies = argc > 2 ? std::atoi(argv[2]) : 100;
    const int cores = static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
    ardo::test::TempFolder temp;
    // A copy of the build's installation, so that nothing of the user's own settings counts.
    const fs::path install = temp.path() / "ardo";
    fs::copy(ARDO_BUILD_ARDO_DIR, install, fs::copy_options::recursive);
    const fs::path ardoCad = install / "ardo-cad";

    fillFolder(temp.path() / "office", fs::path(ARDO_SOURCE_DIR) / "examples/drawings/office.dxf", officeCopies);
    bool ok = compare(("office.dxf x " + std::to_string(officeCopies)).c_str(), ardoCad, temp.path() / "office",
                      officeCopies, cores);
    if (largeCopies > 0) {
        const fs::path large = temp.path() / "large.dxf";
        std::ofstream(large, std::ios::binary) << bench::makeDrawing(2000, 200000);
        fillFolder(temp.path() / "large", large, largeCopies);
        ok = compare(("200,000 entities x " + std::to_string(largeCopies)).c_str(), ardoCad, temp.path() / "large",
                     largeCopies, cores) && ok;
    }
    return ok ? 0 : 1;
}
