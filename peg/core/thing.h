#pragma once

#include <array>
#include <cstdint>

#include "peg/core/message.h"
#include "peg/core/rect.h"

struct PegArea;

/// Status bits: what a thing is at the moment.
enum PegStatus : std::uint32_t {
    STAT_VISIBLE = 0x1,            // on the screen
    STAT_CURRENT = 0x2,            // on the input-focus path
    STAT_SELECTABLE = 0x4,         // a list may select it
    STAT_NO_CLIENT_CLIP = 0x20,    // drawn over its parent's frame; never its parent's preferred child on focus
    STAT_ACCEPTS_FOCUS = 0x40,     // may take the input focus
    STAT_KEEP_FOCUS_CHILD = 0x80,  // taken at once when its parent picks a child for the focus
    STAT_FOCUS_CHILD = 0x100,      // the child that had the focus last
    STAT_FRONT_ON_FOCUS = 0x1000,  // brought to the front when it or a descendant takes the focus
    STAT_STAY_FRONT = 0x4000,      // stays in front of siblings without the bit
    STAT_VIEWPORT = 0x8000,        // a top-level region owner
    STAT_NO_SHOW = 0x10000,        // in the tree, but not shown
};

/// Style bits that all classes share; the others are per class.
inline constexpr std::uint32_t kStyleDrawnByParent = 0x40000000;  // its parent draws its invalid areas

/// Class numbers.
enum PegType : std::uint16_t {
    TYPE_THING = 1,
    TYPE_TEXT_BUTTON = 11,
    TYPE_ICON_BUTTON = 12,
    TYPE_BITMAP_BUTTON = 13,
    TYPE_PROMPT = 17,
    TYPE_EDIT_FIELD = 22,
    TYPE_GROUP = 25,
    TYPE_BITMAP_PROMPT = 32,
    TYPE_WINDOW = 512,  // this and above are window-like
    TYPE_TEXT_BOX = 516,
    TYPE_LIST = 523,
    TYPE_VERT_LIST = 524,
    TYPE_HORZ_LIST = 525,
    TYPE_COMBO_BOX = 526,
};

/// Everything on the screen, and the invisible objects that only receive messages: one tree below the presentation
/// manager. A thing reaches another through `Message`, directly or by way of the toolkit queue.
///
/// A thing owns its children and deletes them. `Destroy` is the way to delete a thing that may have messages waiting.
/// Toolkit task only.
class PegThing {
public:
    explicit PegThing(std::uint16_t id = 0, std::uint32_t style = 0);
    explicit PegThing(const PegRect& rect, std::uint16_t id = 0, std::uint32_t style = 0);
    PegThing(const PegThing&) = delete;
    PegThing& operator=(const PegThing&) = delete;
    virtual ~PegThing();

    /// Links a child at the front and shows it when this thing is visible; with `draw` false it stays unshown until it
    /// is removed. A child that is here already is brought to the front.
    virtual void AddChild(PegThing& child, bool draw = true);
    virtual void SetStatusBits(std::uint32_t mask) { m_status |= mask; }
    virtual void SetStyleBits(std::uint32_t mask) { m_style |= mask; }
    virtual void AddChildAtEnd(PegThing& child, bool draw = true);
    virtual void CenterChild(PegThing& child);
    virtual PegPoint CenterPointOf(const PegRect& rect) const;
    virtual bool MoveFocusByArrow(int key);
    virtual bool ContainsPoint(PegPoint point) const { return m_clip.Contains(point); }
    virtual std::int32_t HandleKey(const PegMessage& message);
    virtual void Draw(const PegRect& invalid);
    virtual void DrawChildren(const PegRect& invalid);
    virtual PegThing* FindById(std::uint16_t id, bool recursive);
    virtual PegThing* FindNeighbour(int key, PegThing& within, PegPoint fromPoint);
    virtual std::uint32_t GetColor(unsigned index) const;
    virtual std::uint32_t GetStyle() const { return m_style; }
    virtual void LoseFocus(PegThing& thing);
    virtual std::int32_t Message(const PegMessage& message);
    virtual void SetDefaultFocus();
    virtual void MoveToFront(PegThing& child);
    virtual void ParentShift(int dx, int dy);

