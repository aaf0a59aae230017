#pragma once

#include <filesystem>
#include <limits>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

/// A value of a JSON source file that knows where it stands, so that a mistake is reported with file and place
/// ("fonts.json: /fonts/3/size: ...").
class JsonSource {
public:
    /// @throws SourceError when the file cannot be read or is no JSON (with the line)
    [[nodiscard]] static JsonSource Read(const std::filesystem::path& path);

    [[nodiscard]] bool Has(const std::string& key) const;
    [[nodiscard]] JsonSource At(const std::string& key) const;
    [[nodiscard]] std::vector<JsonSource> Items() const;

    [[nodiscard]] std::string Text() const;
    /// A whole number that fits the type.
    template <typename T>
    [[nodiscard]] T Number() const {
        return static_cast<T>(NumberUpTo(std::numeric_limits<T>::max()));
    }

    [[noreturn]] void Fail(const std::string& what) const;

private:
    JsonSource(std::shared_ptr<const nlohmann::json> root, const nlohmann::json* value, std::string file,
               std::string place)
        : m_root(std::move(root)), m_value(value), m_file(std::move(file)), m_place(std::move(place)) {}

    [[nodiscard]] std::int64_t NumberUpTo(std::int64_t most) const;

    std::shared_ptr<const nlohmann::json> m_root;  // keeps the whole file
    const nlohmann::json* m_value;
    std::string m_file;
    std::string m_place;
};
