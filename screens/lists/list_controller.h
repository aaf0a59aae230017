#pragma once

#include <cstdint>

enum class ScrollStep { Stay, Up, Down };

/// What part of a list of the meter is on view.
struct ListPage {
    std::uint32_t total = 0;  // entries of the whole list
    bool isAtTop = false;
    bool isAtBottom = false;
    std::uint32_t indicatorMinimum = 0;
    std::uint32_t indicatorMaximum = 0;
    std::uint32_t first = 0;  // index of the first entry on view
};

/// Scrolls through a list of the meter that can be far longer than what a screen shows of it, a page at a time.
///
/// Keeps the scroll position; count and entries come from the meter with every refresh, so that new and lost entries
/// show without a key. A list whose count cannot be read stands at its start and is empty. Toolkit task only.
class ListController {
public:
    explicit ListController(std::uint32_t pageSize) : m_pageSize(pageSize) {}
    ListController(const ListController&) = delete;
    ListController& operator=(const ListController&) = delete;
    virtual ~ListController() = default;

    /// Asks the meter for the length of the list. @return 0, or -1 with `count` as it was
    [[nodiscard]] virtual int GetCount(std::uint32_t& count) = 0;

    /// Asks the meter for `count` entries, at most a page, from index `first` on. @return 0, or -1
    [[nodiscard]] virtual int GetEntries(std::uint32_t first, std::uint32_t count) = 0;

    /// Reads the page on view again, or the one an entry further up or down. @return 0, or -1 when a call failed
    [[nodiscard]] int Refresh(ScrollStep step);

    /// Reads the page that begins at an index, or the last full one before it. @return as Refresh
    [[nodiscard]] int ShowFrom(std::uint32_t index);

    std::uint32_t GetFirst() const { return m_first; }
    std::uint32_t GetTotal() const { return m_total; }
    std::uint32_t PageSize() const { return m_pageSize; }
    bool IsAtTop() const { return m_first == 0; }
    bool IsAtBottom() const { return m_total <= m_pageSize || m_first >= m_total - m_pageSize; }

protected:
    /// Back to the start of a list of which nothing is known.
    void Reset() { m_first = m_total = 0; }
    void MoveFirst(std::uint32_t entries) { m_first += entries; }
    void FillPosition(ListPage& page) const;

private:
    int CountAgain();
    int ReadPage();

    std::uint32_t m_first = 0;
    std::uint32_t m_total = 0;
    const std::uint32_t m_pageSize;
};
