#pragma once

#include <array>
#include <deque>
#include <string_view>

#include "navigation/widgets/composed_text.h"
#include "navigation/widgets/setup_vertical_list.h"
#include "peg/core/holder.h"
#include "setup/view/setup_page_tables.h"
#include "setup/view/setup_view_screen.h"

/// Shows a long list of settings, five at a time; soft keys 2 and 3 scroll it by one, soft key 4 changes them.
///
/// Which alarms there are is asked once a second; without an answer the list is blank. Of the list of yes/no settings
/// each register is read; the resets are always the same. A list keeps its place while its length stays the same.
class setupView3ScrnClass : public SVBC_setupViewBaseClass {
public:
    setupView3ScrnClass(const SetupViewRow& row, const SetupListRow& content);

    void SoftKey2Action() override;
    void SoftKey3Action() override;

protected:
    std::int32_t EditTarget() const override { return m_content.editScreen; }
    void refreshValues() override;
    void Relabel() override;

private:
    /// What an item shows: a text and two icons, 0 for none.
    struct ItemLook {
        ComposedText<64> text;
        std::uint32_t leftIcon = 0;
        std::uint32_t rightIcon = 0;

        friend bool operator==(const ItemLook&, const ItemLook&) = default;
    };

    struct Item {
        PegHolder<SetupListItem> thing{SetupItemLook::Plain, 0U, 0U, 0U};
        ItemLook look;
    };

    enum class Direction { Up, Down };

    // Each notes the looks of the items. @return how many settings there are
    std::size_t ReadAlarms();
    std::size_t ReadResets();
    std::size_t ReadYesNoSettings();

    /// The text is cut where it would run into the right icon.
    void Note(std::size_t index, std::u16string_view text, std::uint32_t leftIcon, std::uint32_t rightIcon);
    void ShowItems(std::size_t length);
    void ShowItem(Item& item);
    void SetLength(std::size_t length);
    void EnableScrolling();
    int TextRoom() const;
    bool CanScroll() const;

    const SetupListRow& m_content;
    setupVerticalList& m_list;
    std::deque<Item> m_items;
    int m_textLeft;                         // of an item without a left icon
    bool m_looksChanged = true;             // since the items were last shown
    std::size_t m_settings = 0;             // that the list shows; the items behind them are blank
    std::size_t m_length = 0;               // items in the list
    Direction m_direction = Direction::Up;  // the selected item is at this edge of what is visible
};

/// Creates the list pages and registers them with the navigation handler.
void CreateSetupView3Screens();
