#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "benchmarks/panel.h"
#include "benchmarks/work.h"
#include "navigation/navigation_handler.h"
#include "peg/core/timer_list.h"
#include "rda/records.h"
#include "screens/alarms/alarm_screens.h"
#include "screens/extremes/minmax_bar_screen.h"
#include "screens/harmonics/harmonic_screen.h"
#include "screens/parameters/parameter_screen.h"
#include "screens/phasor/phasor_screen.h"
#include "simulator/bench/scripted_meter.h"

namespace {

/// Both have four rows.
constexpr std::int32_t kFourRows = 25;
constexpr std::int32_t kOtherFourRows = 41;
constexpr std::int32_t kAlarmList = 7;
constexpr std::int32_t kPhasors = 68;
constexpr std::int32_t kHarmonics31 = 61;
constexpr std::int32_t kHarmonics63 = 62;
constexpr std::int32_t kThreeBars = 17;

ScriptedMeter& Meter() { return ScriptedMeter::Instance(); }

void AddHarmonics(std::uint32_t count, std::int32_t screen) {
    Meter().Answer("DISPLAYFEATURES_getNumHarmonicsDisplayed", count);
    navigationHandlerClass::getInstance().addScreen(screen, *new harmonicDiagramScrnClass(screen), SCREEN_KIND_DATA);
}

PegThing& Show(std::int32_t screen) {
    static const bool created = [] {
        Panel::Instance();
        CreateParameterScreens();
        CreateActiveAlarmScreens();
        CreatePhasorScreen();
        CreateMinMaxBarScreens();
        AddHarmonics(31, kHarmonics31);
        AddHarmonics(63, kHarmonics63);
        return true;
    }();
    static_cast<void>(created);
    Meter().Recover();
    Meter().ForgetCalls();
    return Panel::Show(screen);
}

std::function<void()> Redraw(std::int32_t shown) {
    PegThing& screen = Show(shown);
    return [&screen] {
        screen.Invalidate();
        Panel::Pump();
    };
}

/// What the one-second timer does on a screen.
std::function<void()> Refresh(PegThing& screen) {
    return [&screen] {
        PegMessage second;
        second.type = MSG_TIMER;
        screen.Message(second);
        Panel::Pump();
        Meter().ForgetCalls();
    };
}

/// The refresh of a page of four values of which `changing` differ each time.
std::function<void()> ChangeValues(int changing) {
    PegThing& screen = Show(kFourRows);
    Meter().AnswerBy("PDMINTERFACE_getRegisterValue",
                     [changing, calls = 0](std::span<const std::byte>, std::span<std::byte> response) mutable {
                         const int row = calls % 4;
                         const int round = row < changing ? calls / 4 : 0;
                         ++calls;
                         RegisterValue record{};
                         std::strcpy(record.label.data(), "Current L1");
                         std::snprintf(record.value.data(), record.value.size(), "%d", 1000 + round % 2 * 234);
                         std::strcpy(record.unit.data(), "A");
                         std::memcpy(response.data(), &record, sizeof record);
                         return true;
                     });
    Refresh(screen)();
    return Refresh(screen);
}

/// What follows when the meter's replies are there: four values change and stand in the device's frame.
std::function<void()> ChangeValuesOnTheDevice() {
    const auto change = ChangeValues(4);
    return [change] {
        Panel::WriteFrames(true);
        change();
        Panel::WriteFrames(false);
    };
}

/// From one page to another and back, as a key does it; one of the two is measured at a time.
std::function<void()> PageToPage() {
    Show(kFourRows);
    return [] {
        navigationHandlerClass& navigation = navigationHandlerClass::getInstance();
        const bool first = navigation.getCurrentScreenId() == kFourRows;
        navigation.navigateFromCurrent(first ? kOtherFourRows : kFourRows);
        Panel::Pump();
        Meter().ForgetCalls();
    };
}

using Answers = std::array<ScriptedMeter::Bytes, 2>;

/// The refresh of a shown screen whose data change with every call of an operation.
std::function<void()> Alternate(PegThing& screen, std::string_view operation, const Answers& answers) {
    Meter().AnswerBy(operation,
                     [answers, second = false](std::span<const std::byte>, std::span<std::byte> response) mutable {
                         second = !second;
                         std::memcpy(response.data(), answers[second ? 1 : 0].data(), response.size());
                         return true;
                     });
    return Refresh(screen);
}

/// The same with what the simulated meter answers an hour apart.
std::function<void()> AnHourApart(std::int32_t shown, std::string_view operation, std::size_t answerBytes) {
    PegThing& screen = Show(shown);
    const ScriptedMeter::Bytes payload = Meter().LastPayload(operation);
    Answers answers;
    for (ScriptedMeter::Bytes& answer : answers) {
        answer.resize(answerBytes);
        Meter().Model().Advance(3'600'000);
        if (!Meter().Call(operation, payload, answer)) std::abort();
    }
    return Alternate(screen, operation, answers);
}

/// A long list of alarms, whose rows have all moved on by one with every refresh.
std::function<void()> MovingAlarms() {
    Meter().Model().Play(*meter::FindScenario("500-alarms"));
    Meter().Model().Advance(1000);
    PegThing& screen = Show(kAlarmList);
    Refresh(screen)();  // asks for a page of what is there now
    constexpr std::string_view kOperation = "ALARMSINTERFACE_getActiveAlarms";
    PegMessage second;
    second.type = MSG_TIMER;
    screen.Message(second);
    Answers answers;
    answers[0].resize(4 * sizeof(AlarmEntry));
    if (!Meter().Call(kOperation, Meter().LastPayload(kOperation), answers[0])) std::abort();
    answers[1] = answers[0];
    std::rotate(answers[1].begin(), answers[1].begin() + sizeof(AlarmEntry), answers[1].end());
    return Alternate(screen, kOperation, answers);
}

/// What a tick costs beyond its way through the queue while ten timers run and none is due.
std::function<void()> IdleTick() {
    Panel::Show(Panel::kEmptyScreen);
    static PegWindow owner(kPanel);
    for (std::uint16_t timer = 1; timer <= 10; ++timer) SetTimer(owner, timer, INT32_MAX, 0);
    return [] {
        toolkit.timers->ProcessTick();
        toolkit.manager->DrawInvalid();
    };
}

}  // namespace

