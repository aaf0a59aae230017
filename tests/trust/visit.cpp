#include "tests/trust/visit.h"

#include "navigation/navigation_handler.h"

namespace {

constexpr session::Instant kGlance = 250;
constexpr session::Instant kAllPages = 120'000;  // of a screen that turns its pages by itself
constexpr int kElsewhere = 25;
constexpr int kElsewhereFromThere = 28;

}  // namespace

void GoTo(Stage& stage, int screen) {
    if (screen == SCREEN_ID_FACTORY_TEST) {
        navigationHandlerClass::postDispTest();
    } else {
        navigationHandlerClass::postNavigateTo(static_cast<std::uint32_t>(screen));
    }
    stage.Run(kTwoRefreshes);
}

Visit::Visit(Stage& stage, int screen) : m_stage(stage), m_screen(screen) {
    Leave();
    GoTo(m_stage, m_screen);
    Watch(2 * kTwoRefreshes);
    m_liveliness = Liveliness();
}

int Visit::Elsewhere() const { return m_screen == kElsewhere ? kElsewhereFromThere : kElsewhere; }

std::string Visit::Complaint() {
    if (IsReadOnce()) Leave();
    if (!IsThere()) GoTo(m_stage, m_screen);
    std::string wrong;
    if (!IsThere()) wrong += " is not shown";
    if (!IsKnown(m_stage.Picture())) wrong += " looks different";
    if (Liveliness() < m_liveliness - 1) wrong += " does not ask the meter";
    return wrong;
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
        GoTo(m_stage, m_screen);
        Watch(kAllPages);
    }
    return m_pictures.contains(picture);
}

bool Visit::IsReadOnce() const {
    return m_screen == SCREEN_ID_FACTORY_TEST ||
           navigationHandlerClass::getInstance().getScreenKind(m_screen) == SCREEN_KIND_SETUP_EDIT;
}

int Visit::Liveliness() {
    const std::uint64_t before = m_stage.Server().CallCount();
    m_stage.Run(kTwoRefreshes);
    return static_cast<int>(m_stage.Server().CallCount() - before);
}
