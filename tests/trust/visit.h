#pragma once

#include <set>
#include <string>

#include "navigation/screen_ids.h"
#include "tests/trust/stage.h"

/// What one screen looks like and how often it asks the meter while all is well, for tests that spoil it.
///
/// The display is up. Visits begin elsewhere.
class Visit {
public:
    Visit(Stage& stage, int screen);

    /// Whether there is such a screen.
    bool IsThere() const { return Stage::ShownScreen() == m_screen; }

    void Enter() { m_stage.GoTo(m_screen); }
    void Leave() { m_stage.GoTo(Elsewhere()); }
    /// Another screen, which shows nothing but live values.
    int Elsewhere() const;

    /// @return what is wrong with the screen now that all has been well for two refreshes: "; ", the words that say
    /// after what, and the complaint; empty: nothing
    std::string ComplaintAfter(const std::string& what);

private:
    /// Collects what the screen looks like.
    void Watch(session::Instant duration);
    bool IsKnown(const std::string& picture);
    /// How often the meter is asked in two refreshes.
    int Liveliness();

    Stage& m_stage;
    int m_screen;
    std::set<std::string> m_pictures;
    bool m_isWatchedWhole = false;
    int m_liveliness = 0;
};
