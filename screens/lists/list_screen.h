#pragma once

#include <array>

#include "peg/widgets/bitmap_prompt.h"
#include "peg/widgets/vert_list.h"
#include "screens/base/data_screen.h"
#include "screens/lists/list_controller.h"
#include "screens/lists/scroll_indicator.h"

/// A screen that shows four entries of a long list of the meter: soft keys 2 and 3 move the selection and, at its ends,
/// the list; soft key 4 opens the selected entry.
///
/// A derived screen reads its page, fills its rows and then calls `ShowPosition`. Toolkit task only; lives as long as
/// the process.
class ListScreen : public DSBC_dataScrnBaseClass {
public:
    static constexpr std::uint32_t kRows = 4;

    /// Where list and scroll indicator stand, and how far below the list's top its rows begin.
    struct Places {
        PegRect list;
        PegRect indicator;
        int rowsDrop;
    };
    struct RowLook {
        std::uint32_t background;  // bitmap numbers
        std::uint32_t selectedBackground;
        int width;
    };

    void SoftKey2Action() override;
    void SoftKey3Action() override;
    void SoftKey4Action() override;

protected:
    ListScreen(std::int32_t screenId, const Places& places, const std::array<RowLook, kRows>& looks);

    virtual const ListPage& Page() const = 0;

    /// Reads the page an entry further up or down and shows it.
    virtual void Scroll(ScrollStep step) = 0;

    /// Hands the entry of a row to the detail screen.
    virtual void PrepareDetail(std::uint32_t row) = 0;
    virtual bool HasDetailScreen() const = 0;

    /// Brings scroll indicator, selection and soft keys in line with the page.
    void ShowPosition();

    PegBitmapPrompt& Row(std::size_t row) const { return *m_rows[row]; }
    std::uint32_t SelectedRow() const;
    void SelectRow(std::uint32_t row);

private:
    PegVertList& m_list;
    ScrollIndicator& m_indicator;
    std::array<PegBitmapPrompt*, kRows> m_rows{};
};