std::vector<Work> ScreenWork() {
    // clang-format off
    return {
        {"page of four rows, whole",              40.8, 7,    20,  [] { return Redraw(kFourRows); }},
        {"page with four values changed",         32.0, 3,    20,  [] { return ChangeValues(4); }},
        {"page with one value changed",           12.3, 1,    40,  [] { return ChangeValues(1); }},
        {"four values changed on the device",     0,    10,   20,  ChangeValuesOnTheDevice},
        {"from one page to another",              44.0, 8,    20,  PageToPage},
        {"tick with nothing invalid",             0.05, 0.04, 900, IdleTick},
        {"alarm list, whole",                     0,    7,    20,  [] { return Redraw(kAlarmList); }},
        {"alarm list, all rows changed",          0,    7,    20,  MovingAlarms},
        {"phasors, whole",                        0,    8,    20,  [] { return Redraw(kPhasors); }},
        {"phasors, refreshed",                    0,    5,    20,  [] { return AnHourApart(kPhasors, "PQINTERFACE_getPhasorData", 10 * sizeof(PhasorEntry)); }},
        {"31 harmonics, whole",                   0,    8,    20,  [] { return Redraw(kHarmonics31); }},
        {"31 harmonics, refreshed",               0,    3,    20,  [] { return AnHourApart(kHarmonics31, "PQINTERFACE_getHarmonicData", sizeof(HarmonicData)); }},
        {"63 harmonics, whole",                   0,    8,    20,  [] { return Redraw(kHarmonics63); }},
        {"63 harmonics, refreshed",               0,    3,    20,  [] { return AnHourApart(kHarmonics63, "PQINTERFACE_getHarmonicData", sizeof(HarmonicData)); }},
        {"three bars, whole",                     0,    8,    20,  [] { return Redraw(kThreeBars); }},
        {"three bars, refreshed",                 0,    3,    20,  [] { return AnHourApart(kThreeBars, "PQINTERFACE_getMinMaxBarData", sizeof(MinMaxBarData)); }},
    };
    // clang-format on
}
