#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// Gives this process a network of its own, with nothing in it but a loopback interface that is up.
/// @return false when the machine does not allow that
bool EnterOwnNetwork();

/// Waits until something holds. @return whether it did within the time
bool Eventually(const std::function<bool()>& holds, std::chrono::milliseconds within = std::chrono::seconds(10));

/// A program that runs until this object goes, and its console with it.
class Program {
public:
    /// @param environment  "NAME=value" entries beside the test's own
    Program(const std::string& path, const std::vector<std::string>& arguments,
            const std::vector<std::string>& environment = {});
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    bool IsRunning();
    pid_t Process() const { return m_process; }

    /// Ends the program at once.
    void Kill();

    /// Whether these bytes are in the memory that it can write.
    bool Remembers(std::string_view bytes) const;

    /// What it has printed so far.
    std::string Console() const;
    bool Printed(const std::string& text) const { return Console().find(text) != std::string::npos; }

private:
    std::filesystem::path m_console;
    pid_t m_process = -1;
};
