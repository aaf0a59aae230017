#pragma once

#include <set>
#include <string>

#include "navigation/screen_ids.h"
#include "tests/trust/stage.h"

inline constexpr session::Instant kTwoRefreshes = 2000;

/// Asks the navigation handler for a screen, as the meter's command does, and lets it refresh itself twice.
void GoTo(Stage& stage, int screen);

/// What one screen looks like and how often it asks the meter while all is well, for tests that spoil it.
///
/// The display is up. Visits begin elsewhere.
class Visit {
public:
    Visit(Stage& stage, int screen);

    /// Whether there is such a screen.
    bool IsThere() const { return Stage::ShownScreen() == m_screen; }
    int Screen() const { return m_screen; }

    void Leave() { GoTo(m_stage, Elsewhere()); }
    /// Another screen, which shows nothing but live values.
    int Elsewhere() const;

    /// @return what is wrong with the screen now that all has been well for two refreshes; empty: nothing
    std::string Complaint();

private:
    /// Collects what the screen looks like.
    void Watch(session::Instant duration);
    bool IsKnown(const std::string& picture);
    /// Whether the screen asks the meter only when it is entered: for the setting that it changes, or for a seed.
    bool IsReadOnce() const;
    /// How often the meter is asked in two refreshes.
    int Liveliness();

    Stage& m_stage;
    int m_screen;
    std::set<std::string> m_pictures;
    bool m_isWatchedWhole = false;
    int m_liveliness = 0;
};
