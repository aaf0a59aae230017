#pragma once

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "peg/resources/resources.h"
#include "simulator/own_folder.h"
#include "tests/bench/shell.h"

/// A folder for sources and results, and the programs of the build. What they make is read by the display's own reader.
class Workshop : public ::testing::Test {
protected:
    Workshop() {
        unsetenv("BOARD_ROOT");
        // The programs' libraries keep memory to the end; a sanitizer would call that a leak. What it finds besides has
        // a status of its own.
        setenv("ASAN_OPTIONS", "detect_leaks=0:exitcode=99", 1);
        setenv("UBSAN_OPTIONS", "exitcode=99", 1);
        PegResources::Reset();
    }

    std::filesystem::path At(const std::string& name) const { return m_folder / name; }
    void Write(const std::string& name, const std::string& content) const {
        std::filesystem::create_directories(At(name).parent_path());
        std::ofstream(At(name), std::ios::binary) << content;
    }
    std::string Read(const std::string& name) const { return ContentOf(At(name)); }

    /// Runs a program of the build, in the folder.
    Outcome Call(const std::string& program, const std::string& arguments) const {
        return Shell("cd '" + m_folder.Path().string() + "' && '" BIN_DIR "/" + program + "' " + arguments);
    }
    nlohmann::json Inspect(const std::string& program, const std::string& file) const {
        return nlohmann::json::parse(Call(program, "--json '" + file + "'").output);
    }

    /// Fills the display's tables from a resource file. @return what the display's reader said: 1 or 0
    static int Load(const std::filesystem::path& path) {
        PegFile file;
        if (!file.Open(path.c_str()) || PegResources::LoadResourceFile(file, 0) != 1) return 0;
        PegResources::InstallResourceSet(*PegResources::GetResourceSet(0), false);
        return 1;
    }

    /// A catalogue of texts, and one text of it.
    static std::string PoFile(const std::string& language, const std::string& entries) {
        return "msgid \"\"\nmsgstr \"\"\n\"Language: " + language +
               "\\n\"\n\"Content-Type: text/plain; charset=UTF-8\\n\"\n" + entries;
    }
    static std::string Entry(int number, const std::string& english, const std::string& text,
                             const std::string& comments = "") {
        return "\n" + comments + "msgctxt \"" + std::to_string(number) + "\"\nmsgid \"" + english + "\"\nmsgstr \"" +
               text + "\"\n";
    }

private:
    const OwnFolder m_folder{"workshop"};
};
