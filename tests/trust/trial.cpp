#include "tests/trust/trial.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <string_view>

extern "C" void __gcov_dump() __attribute__((weak));  // there in a build that counts branches

namespace {

constexpr std::size_t kLastWords = 500;  // of the console, in a verdict on a trial that died

int console = -1;

std::string ContentOf(int file) {
    std::string content;
    std::array<char, 4096> buffer;
    for (ssize_t count; (count = ::pread(file, buffer.data(), buffer.size(), static_cast<off_t>(content.size()))) > 0;)
        content.append(buffer.data(), static_cast<std::size_t>(count));
    return content;
}

[[noreturn]] void RunTrial(const std::function<std::string()>& trial, unsigned seconds, int report) {
    ::dup2(console, STDOUT_FILENO);
    ::dup2(console, STDERR_FILENO);
    ::alarm(seconds);
    std::string words;
    try {
        words = trial();
    } catch (const std::exception& error) {
        words = error.what();
    }
    std::fflush(stdout);
    for (std::string_view left = words; !left.empty();) {
        const ssize_t count = ::write(report, left.data(), left.size());
        if (count <= 0) break;
        left.remove_prefix(static_cast<std::size_t>(count));
    }
    if (__gcov_dump != nullptr) __gcov_dump();
    ::_exit(0);  // the display's tasks are still there
}

std::string HowItDied(int status) {
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return {};
    const std::string words = ContentOf(console);
    const std::string tail = words.size() > kLastWords ? words.substr(words.size() - kLastWords) : words;
    if (WIFSIGNALED(status)) return std::string(::strsignal(WTERMSIG(status))) + "; its last words: " + tail;
    return "status " + std::to_string(WEXITSTATUS(status)) + "; its last words: " + tail;
}

}  // namespace

Verdict Try(const std::function<std::string()>& trial, unsigned seconds) {
    const int report = ::memfd_create("report", MFD_CLOEXEC);
    console = ::memfd_create("console", MFD_CLOEXEC);
    std::fflush(stdout);
    const pid_t process = ::fork();
    if (report < 0 || console < 0 || process < 0) throw std::runtime_error("no process for a trial");
    if (process == 0) RunTrial(trial, seconds, report);
    int status = 0;
    ::waitpid(process, &status, 0);
    Verdict verdict{HowItDied(status), ContentOf(report)};
    ::close(report);
    ::close(console);
    return verdict;
}

std::string Console() {
    std::fflush(stdout);
    return ContentOf(console);
}
