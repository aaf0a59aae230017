#include "tests/bench/trial.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <stdexcept>

#include "tests/bench/shell.h"

extern "C" void __gcov_dump() __attribute__((weak));  // there in a build that counts branches

namespace {

constexpr std::size_t kLastWords = 500;  // of the console, when a trial died

int console = -1;

std::string PathOf(int file) { return "/proc/self/fd/" + std::to_string(file); }

[[noreturn]] void RunTrial(const std::function<std::string()>& trial, unsigned seconds, int report) {
    ::dup2(console, STDOUT_FILENO);
    ::dup2(console, STDERR_FILENO);
    ::alarm(seconds);
    std::string words;
    try {
        words = trial();
    } catch (const std::exception& error) {
        words = std::string("; ") + error.what();
    }
    std::ofstream(PathOf(report)) << words;
    std::fflush(stdout);
    if (__gcov_dump != nullptr) __gcov_dump();
    ::_exit(0);  // the display's tasks are still there
}

}  // namespace

std::string Try(const std::function<std::string()>& trial, unsigned seconds) {
    const int report = ::memfd_create("report", MFD_CLOEXEC);
    console = ::memfd_create("console", MFD_CLOEXEC);
    std::fflush(stdout);
    const pid_t process = ::fork();
    if (report < 0 || console < 0 || process < 0) throw std::runtime_error("no process for a trial");
    if (process == 0) RunTrial(trial, seconds, report);
    int status = 0;
    ::waitpid(process, &status, 0);
    std::string words = ContentOf(PathOf(report));
    if (status != 0) {
        const std::string said = Console();
        words = WIFSIGNALED(status) ? ::strsignal(WTERMSIG(status)) : "status " + std::to_string(WEXITSTATUS(status));
        words = "; " + words + "; its last words: " + said.substr(said.size() - std::min(said.size(), kLastWords));
    }
    ::close(report);
    ::close(console);
    return words;
}

std::string Console() {
    std::fflush(stdout);
    return ContentOf(PathOf(console));
}
