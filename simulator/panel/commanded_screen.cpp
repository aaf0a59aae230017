#include "simulator/panel/commanded_screen.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "navigation/menu_trees.h"

namespace panel {
namespace {

/// A line that leads to one screen.
struct LineRow {
    std::string_view line;
    std::int32_t screen;
};

// clang-format off
constexpr auto kLines = std::to_array<LineRow>({
    {.line = "alt-mode 0",   .screen = kMenuTrees[DISPLAY_MODE_NORMAL].StartScreen()},
    {.line = "alt-mode 1",   .screen = kMenuTrees[DISPLAY_MODE_ALT].StartScreen()},
    {.line = "test-mode 1",  .screen = kMenuTrees[DISPLAY_MODE_TEST].StartScreen()},
    {.line = "display-test", .screen = SCREEN_ID_FACTORY_TEST},
});
// clang-format on

constexpr std::string_view kNavigate = "navigate ";
constexpr std::string_view kKey = "key ";
constexpr std::string_view kTestMode = "test-mode ";

}  // namespace

void CommandedScreen::Command(std::string_view line) {
    if (line.starts_with(kKey) || line.starts_with(kTestMode)) Key();
    if (const auto row = std::ranges::find(kLines, line, &LineRow::line); row != kLines.end()) {
        m_number = row->screen;
        m_certain = true;
        return;
    }
    if (!line.starts_with(kNavigate)) return;
    line.remove_prefix(kNavigate.size());
    std::int32_t number = kCurrentMenu;
    std::from_chars(line.data(), line.data() + line.size(), number);
    m_certain = true;
    m_number = number;
    if (number == kCurrentMenu) Forget();
}

void CommandedScreen::Overhear(std::string_view line) {
    CommandedScreen after = *this;
    after.Command(line);
    if (after.m_number != m_number || !after.m_certain) *this = after;
}

}  // namespace panel
