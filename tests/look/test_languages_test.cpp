#include <algorithm>
#include <array>
#include <set>

#include "localization/display_config.h"
#include "navigation/entry/keyboard_layout.h"
#include "simulator/bench/meter_texts.h"
#include "tests/bench/test_on.h"
#include "tools/formats/utf.h"
#include "tools/panel_tour/panel_tour.h"

namespace {

constexpr std::uint32_t kLong = 1;
constexpr std::uint32_t kNumbers = 2;
constexpr std::string_view kLanguageScreen = "screen 180";                // each language stands there in its own words
constexpr std::array<std::u16string_view, 2> kUnits = {u"kWh", u"kVAh"};  // the meter's, the same in every language

/// The panel in languages that are made for tests.
class TestLanguages : public TestOn<PanelTour> {
protected:
    TestLanguages() { SpeakTestLanguages(); }

    void Look(const std::string& place) override {
        for (const RecordedText& text : Record().Texts()) {
            if (text.IsGone() || text.isBehind || place.starts_with(kLanguageScreen)) continue;
            const bool isFault = DISPCFG_getLanguage() == kNumbers ? IsUntranslated(text) : StandsOnAnother(text);
            if (isFault) m_faults.insert("\"" + ToUtf8(text.text) + "\" on " + place);
        }
    }

    std::set<std::string> m_faults;

private:
    bool StandsOnAnother(const RecordedText& text) const {
        return std::ranges::any_of(text.hits, [&](std::size_t index) { return !Record().Texts()[index].IsGone(); });
    }

    /// A word, but for one that a person types.
    static bool IsUntranslated(const RecordedText& text) {
        const auto letters = std::ranges::count_if(text.text, [](char16_t unit) { return (unit | 0x20) >= u'a'; });
        return letters > 1 && std::ranges::find(kUnits, text.text) == kUnits.end() &&
               text.text.find(u'#') == std::u16string::npos && !kEntryPlace.Contains(text.room);
    }
};

TEST_F(TestLanguages, LeaveNoWordInTheCode) {
    DISPCFG_setLanguage(kNumbers);
    VisitEveryScreen();
    EmptyEveryReply();
    m_faults.clear();  // the meter has words of its own
    VisitEverything();
    for (const std::string& fault : m_faults) ADD_FAILURE() << fault;
}

TEST_F(TestLanguages, KeepLongTextsApart) {
    DISPCFG_setLanguage(kLong);
    VisitEverything();
    for (const std::string& fault : m_faults) ADD_FAILURE() << fault;
}

}  // namespace
