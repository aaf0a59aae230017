#include "tools/text_places/place_tour.h"

#include "localization/display_config.h"
#include "simulator/bench/meter_texts.h"
#include "tools/panel_tour/panel_tour.h"
#include "tools/text_places/text_places.h"

namespace {

constexpr std::uint32_t kEnglish = 0;
constexpr std::uint32_t kLanguages = 6;

/// Somebody with a ruler on the tour.
class Surveyor : public PanelTour {
public:
    bool Survey(const std::string& path) {
        DISPCFG_setLanguage(kEnglish);
        VisitEverything();
        VisitEverySet();
        VisitOtherLanguages();
        meter().FallSilent();
        VisitEveryScreen();
        meter().Recover();
        WidenEveryValue();
        VisitEveryScreen();
        FillEveryText();
        VisitEveryScreen();
        PressEveryKey();  // turns pages
        EmptyEveryReply();
        VisitEveryScreen();
        return m_places.Write(path);
    }

private:
    /// Notes the room and the fonts that other languages need.
    void VisitOtherLanguages() {
        for (std::uint32_t language = 0; language < kLanguages; ++language) {
            DISPCFG_setLanguage(language);
            VisitEveryScreen();
        }
        DISPCFG_setLanguage(kEnglish);
    }

    void Look(const std::string& place) override {
        if (DISPCFG_getLanguage() == kEnglish) {
            m_places.Add(Record(), place);
        } else {
            m_places.AddLimits(Record(), place);
        }
    }

    KnownTexts m_known{kEnglish};
    TextPlaces m_places{m_known};
};

}  // namespace

bool WriteTextPlaces(const std::string& path) { return Surveyor().Survey(path); }
