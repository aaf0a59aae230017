#include "screens/factory_test/display_test_screen.h"

#include <algorithm>
#include <cstdio>
#include <random>

#include "navigation/geometry.h"
#include "navigation/messages.h"
#include "navigation/meter_access.h"
#include "navigation/navigation_handler.h"
#include "peg/core/screen.h"
#include "peg/core/timer_list.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"

namespace {

constexpr std::uint16_t kVerdictTimer = 2;
constexpr int kVerdictTicks = 5 * kTicksPerSecond;

/// What the meter is told.
constexpr std::uint32_t kPass = 0;
constexpr std::uint32_t kFail = 0xFFFFFFFF;

constexpr std::size_t kHomeKey = 4;
constexpr std::array<PegRect, kHomeKey> kSoftKeyShapes = {
    RectOf(22, 100, 85, 130),
    RectOf(93, 100, 156, 130),
    RectOf(164, 100, 227, 130),
    RectOf(235, 100, 298, 130),
};
struct Circle {
    int x, y, radius;
};
constexpr Circle kHomeKeyShape{160, 170, 15};
constexpr Circle kFace{160, 65, 60};
constexpr Circle kEyes[] = {{130, 45, 6}, {190, 45, 6}};

/// Half an ellipse, from one angle to another.
struct Mouth {
    int y, from, to;
};
constexpr Mouth kFrown{95, 0, 180};
constexpr Mouth kSmile{80, 180, 360};
constexpr int kMouthWidth = 40;
constexpr int kMouthHeight = 15;

constexpr std::uint32_t kNotPressed = 7;
constexpr std::uint32_t kPressNow = 11;
constexpr std::uint32_t kPressed = 2;
constexpr std::uint32_t kOutline = 8;
constexpr std::uint32_t kFaceLine = 0;
constexpr std::uint32_t kFaceColor = 11;
constexpr std::uint16_t kPaper = 0xFFFF;
constexpr int kPenWidth = 3;

PegBrush Filled(std::uint32_t line, std::uint32_t fill) {
    return {PegResources::GetColor(line), PegResources::GetColor(fill), PegBrush::kFill, kPenWidth};
}

void DrawFilled(const Circle& circle, const PegBrush& brush) {
    toolkit.screen->DrawCircle(circle.x, circle.y, circle.radius, brush);
}

/// Seeded by the meter's time of day: nobody knows the order beforehand, and the same time asks in the same order.
std::minstd_rand SeededByTime() {
    DateTimeStrings now{};
    static_cast<void>(meterAccessClass::getInstance().readDateTime(now));
    std::uint32_t sum = 0;
    for (const char character : TextIn(now.time)) sum += static_cast<unsigned char>(character);
    return std::minstd_rand(sum);
}

}  // namespace

FTPS_facDispTestScrn::FTPS_facDispTestScrn() : PegWindow(kWholePanel, 0, kStyleBorderNone) {}

std::int32_t FTPS_facDispTestScrn::Message(const PegMessage& message) {
    switch (message.type) {
        case MSG_SHOW:
            PegWindow::Message(message);
            Start();
            return 0;
        case MSG_HIDE: KillTimer(*this, kVerdictTimer); break;
        case MSG_KEY_UP: OnKeyUp(message.param); return 0;
        case MSG_TIMER:
            if (message.param != kVerdictTimer) break;
            navigationHandlerClass::getInstance().goHome(SCREEN_ID_FACTORY_TEST);
            return 0;
    }
    return PegWindow::Message(message);
}

void FTPS_facDispTestScrn::Start() {
    for (std::size_t key = 0; key < kPanelKeys; ++key) m_order[key] = key;
    std::ranges::shuffle(m_order, SeededByTime());
    m_colors.fill(kNotPressed);
    m_colors[m_order[0]] = kPressNow;
    m_step = 0;
    m_result = Result::Running;
    Invalidate();
}

void FTPS_facDispTestScrn::OnKeyUp(int keyCode) {
    if (m_result != Result::Running || keyCode < KEY_SOFT_1 || keyCode > KEY_HOME) return;
    const auto key = static_cast<std::size_t>(keyCode - KEY_SOFT_1);
    if (key != m_order[m_step]) {
        Judge(Result::Failed);
        return;
    }
    m_colors[key] = kPressed;
    ++m_step;
    if (m_step == kPanelKeys) {
        Judge(Result::Passed);
    } else {
        m_colors[m_order[m_step]] = kPressNow;
    }
    Invalidate();
}

void FTPS_facDispTestScrn::Judge(Result result) {
    m_result = result;
    const bool passed = result == Result::Passed;
    static_cast<void>(DISPLAYMODE_setFactoryTestScreenResult(passed ? kPass : kFail));
    std::printf("%s", passed ? "\nPASS - Main screen turn on.\n" : "\nFAIL - All your base are belong to us.\n");
    SetTimer(*this, kVerdictTimer, kVerdictTicks, 0);
    Invalidate();
}

void FTPS_facDispTestScrn::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    toolkit.screen->Fill(invalid, kPaper);
    DrawKeys();
    if (m_result != Result::Running) DrawFace();
}

void FTPS_facDispTestScrn::DrawKeys() {
    for (std::size_t key = 0; key < kHomeKey; ++key) {
        toolkit.screen->DrawRectangle(kSoftKeyShapes[key], Filled(kOutline, m_colors[key]));
    }
    DrawFilled(kHomeKeyShape, Filled(kOutline, m_colors[kHomeKey]));
}

void FTPS_facDispTestScrn::DrawFace() {
    DrawFilled(kFace, Filled(kFaceLine, kFaceColor));
    for (const Circle& eye : kEyes) DrawFilled(eye, Filled(kFaceLine, kFaceLine));
    const Mouth& mouth = m_result == Result::Passed ? kSmile : kFrown;
    const std::uint16_t line = PegResources::GetColor(kFaceLine);
    toolkit.screen->DrawArc(kFace.x, mouth.y, mouth.from, mouth.to, kMouthWidth, kMouthHeight,
                            PegBrush(line, line, 0, kPenWidth));
}

void CreateFactoryTestScreen() {
    navigationHandlerClass::getInstance().addScreen(SCREEN_ID_FACTORY_TEST, *new FTPS_facDispTestScrn,
                                                    SCREEN_KIND_FACTORY_TEST);
}
