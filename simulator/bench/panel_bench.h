#pragma once

#include "navigation/messages.h"
#include "navigation/navigation_handler.h"
#include "simulator/bench/scripted_meter.h"
#include "simulator/bench/toolkit_bench.h"
#include "simulator/own_folder.h"

/// The application's screens on a toolkit driven by hand, with the real resource and localisation files and a scripted
/// meter. Time is ticks; the simulated meter's clock stands still unless it is moved.
class PanelBench : public ToolkitBench {
protected:
    PanelBench();

    static ScriptedMeter& meter() { return ScriptedMeter::Instance(); }
    static navigationHandlerClass& Navigation() { return navigationHandlerClass::getInstance(); }

    /// Replaces the languages by those of tests: English, a long one, and one in which each text is its number.
    void SpeakTestLanguages();

    /// Puts a registered screen on the panel, from whatever is there.
    void Show(std::int32_t screenId);

    /// A key of the panel is pressed, released, or both.
    void KeyDown(KeyCode key);
    void KeyUp(KeyCode key);
    void Press(KeyCode key, int times = 1);

    static std::int32_t Shown() { return Navigation().getCurrentScreenId(); }

    std::vector<std::uint16_t> Frame();

    OwnBoard m_board{"panel-bench"};

private:
    void Send(std::uint16_t type, KeyCode key);
};
