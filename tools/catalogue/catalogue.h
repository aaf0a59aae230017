#pragma once

#include <cstddef>
#include <filesystem>
#include <vector>

#include "tools/catalogue/po_file.h"
#include "tools/formats/string_table.h"

/// The panel's texts in all their languages, by string number. The first file is the base language: its texts are what
/// the screens look up, and both files of the panel are made from them.
class Catalogue {
public:
    /// @throws SourceError when a file is broken, a translation has a number that the base language lacks or belongs to
    ///         another base text, or there are more texts than the panel can look up
    explicit Catalogue(const std::vector<std::filesystem::path>& files);

    /// One more than the largest number in use.
    [[nodiscard]] std::size_t Size() const;
    [[nodiscard]] bool Holds(std::uint32_t number) const { return m_files.front().messages.contains(number); }

    /// All languages, numbers from `first` up.
    [[nodiscard]] StringTable Table(const std::string& name, std::uint32_t first = 0) const;

private:
    void CheckAgainstBase(const PoFile& file) const;

    std::vector<PoFile> m_files;
};
