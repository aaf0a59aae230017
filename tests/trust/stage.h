#pragma once

#include <map>
#include <string>
#include <string_view>

#include "simulator/panel/devices.h"
#include "simulator/session/session.h"

inline constexpr session::Instant kSecond = 1000;
inline constexpr int kMenu = 0;
inline constexpr int kComparedScreen = 25;
inline constexpr std::uint32_t kPowerOnLines = 0x10;  // of output port 0
inline constexpr std::uint32_t kLine1 = 0x08;

/// A board whose devices tell how often they were used.
class CountingBoard : public session::BoardPort {
public:
    void TakeFrame(const panel::Frame&) override { ++frames; }
    std::int32_t Control(std::string_view device, std::uint32_t request, std::int32_t argument) override;

    int frames = 0;
    std::map<std::string, int, std::less<>> controls;  // by device
    panel::Backlight backlight{.level = 200, .on = false};
    std::array<panel::OutputPort, 2> ports;
};

/// Made before the session that it belongs to.
struct StageBoard {
    CountingBoard board = {};
};

/// The display's whole program on the session's clock, on a board and beside a meter that a test takes apart. The
/// meter's clock stands still.
///
/// Made once, in a process that has no other thread; each trial starts the display in its own copy.
class Stage : private StageBoard, public session::Session {
public:
    explicit Stage(const session::Setting& setting = Usual()) : Session(setting, board) { FreezeMeter(); }

    /// The setting of most trials, and the same in German.
    static session::Setting Usual();
    static session::Setting InGerman();

    /// Has the lamp flash, and the alarm sign of the screens.
    void RaiseAnAlarm();

    /// Starts the display, and lets it come up if it can.
    void StartDisplay();

    CountingBoard& Board() { return board; }

    /// What is on the panel, as a word that is another for every other picture.
    std::string Picture() const;

    /// The two pictures between which a screen changes while its alarm sign flashes.
    std::string FlashingPicture();

    static bool IsServing();   // whether the display listens for commands
    static int ShownScreen();  // after the hand-over
    static bool IsGerman();    // whether the display's texts are

    /// Presses and releases the key that leads from the start screen to the menu.
    void PressHome();
};
