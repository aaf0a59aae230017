#include <algorithm>

#include "peg/core/presentation_manager.h"
#include "peg/core/screen.h"
#include "peg/core/toolkit.h"

// What is to be drawn, and where: invalid areas and viewports.

namespace {

/// What is left of a rectangle beside another that covers it along one full edge; the rectangle itself otherwise.
PegRect WithoutCoveredEdge(PegRect rect, const PegRect& cover) {
    const bool acrossWidth = cover.left <= rect.left && rect.right <= cover.right;
    const bool acrossHeight = cover.top <= rect.top && rect.bottom <= cover.bottom;
    if (!rect.Overlaps(cover)) return rect;
    if (acrossWidth && cover.top <= rect.top) {
        rect.top = static_cast<std::int16_t>(cover.bottom + 1);
    } else if (acrossWidth && rect.bottom <= cover.bottom) {
        rect.bottom = static_cast<std::int16_t>(cover.top - 1);
    } else if (acrossHeight && cover.left <= rect.left) {
        rect.left = static_cast<std::int16_t>(cover.right + 1);
    } else if (acrossHeight && rect.right <= cover.right) {
        rect.right = static_cast<std::int16_t>(cover.left - 1);
    }
    return rect;
}

}  // namespace

/// Paints the panel only where windows leave it open.
void PegPresentationManager::Draw(const PegRect& invalid) {
    for (PegThing* window = FirstChild(); window != nullptr; window = window->Next()) {
        const bool covers = window->HasStatus(STAT_VIEWPORT) && window->IsVisible();
        if (!covers || !window->Clip().Contains(invalid)) continue;
        DrawingPass pass(*this, invalid);
        DrawChildren(invalid);
        return;
    }
    PegWindow::Draw(invalid);
}

void PegPresentationManager::GrowPool() {
    m_pool.push_back(std::make_unique<std::array<PegArea, kPoolGrowth>>());
    for (PegArea& area : *m_pool.back()) {
        area.next = m_freeAreas;
        m_freeAreas = &area;
    }
}

PegArea& PegPresentationManager::NewArea(PegThing& thing, const PegRect& rect) {
    if (m_freeAreas == nullptr) GrowPool();
    PegArea& area = *m_freeAreas;
    m_freeAreas = area.next;
    area = {&thing, rect, nullptr};
    return area;
}

/// Takes a whole chain back into the pool.
void PegPresentationManager::GiveBack(PegArea*& chain) {
    while (chain != nullptr) {
        PegArea* area = chain;
        chain = area->next;
        area->next = m_freeAreas;
        m_freeAreas = area;
    }
}

void PegPresentationManager::InvalidateArea(PegThing& thing, const PegRect& rect) {
    if (!thing.IsVisible()) return;
    if (m_drawing != nullptr && (&thing == m_drawing || thing.IsAncestor(*m_drawing))) return;
    PegArea& area = NewArea(thing, rect);
    (m_firstInvalid != nullptr ? m_lastInvalid->next : m_firstInvalid) = &area;
    m_lastInvalid = &area;
}

void PegPresentationManager::DrawInvalid() {
    if (m_firstInvalid == nullptr) {
        // A picture that did not arrive must not leave the one before it on the panel until something changes.
        if (toolkit.screen->IsBehind()) toolkit.screen->FlushToDevice();
        return;
    }
    if (m_viewportsPending) RebuildViewports();
    ReduceInvalid();
    PegArea* const lastOfPass = m_lastInvalid;
    {
        DrawingPass frame(*this, Real());
        for (const PegArea* area = m_firstInvalid;; area = area->next) {
            if (area->thing != nullptr) DrawArea(*area);
            if (area == lastOfPass) break;
        }
    }
    m_drawing = nullptr;
    // What was invalidated meanwhile waits for the next pass.
    PegArea* drawn = m_firstInvalid;
    m_firstInvalid = lastOfPass->next;
    lastOfPass->next = nullptr;
    GiveBack(drawn);
}

