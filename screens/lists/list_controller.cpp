#include "screens/lists/list_controller.h"

#include <algorithm>

int ListController::Refresh(ScrollStep step) {
    if (const int status = CountAgain(); status != 0 || m_total == 0) return status;
    if (m_total > m_pageSize) {
        const std::uint32_t last = m_total - m_pageSize;
        if (m_first > last) {
            m_first = last;  // the list has become shorter: the page stays full
        } else if (step == ScrollStep::Down && m_first < last) {
            ++m_first;
        } else if (step == ScrollStep::Up && m_first > 0) {
            --m_first;
        }
    }
    return ReadPage();
}

int ListController::ShowFrom(std::uint32_t index) {
    if (const int status = CountAgain(); status != 0 || m_total == 0) return status;
    if (m_total > m_pageSize) m_first = std::min(index, m_total - m_pageSize);
    return ReadPage();
}

int ListController::CountAgain() {
    std::uint32_t count = 0;
    const int status = GetCount(count);
    m_total = status == 0 ? count : 0;
    if (m_total == 0) m_first = 0;
    return status;
}

int ListController::ReadPage() {
    if (m_total <= m_pageSize) m_first = 0;
    return GetEntries(m_first, std::min(m_total, m_pageSize));
}

void ListController::FillPosition(ListPage& page) const {
    page.total = m_total;
    page.isAtTop = IsAtTop();
    page.isAtBottom = IsAtBottom();
    page.indicatorMinimum = 0;
    page.indicatorMaximum = m_total - 1;
    page.first = m_first;
}
