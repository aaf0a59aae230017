#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "setup/base/setup_lists.h"

/// One item of a list of settings that are on or off, as the meter holds it and as the person left it.
struct Switch {
    std::uint32_t registerId = 0;
    std::uint32_t mark = kCheckMark;  // bitmap number, shown while it is on
    std::uint32_t labelNumber = 0;    // 0: the meter gives the label
    std::array<char, 64> name{};      // the meter's, in the base language
    std::array<char16_t, 64> label{};
    bool wasOn = false;
    bool isOn = false;

    bool HasChanged() const { return isOn != wasOn; }
};

/// The items of a list of settings. What the meter does not answer for is not among them. Toolkit task only.
class SwitchList {
public:
    explicit SwitchList(SetupList list);

    /// Reads items and states from the meter, and labels them in the selected language; blocks until all calls are
    /// answered or given up.
    void Read();

    bool HasChanged() const;
    std::span<Switch> Items() { return {m_items.data(), m_count}; }
    std::span<const Switch> Items() const { return {m_items.data(), m_count}; }
    std::size_t Capacity() const { return m_items.size(); }

    /// What is written to an item's register to bring it into its state.
    const char* TextFor(const Switch& item) const;

private:
    void ReadAlarms();
    void ReadResets();
    void ReadYesNo();
    void Label();

    SetupList m_list;
    std::vector<Switch> m_items;  // as many as the list ever has
    std::size_t m_count = 0;
};
