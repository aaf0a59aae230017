#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// One picture of the panel.
struct PanelPicture {
    std::string name;                   // of its file, the same in every language: "screen-41", "menu-2-3"
    std::string family;                 // of screens that look alike
    std::string title;                  // as it stands on the panel, UTF-8; empty where there is none
    std::vector<std::uint16_t> pixels;  // RGB565, rows top to bottom
};

/// Walks through everything that the panel can show in a language, with the simulated meter: every screen, what its
/// keys open, menus with their groups open, options, keyboard, dialogs. Pictures that were already there are left out.
/// @param ofTests  the language is one of those of tests
///
/// Once in a process, as the display's singletons are.
[[nodiscard]] std::vector<PanelPicture> TakePictures(std::uint32_t language, bool ofTests);
