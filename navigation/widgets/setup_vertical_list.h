#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "peg/core/window.h"
#include "peg/widgets/bitmap_prompt.h"
#include "peg/widgets/prompt.h"
#include "peg/widgets/vert_list.h"

/// How a list of settings is laid out.
struct SetupListLayout {
    int visibleItems;                           // as many as fit are shown
    int firstColumnWidth;                       // 0: the first column has no title
    std::array<std::uint32_t, 3> columnTitles;  // string numbers; 0: none
};

/// Whether the selected item stands out.
enum class SetupItemLook { Plain, ShowSelected };

/// An item of a list of settings: an icon, a text, and another icon for its state.
class SetupListItem : public PegBitmapPrompt {
public:
    /// @param label  string number; icons: bitmap numbers, 0 for none
    SetupListItem(SetupItemLook look, std::uint32_t label, std::uint32_t leftIcon, std::uint32_t rightIcon);

    /// Shows the label in the selected language.
    void relabel();

private:
    std::uint32_t m_label;
};

/// A list of settings between title band and soft keys, under a strip with the titles of its columns.
class setupVerticalList : public PegWindow {
public:
    setupVerticalList(const SetupListLayout& layout, SetupItemLook look);

    /// Appends an item.
    SetupListItem& addItem(std::uint32_t label, std::uint32_t leftIcon, std::uint32_t rightIcon);

    /// An item of this list's look that is not in it; `Items().AddChildAtEnd` appends it.
    std::unique_ptr<SetupListItem> makeItem(std::uint32_t label, std::uint32_t leftIcon, std::uint32_t rightIcon) const;

    void select(int index) { m_items.SelectIndex(index); }
    int selectedIndex() const { return m_items.SelectedIndex(); }

    /// Items that can be seen when they are scrolled to.
    int visibleCount() const { return m_items.Count(); }

    /// Pass over what cannot be selected. @return whether the selection moved
    bool selectPrevious() { return m_items.SelectPrevious(); }
    bool selectNext() { return m_items.SelectNext(); }

    /// Null for an index that no item has.
    SetupListItem* item(int index) const { return static_cast<SetupListItem*>(m_items.ItemAt(index)); }

    PegVertList& Items() { return m_items; }

    /// Shows the column titles in the selected language.
    void relabel();

private:
    static PegRect PlaceFor(const SetupListLayout& layout);
    PegPrompt& AddTitle(int left, int right, std::uint32_t font, std::uint32_t alignment);

    SetupItemLook m_look;
    std::array<std::uint32_t, 3> m_titleNumbers;
    PegBitmapPrompt& m_strip;  // holds the titles
    std::array<PegPrompt*, 3> m_titles;
    PegVertList& m_items;
};
