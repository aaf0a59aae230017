#pragma once

#include <cstdint>
#include <span>
#include <string_view>

/// The pages that the meter composes for its three display modes.
namespace meter {

enum class PageSet : std::uint8_t { Normal, Custom, Test };
inline constexpr std::size_t kPageSetCount = 3;

/// A title and one to six registers.
struct Page {
    std::string_view title;
    std::span<const std::uint16_t> registers;
};

std::span<const Page> PagesOf(PageSet set);

/// Where a display mode stands among its pages.
class PageCursor {
public:
    /// Follows a page command of the display; an unknown one stays. @return the index of the page to show
    std::size_t Follow(std::uint32_t command, std::size_t pageCount);

private:
    std::size_t m_index = 0;
};

}  // namespace meter
