#include "tests/tools/workshop.h"

#include <cstdlib>

#include "peg/resources/resources.h"

Workshop::Workshop() {
    std::string path = (std::filesystem::temp_directory_path() / "workshop-XXXXXX").string();
    if (mkdtemp(path.data()) == nullptr) std::abort();
    m_folder = path;
    unsetenv("BOARD_ROOT");
    // The programs' libraries keep memory to the end; a sanitizer would call that a leak. What it finds besides has a
    // status of its own.
    setenv("ASAN_OPTIONS", "detect_leaks=0:exitcode=99", 1);
    setenv("UBSAN_OPTIONS", "exitcode=99", 1);
    PegResources::Reset();
}

Workshop::~Workshop() { std::filesystem::remove_all(m_folder); }

void Workshop::Write(const std::string& name, const std::string& content) const {
    std::filesystem::create_directories(At(name).parent_path());
    std::ofstream(At(name), std::ios::binary) << content;
}

std::string Workshop::Read(const std::string& name) const { return ContentOf(At(name)); }

Outcome Workshop::Call(const std::string& program, const std::string& arguments) const {
    return Shell("cd '" + m_folder.string() + "' && '" BIN_DIR "/" + program + "' " + arguments);
}

nlohmann::json Workshop::Inspect(const std::string& program, const std::string& file) const {
    return nlohmann::json::parse(Call(program, "--json '" + file + "'").output);
}

int Workshop::Load(const std::filesystem::path& path) {
    PegFile file;
    if (!file.Open(path.c_str()) || PegResources::LoadResourceFile(file, 0) != 1) return 0;
    PegResources::InstallResourceSet(*PegResources::GetResourceSet(0), false);
    return 1;
}
