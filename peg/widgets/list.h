#pragma once

#include "peg/core/window.h"

/// A list of items, its children, of which one is selected. The selected item is highlighted and, while the list is on
/// the focus path, has the focus.
class PegList : public PegWindow {
public:
    explicit PegList(const PegRect& rect, std::uint16_t id = 0, std::uint32_t style = 0);

    void AddChild(PegThing& item, bool draw = true) override;
    void AddChildAtEnd(PegThing& item, bool draw = true) override;
    PegThing* RemoveChild(PegThing& item) override;
    void Resize(const PegRect& rect) override;
    std::int32_t Message(const PegMessage& message) override;

    /// Lays the items out again, from the start of the list less what it is scrolled by.
    virtual void PositionChildren() = 0;

    /// Selects an item of the list; null clears the selection.
    virtual void SetSelected(PegThing* item);

    /// Scrolls so that the selected item can be seen.
    virtual void ScrollToSelected() = 0;

    /// Links an item right behind another; at the end when that is null.
    void InsertBehind(PegThing& item, PegThing* before);

    PegThing* Selected() const { return m_selected; }
    int SelectedIndex() const { return m_selected != nullptr ? IndexOf(*m_selected) : -1; }
    void SelectIndex(int index) { SetSelected(ItemAt(index)); }
    bool SelectPrevious() { return SelectNeighbour(&PegThing::Previous, LastItem()); }
    bool SelectNext() { return SelectNeighbour(&PegThing::Next, FirstItem()); }
    int Count() const;
    int IndexOf(const PegThing& item) const;
    PegThing* ItemAt(int index) const;

    /// Pixels between one item and the next.
    void SetSpacing(int pixels);
    int Spacing() const { return m_spacing; }

    /// How far the items are scrolled out at the start of the list, in pixels.
    int Scroll() const { return m_scroll; }
    void SetScroll(int pixels);

protected:
    static bool IsItem(const PegThing& child) { return !child.HasStatus(STAT_NO_CLIENT_CLIP); }
    static bool CanBeSelected(const PegThing& child) { return IsItem(child) && child.HasStatus(STAT_SELECTABLE); }

    /// What kind of keys move the selection: up and down, or left and right.
    virtual int PreviousKey() const = 0;
    virtual int NextKey() const = 0;

    /// Makes a child an item of this list: it tells when it is chosen.
    void Enlist(PegThing& child);

private:
    using Step = PegThing* (PegThing::*)() const;

    PegThing* FirstItem() const { return FirstChild(); }
    PegThing* LastItem() const;
    bool SelectNeighbour(Step step, PegThing* fromOtherEnd);
    static PegThing* Selectable(PegThing* from, Step step);
    bool HandleListKey(int key);
    void MarkSelected();

    PegThing* m_selected = nullptr;
    int m_spacing = 0;
    int m_scroll = 0;
};
