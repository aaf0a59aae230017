#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "navigation/menu_trees.h"
#include "peg/widgets/bitmap_prompt.h"

/// An item of a menu, which leads to a screen or opens the sub-items that it knows. Sub-items belong to the menu.
class menuBitmapButtonClass : public PegBitmapPrompt {
public:
    static constexpr std::size_t kMaxSubItems = 20;
    static constexpr std::int32_t kNoTarget = -1;

    /// Looks as an item of the row's level does, and has no target yet.
    explicit menuBitmapButtonClass(const MenuItem& row);

    void setTarget(std::int32_t screenId) { m_target = screenId; }
    std::int32_t getTarget() const { return m_target; }

    /// Ignored for null, and when there is no room.
    void addSubItem(menuBitmapButtonClass* item);
    bool hasSubItems() const { return m_subItemCount > 0; }
    std::span<menuBitmapButtonClass* const> subItems() const { return {m_subItems.data(), m_subItemCount}; }

    /// Shows the row's text in the selected language.
    void relabel() { SetText(Label()); }

private:
    const char16_t* Label() const;

    std::int32_t m_label;
    std::int32_t m_target = kNoTarget;
    std::array<menuBitmapButtonClass*, kMaxSubItems> m_subItems{};
    std::size_t m_subItemCount = 0;
};
