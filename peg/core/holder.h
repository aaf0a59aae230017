#pragma once

#include <memory>
#include <utility>

#include "peg/core/thing.h"

/// A thing that comes and goes: a pop-up, a key that is shown in one mode only. It belongs to the tree while it has a
/// parent, and to this holder while it has none.
template <typename Thing>
class PegHolder {
public:
    template <typename... Arguments>
    explicit PegHolder(Arguments&&... arguments) : m_thing(new Thing(std::forward<Arguments>(arguments)...)) {}
    explicit PegHolder(std::unique_ptr<Thing> thing) : m_thing(thing.release()) {}
    PegHolder(const PegHolder&) = delete;
    PegHolder& operator=(const PegHolder&) = delete;
    ~PegHolder() {
        if (m_thing->Parent() == nullptr) delete m_thing;
    }

    Thing& operator*() const { return *m_thing; }
    Thing* operator->() const { return m_thing; }

    void AddTo(PegThing& parent) {
        if (m_thing->Parent() != &parent) parent.AddChild(*m_thing);
    }
    void TakeOff() {
        if (m_thing->Parent() != nullptr) m_thing->Parent()->RemoveChild(*m_thing);
    }

private:
    Thing* m_thing;
};
