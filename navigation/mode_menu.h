#pragma once

/// The menu of a display mode, as far as the navigation handler has to do with it.
class ModeMenu {
public:
    /// Its mode is being entered: the menu stands as on its first day.
    virtual void reset() = 0;

protected:
    ~ModeMenu() = default;
};
