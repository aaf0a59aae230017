#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

/// What kind of thing a number in the display's sources stands for.
enum class AssetKind { String, Font, Colour, Bitmap };

/// Which numbers and texts the sources of the display name.
///
/// Names tell what a number is: a field `.label = 102` or a constant `kTitleText = 102` names a string, `kTitleFont` a
/// font, `.accent` and `kFrameColor` a colour, `.icon` and `kBackdrop` a bitmap; so does the function that it is handed
/// to. A number that stands alone, as in a row of a table, may be anything.
class SourceNumbers {
public:
    /// Reads all headers and sources below the folders; comments do not count.
    /// @throws SourceError
    explicit SourceNumbers(const std::vector<std::filesystem::path>& folders);

    [[nodiscard]] bool Holds(std::uint32_t number) const { return m_numbers.contains(number); }
    [[nodiscard]] bool Quotes(const std::string& text) const { return m_texts.contains(text); }

    /// Numbers that are certainly of that kind, each with a file that names it.
    [[nodiscard]] const std::map<std::uint32_t, std::string>& Named(AssetKind kind) const { return m_named.at(kind); }

private:
    void Read(const std::filesystem::path& path);

    std::set<std::uint32_t> m_numbers;
    std::set<std::string> m_texts;
    std::map<AssetKind, std::map<std::uint32_t, std::string>> m_named;
};
