#pragma once

struct DisplayCommands;
class PegThing;

/// Builds the application and shows its first screen: the display's settings from the meter, its tasks, and every
/// screen, registered with the navigation handler. Once in the life of the process, by the start-up screen.
/// @param parent  the presentation manager
void BuildApplication(PegThing& parent);

/// What the meter's commands do in this display.
const DisplayCommands& TheDisplayCommands();