    /// Unlinks a child, which then belongs to the caller. @return it, or null when it stands nowhere
    virtual PegThing* RemoveChild(PegThing& child);
    virtual void ClearStatusBits(std::uint32_t mask) { m_status &= ~mask; }
    virtual void ClearStyleBits(std::uint32_t mask) { m_style &= ~mask; }
    virtual void Resize(const PegRect& rect);
    virtual void SendSignal(unsigned signal);
    virtual void SetColor(unsigned index, std::uint32_t value);
    virtual void SetStyle(std::uint32_t style) { m_style = style; }

    /// Asks for a part of the screen to be drawn again; nothing while invisible.
    void Invalidate(const PegRect& rect);
    void Invalidate() { Invalidate(m_real); }

    /// Deletes a thing with its descendants, its timers and its waiting messages; itself only after the current
    /// message.
    void Destroy(PegThing& thing);
    void SetCanvas(std::int32_t canvas, bool recursive);

    /// Sends a signal if the thing has an id, the signal is enabled and its parent is visible. @return whether it did
    bool Signal(unsigned signal);
    void EnableSignal(unsigned signal) {
        m_signalMask = static_cast<std::uint16_t>(m_signalMask | SIGNAL_MASK(signal));
    }

    bool HasStatus(std::uint32_t mask) const { return (m_status & mask) != 0; }
    bool HasStyle(std::uint32_t mask) const { return (m_style & mask) != 0; }
    bool IsVisible() const { return HasStatus(STAT_VISIBLE); }
    bool IsAncestor(const PegThing& thing) const;
    bool IsWindowLike() const { return m_type >= TYPE_WINDOW; }
    std::int32_t Canvas() const { return m_canvas; }
    const PegRect& Real() const { return m_real; }
    const PegRect& ClientRect() const { return m_client; }
    const PegRect& Clip() const { return m_clip; }
    PegThing* FirstChild() const { return m_firstChild; }
    PegThing* Next() const { return m_next; }
    PegThing* Previous() const { return m_previous; }
    PegThing* Parent() const { return m_parent; }
    std::uint32_t Status() const { return m_status; }
    std::uint16_t Id() const { return m_id; }
    void SetId(std::uint16_t id) { m_id = id; }
    std::uint16_t Type() const { return m_type; }

protected:
    void SetType(std::uint16_t type) { m_type = type; }
    void SetClient(const PegRect& client) { m_client = client; }
    void PlaceAt(const PegRect& rect) { m_real = m_client = m_clip = rect; }

private:
    friend class PegPresentationManager;  // keeps the viewports of top-level windows

    void Link(PegThing& child, PegThing* before);
    void Unlink(PegThing& child);
    PegThing* FrontPlaceFor(const PegThing& child) const;
    void Show(PegThing& child);
    void UpdateClip();
    void UpdateChildClips();
    void InvalidateOverSiblingsBehind(PegThing& child);
    void PassToChildren(const PegMessage& message);
    std::int32_t PassToParent(const PegMessage& message);
    std::int32_t OnShow(const PegMessage& message);
    std::int32_t OnHide(const PegMessage& message);
    std::int32_t OnFocusIn(const PegMessage& message);
    std::int32_t OnFocusOut(const PegMessage& message);

    std::int32_t m_canvas = -1;  // -1: the parent's
    PegRect m_real;              // outer rectangle, in screen coordinates
    PegRect m_client;            // where children live
    PegRect m_clip;              // the part of real that may be drawn
    std::array<std::uint32_t, 4> m_colors{};
    PegThing* m_firstChild = nullptr;  // front-most
    PegThing* m_next = nullptr;        // further back
    PegThing* m_parent = nullptr;
    PegThing* m_previous = nullptr;  // further front
    PegArea* m_viewports = nullptr;  // the presentation manager's, while this is a top-level region owner
    std::uint32_t m_style = 0;
    std::uint32_t m_status = STAT_SELECTABLE | STAT_ACCEPTS_FOCUS;
    std::uint16_t m_id = 0;
    std::uint16_t m_signalMask = 0;
    std::uint16_t m_type = TYPE_THING;
};

/// Makes a child that its parent owns, links it at the front and returns it.
template <typename Thing, typename... Arguments>
Thing& AddNew(PegThing& parent, Arguments&&... arguments) {
    auto* child = new Thing(static_cast<Arguments&&>(arguments)...);
    parent.AddChild(*child);
    return *child;
}
