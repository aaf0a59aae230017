#include "tools/formats/json_source.h"

#include <algorithm>

#include "tools/formats/file_bytes.h"
#include "tools/formats/source_error.h"

JsonSource JsonSource::Read(const std::filesystem::path& path) {
    const std::string text = ReadTextFile(path);
    try {
        auto root = std::make_shared<const nlohmann::json>(nlohmann::json::parse(text));
        const nlohmann::json* value = root.get();
        return {std::move(root), value, path.string(), ""};
    } catch (const nlohmann::json::parse_error& error) {
        const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(error.byte, text.size()));
        const auto line = std::count(text.begin(), end, '\n') + 1;
        throw SourceError(path.string(), static_cast<int>(line), "this is no JSON");
    }
}

bool JsonSource::Has(const std::string& key) const { return m_value->is_object() && m_value->contains(key); }

JsonSource JsonSource::At(const std::string& key) const {
    if (!Has(key)) Fail("\"" + key + "\" is missing");
    return {m_root, &m_value->at(key), m_file, m_place + "/" + key};
}

std::vector<JsonSource> JsonSource::Items() const {
    if (!m_value->is_array()) Fail("a list was expected");
    std::vector<JsonSource> items;
    for (std::size_t i = 0; i < m_value->size(); ++i) {
        items.push_back({m_root, &m_value->at(i), m_file, m_place + "/" + std::to_string(i)});
    }
    return items;
}

std::string JsonSource::Text() const {
    if (!m_value->is_string()) Fail("a text was expected");
    return m_value->get<std::string>();
}

std::int64_t JsonSource::NumberUpTo(std::int64_t most) const {
    if (!m_value->is_number_integer()) Fail("a whole number was expected");
    const auto number = m_value->get<std::int64_t>();
    if (number < 0 || number > most) Fail("a number from 0 to " + std::to_string(most) + " was expected");
    return number;
}

void JsonSource::Fail(const std::string& what) const {
    throw SourceError(m_file, (m_place.empty() ? "" : m_place + ": ") + what);
}
