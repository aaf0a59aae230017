#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "simulator/panel/devices.h"
#include "simulator/session/session.h"

inline constexpr session::Instant kSecond = 1000;
inline constexpr session::Instant kTwoRefreshes = 2000;
inline constexpr session::Instant kHoldOff = 20'000;  // of the display that connected in vain, with the attempt itself
inline constexpr int kComparedScreen = 25;
inline constexpr std::uint32_t kPowerOnLines = 0x10;  // of output port 0
inline constexpr std::uint32_t kLine1 = 0x08;

/// A board whose devices tell how often they were used.
class CountingBoard : public session::BoardPort {
public:
    void TakeFrame(const panel::Frame&) override { ++frames; }
    std::int32_t Control(std::string_view device, std::uint32_t request, std::int32_t argument) override;

    int frames = 0;
    int lampRequests = 0;  // of the alarm lamp
    panel::Backlight backlight{.level = 200, .on = false};
    std::array<panel::OutputPort, 2> ports = {panel::OutputPort{kPowerOnLines}};
};

/// The display's whole program on the session's clock, on a board and beside a meter that a test takes apart. The
/// meter's clock stands still.
///
/// Made once, in a process that has no other thread; each trial starts the display in its own copy.
class Stage : public CountingBoard, public session::Session {
public:
    explicit Stage(const std::string& language = "en");
    ~Stage() override;

    /// Whether the operating system fails a call of the display. It is told by its name and what it is about:
    /// "open /buttons", "taskCreate tDispButtons".
    std::function<bool(session::OsCall, const std::string& call)> fails;
    bool Fails(session::OsCall call, std::string_view what) override;

    /// Has the lamp flash, and the alarm sign of the screens.
    void RaiseAnAlarm();

    /// Starts the display, and lets it come up if it can.
    void StartDisplay();

    /// Asks the navigation handler for a screen, as the meter's command does, and lets it refresh itself twice.
    void GoTo(int screen);

    /// What is on the panel, as a word that is another for every other picture.
    std::string Picture() const;

    /// The two pictures between which a screen changes while its alarm sign flashes.
    std::string FlashingPicture();

    static bool IsServing();   // whether the display listens for commands
    static int ShownScreen();  // after the hand-over
    static bool IsGerman();    // whether the display's texts are

private:
    std::string m_opened;       // what was opened last
    std::string m_createdTask;  // the task that was created last
};