void PegPresentationManager::DrawArea(const PegArea& area) {
    const PegRect rect = Intersection(area.rect, area.thing->Clip());
    if (rect.IsEmpty() || !area.thing->IsVisible()) return;
    PegThing* thing = area.thing;
    while (thing->HasStyle(kStyleDrawnByParent) && thing->Parent() != nullptr) thing = thing->Parent();
    m_drawing = thing;
    thing->Draw(rect);
}

void PegPresentationManager::ReduceInvalid() {
    for (PegArea* area = m_firstInvalid; area != nullptr; area = area->next) {
        if (area->thing == nullptr) continue;
        if (area->thing->IsVisible()) area->rect.IntersectWith(area->thing->Clip());
        if (!area->thing->IsVisible() || area->rect.IsEmpty()) area->thing = nullptr;
    }
    for (PegArea* area = m_firstInvalid; area != nullptr; area = area->next) {
        if (area->thing != nullptr && MergeIntoLater(*area)) area->thing = nullptr;
    }
    for (PegArea* area = m_firstInvalid; area != nullptr; area = area->next) {
        if (area->thing != nullptr && IsDrawnByAncestor(*area)) area->thing = nullptr;
    }
}

bool PegPresentationManager::MergeIntoLater(PegArea& area) {
    for (PegArea* later = area.next; later != nullptr; later = later->next) {
        if (later->thing != area.thing || !later->rect.Overlaps(area.rect)) continue;
        later->rect.UniteWith(area.rect);
        return true;
    }
    return false;
}

/// Cuts off what an ancestor draws anyway; true when nothing is left.
bool PegPresentationManager::IsDrawnByAncestor(PegArea& area) {
    for (const PegArea* other = m_firstInvalid; other != nullptr; other = other->next) {
        if (other->thing == nullptr || !area.thing->IsAncestor(*other->thing)) continue;
        if (other->thing->Canvas() != area.thing->Canvas()) continue;
        area.rect = WithoutCoveredEdge(area.rect, other->rect);
        if (area.rect.IsEmpty()) return true;
    }
    return false;
}

bool PegPresentationManager::FindViewports(const PegThing& thing, const PegArea*& viewports) const {
    const PegThing* window = &thing;
    while (window->Parent() != nullptr && window->Parent() != this) window = window->Parent();
    if (window->Parent() != this || !window->HasStatus(STAT_VIEWPORT)) return false;
    viewports = window->m_viewports;
    return true;
}

void PegPresentationManager::RebuildViewports() {
    m_viewportsPending = false;
    for (PegThing* window = FirstChild(); window != nullptr; window = window->Next()) {
        GiveBack(window->m_viewports);
        if (window->HasStatus(STAT_VIEWPORT) && window->IsVisible())
            AddViewports(*window, window->Clip(), FirstChild());
    }
}

/// Gives `window` the parts of `rect` that no window from `covering` up to itself covers. Each covering window cuts the
/// rectangle into at most four, above, below, left and right of it, and those go on to the next window.
void PegPresentationManager::AddViewports(PegThing& window, const PegRect& rect, const PegThing* covering) {
    if (rect.IsEmpty()) return;
    while (covering != &window &&
           !(covering->HasStatus(STAT_VIEWPORT) && covering->IsVisible() && covering->Clip().Overlaps(rect))) {
        covering = covering->Next();
    }
    if (covering == &window) {
        PegArea& viewport = NewArea(window, rect);
        viewport.next = window.m_viewports;
        window.m_viewports = &viewport;
        return;
    }
    const PegRect cover = Intersection(covering->Clip(), rect);
    AddViewports(window, RectOf(rect.left, rect.top, rect.right, cover.top - 1), covering->Next());
    AddViewports(window, RectOf(rect.left, cover.bottom + 1, rect.right, rect.bottom), covering->Next());
    AddViewports(window, RectOf(rect.left, cover.top, cover.left - 1, cover.bottom), covering->Next());
    AddViewports(window, RectOf(cover.right + 1, cover.top, rect.right, cover.bottom), covering->Next());
}
