#pragma once

#include <string_view>
#include <vector>

/// The sentences that the meter says. The display translates every text by its English form.
namespace meter::texts {

// Events.
inline constexpr std::string_view kFactorySettings = "Factory settings loaded";
inline constexpr std::string_view kPowerRestored = "Power restored";
inline constexpr std::string_view kDisplayConnected = "Display connected";
inline constexpr std::string_view kAlarmStarted = "Alarm started";
inline constexpr std::string_view kAlarmEnded = "Alarm ended";
inline constexpr std::string_view kActiveAcknowledged = "Active alarms acknowledged";
inline constexpr std::string_view kHistoryAcknowledged = "Alarm history acknowledged";
inline constexpr std::string_view kLoginAccepted = "Login accepted";
inline constexpr std::string_view kLoginRefused = "Login refused";
inline constexpr std::string_view kAltModeEntered = "Alternate mode entered";
inline constexpr std::string_view kAltModeLeft = "Alternate mode left";
inline constexpr std::string_view kTestModeEntered = "Test mode entered";
inline constexpr std::string_view kTestModeLeft = "Test mode left";
inline constexpr std::string_view kDisplayTestPassed = "Display test passed";
inline constexpr std::string_view kDisplayTestFailed = "Display test failed";

// Answers to a write.
inline constexpr std::string_view kAccepted = "Accepted";
inline constexpr std::string_view kHardwareLocked = "The hardware lock is closed";
inline constexpr std::string_view kNotLoggedIn = "Nobody is logged in";
inline constexpr std::string_view kRefused = "The meter refuses the change";
inline constexpr std::string_view kUnknownRegister = "Unknown register";
inline constexpr std::string_view kReadOnly = "This value cannot be changed";
inline constexpr std::string_view kNotAChoice = "Not one of the choices";
inline constexpr std::string_view kNotANumber = "Not a number";
inline constexpr std::string_view kOutOfRange = "Value out of range";
inline constexpr std::string_view kNotAnAddress = "Not a valid address";
inline constexpr std::string_view kNoChoices = "The register has no choices";

// States.
inline constexpr std::string_view kOn = "On";
inline constexpr std::string_view kOff = "Off";
inline constexpr std::string_view kLagging = "lag";
inline constexpr std::string_view kLeading = "lead";

/// Every text that the meter may send as a whole and that is not a number, each once, in alphabetical order.
std::vector<std::string_view> All();

}  // namespace meter::texts
