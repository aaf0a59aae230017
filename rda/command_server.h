#pragma once

#include <cstdint>
#include <span>

#include "platform/button_event.h"
#include "platform/task.h"

class RdaServer;

/// What the meter may command, as the display carries it out. All run on the command server task, and none may wait.
struct DisplayCommands {
    std::uint32_t (*hardwareId)();
    void (*changeAltModeState)(std::uint32_t state);
    void (*navigateTo)(std::uint32_t screenId);
    void (*navigateToDispTest)();
    void (*setLanguage)(std::uint32_t index);
    void (*setPhaseLabels)(std::uint32_t index);
    void (*setMeasSymbols)(std::uint32_t index);
    void (*changeTestModeState)(std::uint32_t state);
    int (*kernelVersion)(std::uint32_t* word);     // -1: unknown, and the word stays as it is
    int (*osPackageVersion)(std::uint32_t* word);  // likewise
    int (*serialNumber)(std::span<char> text);     // non-zero: unknown
    void (*setBacklightTimeout)(std::uint32_t seconds);
    void (*handleButtonEvent)(const ButtonEvent& event);
};

/// Registers the meter's 15 commands with a server. There is one display in a process: the last one given is commanded.
/// @param commands  every function is set; kept by reference
void registerDisplayCommands(RdaServer& server, const DisplayCommands& commands);

/// Body of the task tDispRdaServer: serves the meter's commands on 127.0.0.1:31416.
/// @param commands  address of the DisplayCommands, which outlive the task
/// @return 0, if serving ever ends
int commandServerTask(os::TaskArgument commands);
