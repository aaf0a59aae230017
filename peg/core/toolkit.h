#pragma once

class PegMessageQueue;
class PegPresentationManager;
class PegScreen;
class PegTimerList;

/// The objects that all things of the toolkit task share. PegTaskMain makes them one after the other and takes them
/// away again in reverse; only then are they null.
struct PegToolkit {
    PegScreen* screen = nullptr;
    PegMessageQueue* queue = nullptr;
    PegPresentationManager* manager = nullptr;
    PegTimerList* timers = nullptr;
};

inline PegToolkit toolkit;
