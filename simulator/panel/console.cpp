#include "simulator/panel/console.h"

#include <algorithm>
#include <cstdio>
#include <nlohmann/json.hpp>

namespace panel {
namespace {

constexpr int kRefusalsASecond = 10;
constexpr std::size_t kLongestLine = 500;
constexpr std::size_t kLongestQuotation = 80;

}  // namespace

void Console::Show(std::string_view source, std::string_view text) {
    using std::chrono::milliseconds;
    const auto now = std::chrono::duration_cast<milliseconds>(std::chrono::system_clock::now().time_since_epoch());
    const nlohmann::json line = {
        {"source", source}, {"time", now.count()}, {"text", std::string(text.substr(0, kLongestLine))}};
    m_lines.Append(line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

void Console::Refuse(std::string_view text) {
    if (const auto now = Clock::now(); now - m_second >= std::chrono::seconds(1)) {
        if (m_refusals > kRefusalsASecond)
            Say("refused " + std::to_string(m_refusals - kRefusalsASecond) + " more like that");
        m_second = now;
        m_refusals = 0;
    }
    if (++m_refusals <= kRefusalsASecond) Say("refused " + std::string(text));
}

void Console::Say(const std::string& text) {
    std::printf("panel-emulator: %s\n", text.c_str());
    Show("board", text);
}

std::string Quoted(std::string_view text) {
    std::string quoted(text.substr(0, kLongestQuotation));
    std::ranges::replace_if(
        quoted, [](unsigned char sign) { return sign < ' ' || sign > '~'; }, '?');
    return '"' + quoted + (text.size() > kLongestQuotation ? "...\"" : "\"");
}

}  // namespace panel
