#include "tools/soak/programs.h"

#include <fcntl.h>
#include <net/if.h>
#include <sched.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>
#include <thread>

namespace {

constexpr unsigned long kLargestRegion = 1UL << 30;  // what is larger is a sanitizer's own, terabytes of nothing

}  // namespace

bool EnterOwnNetwork() {
    if (unshare(CLONE_NEWNET) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0) return false;
    const int socket = ::socket(AF_INET, SOCK_DGRAM, 0);
    ifreq request{};
    std::strncpy(request.ifr_name, "lo", sizeof request.ifr_name - 1);
    request.ifr_flags = IFF_UP | IFF_RUNNING;
    const bool up = ioctl(socket, SIOCSIFFLAGS, &request) == 0;
    ::close(socket);
    return up;
}

bool Eventually(const std::function<bool()>& holds, std::chrono::milliseconds within) {
    const auto end = std::chrono::steady_clock::now() + within;
    while (!holds()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

Program::Program(const std::string& path, const std::vector<std::string>& arguments,
                 const std::vector<std::string>& environment) {
    std::string console = (std::filesystem::temp_directory_path() / "console-XXXXXX").string();
    ::close(mkstemp(console.data()));
    m_console = console;

    std::vector<char*> argv{const_cast<char*>(path.c_str())};
    for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    std::vector<char*> envp;
    for (char** entry = environ; *entry != nullptr; ++entry) envp.push_back(*entry);
    for (const std::string& entry : environment) envp.push_back(const_cast<char*>(entry.c_str()));
    envp.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, m_console.c_str(), O_WRONLY | O_APPEND, 0600);
    posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
    if (posix_spawn(&m_process, path.c_str(), &actions, nullptr, argv.data(), envp.data()) != 0) m_process = -1;
    posix_spawn_file_actions_destroy(&actions);
}

Program::~Program() {
    Kill();
    std::error_code ignored;
    std::filesystem::remove(m_console, ignored);
}

bool Program::IsRunning() {
    if (m_process > 0 && waitpid(m_process, nullptr, WNOHANG) == m_process) m_process = -1;
    return m_process > 0;
}

void Program::Kill() {
    if (IsRunning()) {
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
        m_process = -1;
    }
}

bool Program::Remembers(std::string_view bytes) const {
    const std::string folder = "/proc/" + std::to_string(m_process);
    std::ifstream maps(folder + "/maps");
    std::ifstream memory(folder + "/mem", std::ios::binary);
    for (std::string line; std::getline(maps, line);) {
        std::istringstream fields(line);
        unsigned long start = 0;
        unsigned long end = 0;
        char dash = 0;
        std::string rights;
        if (!(fields >> std::hex >> start >> dash >> end >> rights) || !rights.starts_with("rw")) continue;
        if (end - start > kLargestRegion) continue;
        std::string region(end - start, '\0');
        memory.clear();
        memory.seekg(static_cast<std::streamoff>(start));
        memory.read(region.data(), static_cast<std::streamsize>(region.size()));
        region.resize(static_cast<std::size_t>(memory.gcount()));
        if (region.find(bytes) != region.npos) return true;
    }
    return false;
}

std::string Program::Console() const {
    std::ifstream file(m_console, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
