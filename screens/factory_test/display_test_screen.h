#pragma once

#include <array>
#include <cstdint>

#include "peg/core/window.h"

inline constexpr std::size_t kPanelKeys = 5;

/// The factory's test of the front panel: asks for the five keys one at a time, in an order that nobody knows
/// beforehand, and tells by a face whether they came in that order. The meter hears the verdict; five seconds later the
/// display goes home.
///
/// Only releases of keys count. Each show is a new test. Toolkit task only; lives as long as the process.
class FTPS_facDispTestScrn : public PegWindow {
public:
    FTPS_facDispTestScrn();

    void Draw(const PegRect& invalid) override;
    std::int32_t Message(const PegMessage& message) override;

private:
    enum class Result { Running, Failed, Passed };

    void Start();
    void OnKeyUp(int keyCode);
    void Judge(Result result);
    void DrawKeys();
    void DrawFace();

    std::array<std::size_t, kPanelKeys> m_order{};  // of the keys: 0 to 3 soft keys, 4 home
    std::array<std::uint32_t, kPanelKeys> m_colors{};
    std::size_t m_step = 0;
    Result m_result = Result::Running;
};

/// Creates the factory test and registers it with the navigation handler.
void CreateFactoryTestScreen();
