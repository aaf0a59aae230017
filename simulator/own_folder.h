#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

/// A folder among the host's temporary ones that nobody else has. It goes with this object.
class OwnFolder {
public:
    /// Ends the process where no folder can be made.
    /// @param purpose  what its name begins with
    explicit OwnFolder(const char* purpose) {
        std::string path = (std::filesystem::temp_directory_path() / purpose).string() + "-XXXXXX";
        if (mkdtemp(path.data()) == nullptr) {
            std::perror(path.c_str());
            std::abort();
        }
        m_path = path;
    }
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;
    ~OwnFolder() { Remove(); }

    /// Removes it before its time; what is open stays open.
    void Remove() const { std::filesystem::remove_all(m_path); }

    const std::filesystem::path& Path() const { return m_path; }
    std::filesystem::path operator/(const std::filesystem::path& name) const { return m_path / name; }

private:
    std::filesystem::path m_path;
};

/// One in which this process's display finds its devices and files.
class OwnBoard : public OwnFolder {
public:
    explicit OwnBoard(const char* purpose) : OwnFolder(purpose) { setenv("BOARD_ROOT", Path().c_str(), 1); }
};
