#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

#include "tests/bench/shell.h"

/// A folder for sources and results, and the four programs. What they make is read by the display's own reader.
class Workshop : public ::testing::Test {
protected:
    Workshop();
    ~Workshop() override;

    std::filesystem::path At(const std::string& name) const { return m_folder / name; }
    void Write(const std::string& name, const std::string& content) const;
    std::string Read(const std::string& name) const;

    /// Runs a program of the build, in the folder.
    Outcome Call(const std::string& program, const std::string& arguments) const;
    nlohmann::json Inspect(const std::string& program, const std::string& file) const;

    /// Fills the display's tables from a resource file. @return what the display's reader said: 1 or 0
    static int Load(const std::filesystem::path& file);

private:
    std::filesystem::path m_folder;
};
