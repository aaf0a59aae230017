#include "tests/walk/shrinker.h"

#include <algorithm>

namespace {

constexpr std::size_t kShortestEnd = 8;
constexpr std::size_t kEndGrowth = 4;

class Shrinker {
public:
    Shrinker(std::vector<Stroke> strokes, const ShowsFault& showsFault, int mostRuns)
        : m_strokes(std::move(strokes)), m_showsFault(showsFault), m_runsLeft(mostRuns) {}

    std::vector<Stroke> Run() {
        KeepOnlyTheEnd();
        while (LeaveOutParts() && m_runsLeft > 0) continue;
        DropWaits();
        return std::move(m_strokes);
    }

private:
    /// A display forgets most of what happened to it: a fault seldom needs more than the last strokes.
    void KeepOnlyTheEnd() {
        for (std::size_t length = kShortestEnd; length < m_strokes.size(); length *= kEndGrowth) {
            if (Keep({m_strokes.end() - static_cast<std::ptrdiff_t>(length), m_strokes.end()})) return;
        }
    }

    /// Leaves out halves, quarters and so on, down to single strokes. @return whether a single one could go
    bool LeaveOutParts() {
        bool leftOut = false;
        for (std::size_t size = std::max<std::size_t>(m_strokes.size() / 2, 1); size >= 1; size /= 2) {
            for (std::size_t at = 0; at < m_strokes.size();) {
                if (KeepWithout(at, std::min(size, m_strokes.size() - at))) {
                    leftOut = true;
                } else {
                    at += size;
                }
            }
        }
        return leftOut;
    }
    void DropWaits() {
        for (std::size_t at = 0; at < m_strokes.size(); ++at) {
            for (std::uint16_t Stroke::*const wait : {&Stroke::held, &Stroke::then}) {
                std::vector<Stroke> quicker = m_strokes;
                quicker[at].*wait = 0;
                if (m_strokes[at].*wait != 0) Keep(std::move(quicker));
            }
        }
    }
    bool KeepWithout(std::size_t at, std::size_t count) {
        std::vector<Stroke> rest(m_strokes.begin(), m_strokes.begin() + static_cast<std::ptrdiff_t>(at));
        rest.insert(rest.end(), m_strokes.begin() + static_cast<std::ptrdiff_t>(at + count), m_strokes.end());
        return Keep(std::move(rest));
    }
    bool Keep(std::vector<Stroke> candidate) {
        if (m_runsLeft-- <= 0 || !m_showsFault(candidate)) return false;
        m_strokes = std::move(candidate);
        return true;
    }

    std::vector<Stroke> m_strokes;
    const ShowsFault& m_showsFault;
    int m_runsLeft;
};

}  // namespace

std::vector<Stroke> Shrink(std::vector<Stroke> strokes, const ShowsFault& showsFault, int mostRuns) {
    return Shrinker(std::move(strokes), showsFault, mostRuns).Run();
}
