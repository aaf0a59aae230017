#include "tests/trust/visit.h"

#include "navigation/navigation_handler.h"

namespace {

constexpr session::Instant kGlance = 250;
constexpr session::Instant kAllPages = 120'000;  // of a screen that turns its pages by itself
constexpr int kElsewhere = 25;
constexpr int kElsewhereFromThere = 28;

/// Whether a screen asks the meter only when it is entered: for the setting that it changes, or for a seed.
bool IsReadOnce(int screen) {
    return screen == SCREEN_ID_FACTORY_TEST ||
           navigationHandlerClass::getInstance().getScreenKind(screen) == SCREEN_KIND_SETUP_EDIT;
}

}  // namespace

Visit::Visit(Stage& stage, int screen) : m_stage(stage), m_screen(screen) {
    Leave();
    Enter();
    Watch(2 * kTwoRefreshes);
    m_liveliness = Liveliness();
}

int Visit::Elsewhere() const { return m_screen == kElsewhere ? kElsewhereFromThere : kElsewhere; }

std::string Visit::ComplaintAfter(const std::string& what) {
    if (IsReadOnce(m_screen)) Leave();
    if (!IsThere()) Enter();
    std::string wrong;
    if (!IsThere()) wrong += " is not shown";
    if (!IsKnown(m_stage.Picture())) wrong += " looks different";
    if (Liveliness() < m_liveliness - 1) wrong += " does not ask the meter";
    return wrong.empty() ? "" : "; after " + what + ", screen " + std::to_string(m_screen) + wrong;
}

void Visit::Watch(session::Instant duration) {
    for (session::Instant time = 0; time < duration; time += kGlance) {
        m_pictures.insert(m_stage.Picture());
        m_stage.Run(kGlance);
    }
}

bool Visit::IsKnown(const std::string& picture) {
    if (!m_pictures.contains(picture) && !m_isWatchedWhole) {
        m_isWatchedWhole = true;
        Leave();
        Enter();
        Watch(kAllPages);
    }
    return m_pictures.contains(picture);
}

int Visit::Liveliness() {
    const std::uint64_t before = m_stage.Server().CallCount();
    m_stage.Run(kTwoRefreshes);
    return static_cast<int>(m_stage.Server().CallCount() - before);
}
